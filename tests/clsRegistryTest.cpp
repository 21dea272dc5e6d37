#include "registry/clsRegistry.h"

#include <limits>

#include "support/Core.h"

namespace {

using namespace std::string_literals;
using platform::Bytes;

const std::string Upper = "\\HKEY_CURRENT_USER\\SOFTWARE\\TAVIMOR TESTS";

Bytes bytes(const std::string& text) {
    return {text.begin(), text.end()};
}

// The session stands in an empty key of the tests.
struct clsRegistry_ : testing::Test, Core {
    clsRegistry_() {
        system.makeKey(TestsKey);
        registry.cD(TestsKey);
    }
};

// Keys ----------------------------------------------------------------------------------------------------------

TEST_F(clsRegistry_, MovesAsInADirectoryTree) {
    system.makeKey(TestsKey + "\\Zigzag\\Leaf");
    system.makeKey("HKEY_LOCAL_MACHINE\\Software\\Microsoft");
    const std::pair<std::vector<const char*>, std::string> cases[] = {
        {{"  \\hkey_current_user\\software\\ "}, "\\HKEY_CURRENT_USER\\SOFTWARE"},
        {{"HKEY_CURRENT_USER", "software", "Tavimor Tests", "zigzag\\leaf", "."}, Upper + "\\ZIGZAG\\LEAF"},
        {{"HKEY_CURRENT_USER\\Software\\Tavimor Tests\\Zigzag", ".."}, Upper},
        {{"HKEY_CURRENT_USER\\Software", "\\HKEY_LOCAL_MACHINE\\Software"}, "\\HKEY_LOCAL_MACHINE\\SOFTWARE"},
        {{"HKEY_CURRENT_USER", ".."}, ""},
        {{"HKEY_CURRENT_USER\\Software", "\\", "\\"}, ""},
    };
    for (const auto& [moves, key] : cases) {
        registry.cD("\\");
        for (const char* move : moves) registry.cD(move);
        EXPECT_EQ(registry.CurrentKey(), key);
        EXPECT_EQ(registry.HasKeys(), !key.ends_with("LEAF"));
        EXPECT_EQ(registry.DirKey().has_value(), registry.HasKeys());
    }
}

TEST_F(clsRegistry_, AfterAFailedMoveEverythingIsMissingUntilTheNextAbsoluteMove) {
    system.setText(TestsKey, "Name", "value");
    for (const std::string wanted : {"Nowhere", "\\HKEY_CURRENT_USER\\Nowhere"}) {
        registry.cD(wanted);
        EXPECT_TRUE(registry.CurrentKey().ends_with("NOWHERE"));
        EXPECT_EQ(registry.ValueOf("Name"), std::nullopt);
        EXPECT_FALSE(registry.DirKey());
        EXPECT_FALSE(registry.DirValue());
        registry.MakeKey("Made");
        registry.ValueOf("Name", ValueType::String, "changed"s);
        registry.DeleteValue("Name");
        registry.cD(Upper);
        EXPECT_EQ(registry.ValueOf("Name")->text, "value");
        EXPECT_FALSE(registry.DirKey());
    }
}

TEST_F(clsRegistry_, WrongMovesAreShownAndLeaveTheSessionUsable) {
    for (const char* from : {"\\", "\\HKEY_CURRENT_USER"}) {
        registry.cD(from);
        expectError("Invalid Key root.");
        registry.cD("\\HKEY_FOO\\Software");
        EXPECT_EQ(registry.CurrentKey(), "\\HKEY_FOO\\SOFTWARE");
    }
    registry.cD("\\");
    expectError("No current Key.");
    registry.cD("..");
    EXPECT_EQ(basErrors::Err.number, 0x80040001u);
    EXPECT_EQ(basErrors::Err.source, "TVMRRegistry");
    for (const auto& [error, text, number] :
         {std::tuple{2, "Invalid Key root.", 0x80040002u}, {7, "Undefined error number : 16", 0x800400FFu}}) {
        expectError(text);
        registry.RaiseClassError(error);
        EXPECT_EQ(basErrors::Err.number, number);
    }
}

IN_MEMORY_TEST_F(clsRegistry_, TheTopHasSixRoots) {
    const std::vector<std::string> roots{"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE",
                                         "HKEY_USERS",        "HKEY_DYN_DATA",     "HKEY_CURRENT_CONFIG"};
    registry.cD("\\");
    EXPECT_EQ(registry.DirKey(), roots);
    const platform::HKey handles[] = {0x80000000, 0x80000001, 0x80000002, 0x80000003, 0x80000006, 0x80000005};
    for (const platform::HKey* handle = handles; const std::string& root : roots) {
        EXPECT_EQ(clsRegistry::RootHandle(root), *handle++) << root;
        system.registry.setContents({{root + "\\Of " + root + "|", ""}});
        registry.cD("\\" + root);
        EXPECT_EQ(registry.DirKey(), std::vector<std::string>{"Of " + root});
    }
}

IN_MEMORY_TEST_F(clsRegistry_, FailuresOfTheSystemAreRecordedAndNotShown) {
    const std::pair<std::uint32_t, const char*> texts[] = {
        {2, "Key/Value does not exist."}, {5, "Access to Registry Denied."},    {14, "Out of memory."},
        {87, "Invalid Parameter."},       {1009, "Corrupt Registry Database!"}, {1010, "Key name is bad."},
        {1011, "Cannot Open Key."},       {1012, "Cannot Read Key."},           {1013, "Cannot Write Key."},
        {6, "Undefined key error code!"}};
    for (const auto& [code, text] : texts) {
        const std::pair<const char*, std::function<void()>> refused[] = {
            {"RegDeleteKeyA", [&] { registry.DeleteKey("Any"); }},
            {"RegCreateKeyExA", [&] { registry.MakeKey("Any"); }},
            {"RegSetValueExA", [&] { registry.ValueOf("Value", 0, "text"s); }}};
        for (const auto& [function, call] : refused) {
            system.registry.watch.failOn(function, 1, code);
            call();
            EXPECT_EQ(basErrors::Err.number, 0x80040400 + code) << function;
            EXPECT_EQ(basErrors::Err.source + basErrors::Err.description, std::string("TVMRRegistry[API Call]") + text);
            basErrors::Err.clear();
        }
    }
    registry.MakeKey("Any");
    EXPECT_EQ(basErrors::Err.number, 0u);
}

TEST_F(clsRegistry_, MakesWholeChainsAndDeletesOneLevel) {
    registry.MakeKey("A\\B\\C");
    EXPECT_EQ(registry.CurrentKey(), Upper);
    registry.DeleteKey("a\\b\\c");
    registry.DeleteKey("A");
    EXPECT_TRUE(registry.IsValidKey(platform::HKeyCurrentUser, "Software\\Tavimor Tests\\A\\B"));
    EXPECT_FALSE(registry.IsValidKey(platform::HKeyCurrentUser, "Software\\Tavimor Tests\\A\\B\\C"));
    EXPECT_EQ(system.registry.openHandles(), system.inMemory() ? 1u : 0u) << "the session's own";
}

IN_MEMORY_TEST_F(clsRegistry_, ReadingAndWritingInTurnOpensTheKeyOnceOnAnySystem) {
    for (const std::uint32_t platform : {0u, 1u, 2u, 3u}) {
        system.system.version.platformId = platform;
        EXPECT_EQ(registry.IsWindowsNT(), platform == 2);
    }
    system.registry.watch.reset();
    for (int i = 0; i < 10; ++i) {
        registry.ValueOf("Value", ValueType::Dword, static_cast<double>(i));
        EXPECT_EQ(registry.ValueOf("Value")->number, i);
    }
    EXPECT_EQ(system.registry.watch.calls(), 22);
}

// Values --------------------------------------------------------------------------------------------------------

TEST_F(clsRegistry_, TheTextOfANumberIsTakenApartAtItsBracket) {
    for (const auto& [text, parts] :
         {std::pair{"000000db (0,000,000,219)", "000000db|0,000,000,219|"}, {"000000db", "000000d||"}, {"", "||"}})
        EXPECT_EQ(registry.ParseDWord(text, 1) + "|" + registry.ParseDWord(text, 2) + "|" +
                      registry.ParseDWord(text, 0) + registry.ParseDWord(text, 3),
                  parts);
}

TEST_F(clsRegistry_, ValuesReadAndListByWhatIsStored) {
    using namespace platform;
    // Text|display|number|what is listed.
    const std::tuple<RegType, Bytes, ValueType, const char*> cases[] = {
        {RegSz, bytes(" a\xE9 \0"s), ValueType::String, " a\xE9 | a\xE9 |0|a\xE9"},
        {RegSz, bytes("a\0b\0"s), ValueType::String, "a|a|0|a"},
        {RegMultiSz, bytes("a\0b\0\0"s), ValueType::String, "a|a|0|a"},
        {RegExpandSz, bytes("%windir%\0"s), ValueType::String, "%windir%|%windir%|0|%windir%"},
        {RegBinary, {0, 0x10, 0xFF}, ValueType::Binary, "0 10 FF|0 10 FF|0|0 10 FF"},
        {RegDword, {0xDB, 0, 0, 0x80}, ValueType::Dword, "800000db|2147483867|2147483867|800000db (2,147,483,867)"},
        {RegDword, {0x34, 0x12}, ValueType::Dword, "00001234|4660|4660|00001234 (0,000,004,660)"},
        {RegDword, {1, 0, 0, 0, 9}, ValueType::Dword, "00000001|1|1|00000001 (0,000,000,001)"},
    };
    for (const auto& [stored, data, expectedType, expected] : cases) {
        SCOPED_TRACE(expected);
        system.set({TestsKey, "Value", stored, data});
        ValueType type = ValueType::Binary;
        const auto value = registry.ValueOf("vALUE", type).value();
        const auto listed = registry.DirValue().value().at(0);
        const std::string number = std::to_string(static_cast<std::uint32_t>(value.number));
        EXPECT_EQ(value.text + "|" + value.display + "|" + number + "|" + listed.text, expected);
        EXPECT_EQ(listed.name, "Value");
        EXPECT_EQ(type, expectedType);
        EXPECT_EQ(listed.type, expectedType);
    }
}

IN_MEMORY_TEST_F(clsRegistry_, WhatIsMissingOrEmptyIsNothingAndWhatGoesEndsTheList) {
    ValueType type = ValueType::Dword;
    EXPECT_FALSE(registry.ValueOf("Value", type));
    EXPECT_FALSE(registry.DirValue());
    EXPECT_EQ(type, ValueType::String);
    system.set({TestsKey, "Value", platform::RegDword, {}});
    EXPECT_FALSE(registry.ValueOf("Value"));
    EXPECT_EQ(registry.DirValue()->front().text, "00000000 (0,000,000,000)");
    for (const char* name : {"A", "B"}) {
        system.setText(TestsKey, name, "text");
        system.makeKey(TestsKey + "\\" + name);
    }
    system.registry.watch.failOn("RegEnumValueA", 2, platform::NoMoreItems);
    EXPECT_EQ(registry.DirValue()->size(), 1u);
    system.registry.watch.failOn("RegEnumKeyExA", 1, platform::KeyDeleted);
    EXPECT_FALSE(registry.DirKey());
}

TEST_F(clsRegistry_, ValuesAreStoredInTheirTypeAndOthersRefused) {
    using namespace platform;
    const std::tuple<int, Variant, RegType, Bytes> stored[] = {
        {0, "a\xE9"s, RegSz, bytes("a\xE9\0"s)},
        {0, ""s, RegSz, bytes("\0"s)},
        {1, Bytes{0, 0x10}, RegBinary, {0, 0x10}},
        {2, 73728.0, RegDword, {0, 0x20, 1, 0}},
        {2, 4294967295.0, RegDword, {0xFF, 0xFF, 0xFF, 0xFF}},
    };
    for (const auto& [type, value, storedType, data] : stored) {
        registry.ValueOf("Value", type, value);
        const auto found = system.value(TestsKey, "Value");
        EXPECT_EQ(found.value().type, storedType);
        EXPECT_EQ(found.value().data, data);
        registry.DeleteValue("Value");
    }
    const std::pair<int, Variant> refused[] = {
        {0, Bytes{1}}, {1, "1 A0"s}, {2, "3"s}, {2, 4294967296.0},
        {2, -1.0},     {2, 2.5},     {3, "x"s}, {2, std::numeric_limits<double>::quiet_NaN()},
        {-1, 1.0}};
    for (const auto& [type, value] : refused) {
        const bool exists = type >= 0 && type < 3;
        expectError(exists ? "Type passed doesn't match Value passed."
                           : "Type passed doesn't exist. Use STRING, DWORD or BINARY.");
        registry.ValueOf("Value", type, value);
        system.desktop.settle();
        EXPECT_EQ(basErrors::Err.number, exists ? 0x80040003 : 0x80040004);
        EXPECT_EQ(basErrors::Err.source, "TVMRRegistry [Let ValueOf]");
        EXPECT_FALSE(system.value(TestsKey, "Value"));
    }
}

}  // namespace
