#include "registry/clsRegistry.h"

#include <limits>
#include <random>

#include "support/Core.h"

namespace {

using namespace std::string_literals;
using platform::Bytes;

const std::string Upper = "\\HKEY_CURRENT_USER\\SOFTWARE\\TAVIMOR TESTS";

constexpr const char* Mismatch = "Type passed doesn't match Value passed.";
constexpr const char* NoSuchType = "Type passed doesn't exist. Use STRING, DWORD or BINARY.";

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
        EXPECT_EQ(registry.HasKeys(), !c.key.ends_with("LEAF"));
        EXPECT_EQ(registry.DirKey().has_value(), registry.HasKeys());
    }
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
    expectError("Undefined error number : -1");
    registry.RaiseClassError(-10);
}

TEST_F(clsRegistry_, FailuresOfTheSystemAreRecordedAndNotShown) {
    for (const auto& [code, text] : {std::pair{5u, "Access to Registry Denied."}, {6u, "Undefined key error code!"}}) {
        system.registry.watch.failOn("RegDeleteKeyA", 1, code);
        registry.DeleteKey("Any");
        EXPECT_EQ(basErrors::Err.number, 0x80040400 + code);
        EXPECT_EQ(basErrors::Err.description, text);
    }
    registry.MakeKey("Any");
    EXPECT_EQ(basErrors::Err.number, 0u);
}

TEST_F(clsRegistry_, MakesWholeChainsAndDeletesOneLevel) {
    const auto exists = [&](const char* below) {
        return registry.IsValidKey(platform::HKeyCurrentUser, std::string("Software\\Tavimor Tests\\") + below);
    };
    registry.MakeKey("A\\B\\C");
    EXPECT_EQ(registry.CurrentKey(), Upper);
    registry.DeleteKey("a\\b\\c");
    registry.DeleteKey("A");
    EXPECT_TRUE(exists("A\\B") && !exists("A\\B\\C"));
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
        clsRegistry session(system.platform());
        std::string name;
        const std::function<void()> operations[] = {
            [&] { session.cD(absolute[random() % std::size(absolute)]); },
            [&] { session.DirKey(); },
            [&] { session.DirValue(); },
            [&] { session.ValueOf(name); },
            [&] { session.cD(relative[random() % std::size(relative)]); },
            [&] { session.MakeKey(name); },
            [&] { session.DeleteKey(name); },
            [&] { session.ValueOf(name, ValueType::String, name); },
        };
        for (int i = 0; i < 10000; ++i) {
            if (random() % 50 == 0) watch.failOn(static_cast<int>(1 + random() % 4), platform::AccessDenied);
            name = names[random() % std::size(names)];
            // Moves from here only below the top, changes only below the tests' own key.
            const std::string& here = session.CurrentKey();
            const std::size_t allowed = here.starts_with(Upper) ? 8 : here.empty() ? 4 : 5;
            operations[random() % allowed]();
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
        set("Value", stored, data);
        ValueType type = ValueType::Binary;
        const auto value = registry.ValueOf("vALUE", type);
        const auto listed = registry.DirValue();
        ASSERT_TRUE(value && listed && listed->size() == 1 && listed->front().name == "Value");
        const std::string number = std::to_string(static_cast<std::uint32_t>(value->number));
        EXPECT_EQ(value->text + "|" + value->display + "|" + number + "|" + listed->front().text, expected);
        EXPECT_TRUE(type == expectedType && listed->front().type == expectedType);
    }
}

TEST_F(clsRegistry_, WhatIsMissingOrEmptyIsNothingAndWhatGoesEndsTheList) {
    ValueType type = ValueType::Dword;
    EXPECT_FALSE(registry.ValueOf("Value", type) || registry.DirValue());
    EXPECT_EQ(type, ValueType::String);
    set("Value", platform::RegDword, {});
    EXPECT_FALSE(registry.ValueOf("Value"));
    EXPECT_EQ(registry.DirValue()->front().text, "00000000 (0,000,000,000)");
    for (const char* name : {"A", "B"}) system.setText(TestsKey, name, "text");
    system.registry.watch.failOn("RegEnumValueA", 3, platform::NoMoreItems);
    EXPECT_EQ(registry.DirValue()->size(), 2u);
}

TEST_F(clsRegistry_, ValuesAreStoredInTheirTypeAndOthersRefused) {
    using namespace platform;
    const struct {
        int type;
        Variant value;
        const char* refusal;  // "": stored
        RegType stored = RegNone;
        Bytes data = {};
    } cases[] = {
        {0, "a\xE9"s, "", RegSz, bytes("a\xE9\0"s)},
        {0, ""s, "", RegSz, bytes("\0"s)},
        {1, Bytes{0, 0x10}, "", RegBinary, {0, 0x10}},
        {2, 73728.0, "", RegDword, {0, 0x20, 1, 0}},
        {2, 4294967295.0, "", RegDword, {0xFF, 0xFF, 0xFF, 0xFF}},
        {0, Bytes{1}, Mismatch},
        {1, "1 A0"s, Mismatch},
        {2, "3"s, Mismatch},
        {2, 4294967296.0, Mismatch},
        {2, -1.0, Mismatch},
        {2, 2.5, Mismatch},
        {2, std::numeric_limits<double>::quiet_NaN(), Mismatch},
        {3, "text"s, NoSuchType},
        {-1, 1.0, NoSuchType},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        if (*c.refusal) expectError(c.refusal);
        registry.ValueOf("Value", c.type, c.value);
        system.desktop.settle();
        const auto found = system.value(TestsKey, "Value");
        EXPECT_EQ(found ? found->type : RegNone, c.stored);
        EXPECT_EQ(found ? found->data : Bytes(), c.data);
        registry.DeleteValue("Value");
    }
}

}  // namespace
