#include "registry/clsRegistry.h"

#include <limits>
#include <random>

#include "support/Core.h"

namespace {

using namespace std::string_literals;
using platform::Bytes;

const std::string Upper = "\\HKEY_CURRENT_USER\\SOFTWARE\\TAVIMOR TESTS";

Bytes bytes(const std::string& text) {
    return {text.begin(), text.end()};
}

class clsRegistry_ : public testing::Test, protected Core {
protected:
    // The session stands in an empty key of the tests.
    void SetUp() override {
        system.makeKey(TestsKey);
        registry.cD(TestsKey);
    }
    void set(const std::string& name, platform::RegType type, const Bytes& data) {
        system.set({TestsKey, name, type, data});
    }
};

// Keys ----------------------------------------------------------------------------------------------------------

TEST_F(clsRegistry_, MovesAsInADirectoryTree) {
    system.makeKey(TestsKey + "\\Zigzag\\Leaf");
    system.makeKey("HKEY_LOCAL_MACHINE\\Software\\Microsoft");
    const struct {
        std::vector<const char*> moves;
        std::string key;
    } cases[] = {
        {{"  \\hkey_current_user\\software\\ "}, "\\HKEY_CURRENT_USER\\SOFTWARE"},
        {{"HKEY_CURRENT_USER"}, "\\HKEY_CURRENT_USER"},
        {{"HKEY_CURRENT_USER", "software", "Tavimor Tests", "zigzag\\leaf", "."}, Upper + "\\ZIGZAG\\LEAF"},
        {{"HKEY_CURRENT_USER\\Software\\Tavimor Tests\\Zigzag", ".."}, Upper},
        {{"HKEY_CURRENT_USER\\Software", "\\HKEY_LOCAL_MACHINE\\Software"}, "\\HKEY_LOCAL_MACHINE\\SOFTWARE"},
        {{"HKEY_CURRENT_USER", ".."}, ""},
        {{"HKEY_CURRENT_USER\\Software", "\\", "\\"}, ""},
    };
    for (const auto& c : cases) {
        registry.cD("\\");
        for (const char* move : c.moves) registry.cD(move);
        EXPECT_EQ(registry.CurrentKey(), c.key);
        EXPECT_TRUE(registry.HasKeys() || c.key.ends_with("LEAF")) << c.key;
    }
}

TEST_F(clsRegistry_, TheTopListsTheRootsAndAKeyItsSubkeysAsTheyAreSpelled) {
    EXPECT_EQ(registry.DirKey(), std::nullopt);
    EXPECT_FALSE(registry.HasKeys());
    for (const std::string& name : {"Beta"s, "alpha"s, std::string(255, 'k')}) registry.MakeKey(name);
    EXPECT_EQ(registry.DirKey(), system.keys(TestsKey));
    registry.cD("\\");
    const std::vector<std::string> roots{"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE",
                                         "HKEY_USERS",        "HKEY_DYN_DATA",     "HKEY_CURRENT_CONFIG"};
    EXPECT_EQ(registry.DirKey(), roots);
}

TEST_F(clsRegistry_, AfterAFailedMoveEverythingIsMissingUntilTheNextAbsoluteMove) {
    system.setText(TestsKey, "Name", "value");
    for (const std::string wanted : {"Nowhere", "\\HKEY_CURRENT_USER\\Nowhere"}) {
        registry.cD(wanted);
        EXPECT_TRUE(registry.CurrentKey().ends_with("NOWHERE"));
        EXPECT_EQ(registry.ValueOf("Name"), std::nullopt);
        EXPECT_FALSE(registry.DirKey() || registry.DirValue());
        registry.MakeKey("Made");
        registry.ValueOf("Name", ValueType::String, "changed"s);
        registry.DeleteValue("Name");
        registry.cD(Upper);
        EXPECT_EQ(registry.ValueOf("Name")->text, "value");
        EXPECT_EQ(registry.DirKey(), std::nullopt);
    }
}

TEST_F(clsRegistry_, WrongMovesAreShownAndLeaveTheSessionUsable) {
    for (const char* from : {"\\", "\\HKEY_CURRENT_USER"}) {
        registry.cD(from);
        expectError("Invalid Key root.");
        registry.cD("\\HKEY_FOO\\Software");
        EXPECT_EQ(registry.CurrentKey(), "\\HKEY_FOO\\SOFTWARE");
        EXPECT_FALSE(registry.HasKeys());
    }
    registry.cD("\\");
    expectError("No current Key.");
    registry.cD("..");
    EXPECT_EQ(registry.CurrentKey(), "");
    EXPECT_EQ(basErrors::Err.number, 0x80040001u);
    EXPECT_EQ(basErrors::Err.source, "TVMRRegistry");
    for (const auto& [number, text] : {std::pair{7, "16"}, {0, "9"}, {-10, "-1"}}) {
        expectError(std::string("Undefined error number : ") + text);
        registry.RaiseClassError(number);
        EXPECT_EQ(basErrors::Err.number, 0x800400FFu);
    }
}

TEST_F(clsRegistry_, FailuresOfTheSystemAreRecordedAndNotShown) {
    const std::pair<platform::Result, const char*> cases[] = {
        {5, "Access to Registry Denied."}, {1009, "Corrupt Registry Database!"}, {6, "Undefined key error code!"}};
    for (const auto& [code, text] : cases) {
        system.registry.watch.failOn("RegDeleteKeyA", 1, code);
        registry.DeleteKey("Any");
        EXPECT_EQ(basErrors::Err.number, 0x80040400 + code);
        EXPECT_EQ(basErrors::Err.source, "TVMRRegistry[API Call]");
        EXPECT_EQ(basErrors::Err.description, text);
    }
    registry.ValueOf("Any", ValueType::String, "x"s);
    EXPECT_EQ(basErrors::Err.number, 0u);
}

TEST_F(clsRegistry_, MakesWholeChainsAndDeletesOneLevel) {
    registry.MakeKey("A\\B\\C");
    EXPECT_EQ(registry.CurrentKey(), Upper);
    EXPECT_TRUE(registry.IsValidKey(platform::HKeyCurrentUser, "Software\\Tavimor Tests\\a\\b\\c"));
    registry.DeleteKey("A\\B\\C");
    EXPECT_FALSE(registry.IsValidKey(platform::HKeyCurrentUser, "Software\\Tavimor Tests\\A\\B\\C"));
    registry.DeleteKey("A");
    EXPECT_TRUE(system.exists(TestsKey + "\\A\\B"));
    EXPECT_EQ(system.registry.openHandles(), 1u);
}

TEST_F(clsRegistry_, ReadingAndWritingInTurnOpensTheKeyOnce) {
    system.registry.watch.reset();
    for (int i = 0; i < 10; ++i) {
        registry.ValueOf("Value", ValueType::Dword, static_cast<double>(i));
        EXPECT_EQ(registry.ValueOf("Value")->number, i);
    }
    EXPECT_EQ(system.registry.watch.calls(), 22);
}

// Values --------------------------------------------------------------------------------------------------------

// Refused calls among them: what was opened is closed on every way out.
TEST_F(clsRegistry_, TenThousandOperationsLeaveNoHandleOpen) {
    registry.cD("\\");
    std::mt19937 random(19990318);
    const std::string absolute[] = {"\\", "\\" + TestsKey, "\\HKEY_LOCAL_MACHINE", "\\HKEY_CURRENT_USER\\Nowhere"};
    const std::string relative[] = {"..", ".", "A", "B", "A\\B", "Nowhere"};
    const std::string names[] = {"A", "B", "A\\B"};
    auto& watch = system.registry.watch;
    {
        clsRegistry session(system.platform(), strings);
        for (int i = 0; i < 10000; ++i) {
            if (random() % 50 == 0) watch.failOn(static_cast<int>(1 + random() % 4), platform::AccessDenied);
            const std::string& name = names[random() % std::size(names)];
            const bool ours = session.CurrentKey().starts_with(Upper);
            const auto operation = random() % 10;
            if (operation == 0)
                session.DirKey();
            else if (operation == 1)
                session.DirValue();
            else if (operation == 2)
                session.ValueOf(name);
            else if (operation == 3 && ours)
                session.MakeKey(name);
            else if (operation == 4 && ours)
                session.DeleteKey(name);
            else if (operation == 5 && ours)
                session.ValueOf(name, ValueType::String, name);
            else if (operation < 8 && !session.CurrentKey().empty())
                session.cD(relative[random() % std::size(relative)]);
            else
                session.cD(absolute[random() % std::size(absolute)]);
            ASSERT_LE(system.registry.openHandles(), 1u);
        }
        watch.reset();
        session.cD(Upper);
        EXPECT_EQ(system.registry.openHandles(), 1u);
    }
    EXPECT_EQ(system.registry.openHandles(), 0u);
}

TEST_F(clsRegistry_, ValuesReadAndListByWhatIsStored) {
    using namespace platform;
    const struct {
        const char* what;
        RegType stored;
        Bytes data;
        ValueType type;
        const char *text, *listed;
        double number = 0;
    } cases[] = {
        {"text", RegSz, bytes(" a b \0"s), ValueType::String, " a b ", "a b"},
        {"only a terminator", RegSz, bytes("\0"s), ValueType::String, "", ""},
        {"text behind the end", RegSz, bytes("a\0b\0"s), ValueType::String, "a", "a"},
        {"several texts", RegMultiSz, bytes("a\0b\0\0"s), ValueType::String, "a", "a"},
        {"expandable text", RegExpandSz, bytes("%windir%\0"s), ValueType::String, "%windir%", "%windir%"},
        {"a high byte", RegSz, bytes("\xE9\0"s), ValueType::String, "\xE9", "\xE9"},
        {"binary", RegBinary, {0, 0x10, 0xFF}, ValueType::Binary, "0 10 FF", "0 10 FF"},
        {"number", RegDword, {0xDB, 0, 0, 0x80}, ValueType::Dword, "800000db", "800000db (2,147,483,867)", 2147483867},
        {"a short number", RegDword, {0x34, 0x12}, ValueType::Dword, "00001234", "00001234 (0,000,004,660)", 4660},
        {"a long number", RegDword, {1, 0, 0, 0, 9}, ValueType::Dword, "00000001", "00000001 (0,000,000,001)", 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        set("Value", c.stored, c.data);
        ValueType type = ValueType::Binary;
        const auto value = registry.ValueOf("vALUE", type);
        ASSERT_TRUE(value);
        EXPECT_EQ(type, c.type);
        EXPECT_EQ(value->text, c.text);
        EXPECT_EQ(value->display, type == ValueType::Dword ? std::to_string(std::uint32_t(c.number)) : c.text);
        EXPECT_EQ(value->number, c.number);
        const auto listed = registry.DirValue();
        ASSERT_TRUE(listed && listed->size() == 1);
        EXPECT_EQ(listed->front().name + "=" + listed->front().text, std::string("Value=") + c.listed);
        EXPECT_EQ(listed->front().type, c.type);
    }
}

TEST_F(clsRegistry_, MissingAndEmptyValuesAreNothing) {
    EXPECT_EQ(registry.DirValue(), std::nullopt);
    ValueType type = ValueType::Dword;
    EXPECT_EQ(registry.ValueOf("Value", type), std::nullopt);
    EXPECT_EQ(type, ValueType::String);
    set("Value", platform::RegDword, {});
    EXPECT_EQ(registry.ValueOf("Value", type), std::nullopt);
    EXPECT_EQ(type, ValueType::Dword);
    EXPECT_EQ(registry.DirValue()->front().text, "00000000 (0,000,000,000)");
}

TEST_F(clsRegistry_, LongNamesAndDataAreReadWhole) {
    const std::string name(255, 'n');
    system.setText(TestsKey, name, std::string(70000, 'x'));
    set("Unended", platform::RegSz, bytes(std::string(300, 'y')));
    set("Binary", platform::RegBinary, Bytes(65535, 0xAB));
    EXPECT_EQ(registry.ValueOf(name)->text, std::string(70000, 'x'));
    EXPECT_EQ(registry.ValueOf("Unended")->text, std::string(300, 'y'));
    EXPECT_EQ(registry.ValueOf("Binary")->text.size(), 65535 * 3 - 1u);
    const auto listed = registry.DirValue();
    ASSERT_TRUE(listed && listed->size() == 3);
    for (const ListedValue& value : *listed) EXPECT_EQ(value.text, registry.ValueOf(value.name)->text) << value.name;
}

TEST_F(clsRegistry_, WhatGrowsWhileItIsReadIsReadAgainAndWhatGoesEndsTheList) {
    for (const char* name : {"A", "B", "C"}) {
        system.setText(TestsKey, name, "text");
        registry.MakeKey(name);
    }
    auto& watch = system.registry.watch;
    for (const char* function : {"RegQueryValueExA", "RegEnumValueA", "RegEnumKeyExA"})
        watch.failOn(function, 1, platform::MoreData);
    EXPECT_EQ(registry.ValueOf("A")->text, "text");
    EXPECT_EQ(registry.DirValue()->size(), 3u);
    EXPECT_EQ(registry.DirKey()->size(), 3u);
    for (const platform::Result code : {platform::NoMoreItems, platform::KeyDeleted}) {
        watch.failOn("RegEnumValueA", 3, code);
        watch.failOn("RegEnumKeyExA", 1, code);
        EXPECT_EQ(registry.DirValue()->size(), 2u);
        EXPECT_EQ(registry.DirKey(), std::nullopt);
    }
}

TEST_F(clsRegistry_, ValuesAreStoredInTheirType) {
    const struct {
        ValueType type;
        Variant value;
        platform::RegType stored;
        Bytes data;
    } cases[] = {
        {ValueType::String, "a\xE9"s, platform::RegSz, bytes("a\xE9\0"s)},
        {ValueType::String, ""s, platform::RegSz, bytes("\0"s)},
        {ValueType::Binary, Bytes{0, 0x10}, platform::RegBinary, {0, 0x10}},
        {ValueType::Dword, 73728.0, platform::RegDword, {0, 0x20, 1, 0}},
        {ValueType::Dword, 4294967295.0, platform::RegDword, {0xFF, 0xFF, 0xFF, 0xFF}},
    };
    for (const auto& c : cases) {
        registry.ValueOf("Value", c.type, c.value);
        const auto found = system.value(TestsKey, "Value");
        ASSERT_TRUE(found);
        EXPECT_EQ(found->type, c.stored);
        EXPECT_EQ(found->data, c.data);
    }
    registry.DeleteValue("Value");
    EXPECT_FALSE(system.value(TestsKey, "Value"));
}

TEST_F(clsRegistry_, ValuesOfTheWrongTypeAreRefusedAndNothingIsWritten) {
    const struct {
        int type;
        Variant value;
        std::uint32_t error;
    } cases[] = {
        {0, 1.0, 3},
        {0, Bytes{1}, 3},
        {1, "1 A0"s, 3},
        {2, std::int32_t{3}, 3},
        {2, "3"s, 3},
        {2, 4294967296.0, 3},
        {2, -1.0, 3},
        {2, 2.5, 3},
        {2, std::numeric_limits<double>::quiet_NaN(), 3},
        {2, std::numeric_limits<double>::infinity(), 3},
        {3, "text"s, 4},
        {-1, 1.0, 4},
    };
    for (const auto& c : cases) {
        expectError(c.error == 3 ? "Type passed doesn't match Value passed."
                                 : "Type passed doesn't exist. Use STRING, DWORD or BINARY.");
        registry.ValueOf("Value", c.type, c.value);
        system.desktop.settle();
        EXPECT_EQ(basErrors::Err.number, 0x80040000u + c.error);
        EXPECT_FALSE(system.value(TestsKey, "Value"));
    }
    EXPECT_EQ(registry.CurrentKey(), Upper);
}

}  // namespace
