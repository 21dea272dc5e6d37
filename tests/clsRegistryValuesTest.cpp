#include "registry/clsRegistry.h"

#include <limits>

#include "support/Core.h"

namespace {

using namespace std::string_literals;
using platform::Bytes;

const std::string Upper = "\\HKEY_CURRENT_USER\\SOFTWARE\\TAVIMOR TESTS";

class RegistryValues : public testing::Test, protected Core {
protected:
    void goTo(const std::string& path) {
        registry.cD("\\");
        registry.cD(path);
    }
    void set(const std::string& name, platform::RegType type, const Bytes& data) {
        system.set({TestsKey, name, type, data});
    }
};

Bytes bytes(const std::string& text) {
    return {text.begin(), text.end()};
}

TEST_F(RegistryValues, ValuesReadAndListByWhatIsStored) {
    const struct {
        const char* what;
        platform::RegType stored;
        Bytes data;
        ValueType type;
        const char *text, *display;
        double number;
        const char* listed;
    } cases[] = {
        {"text", platform::RegSz, bytes(" a b \0"s), ValueType::String, " a b ", " a b ", 0, "a b"},
        {"only a terminator", platform::RegSz, bytes("\0"s), ValueType::String, "", "", 0, ""},
        {"text behind the end", platform::RegSz, bytes("a\0b\0"s), ValueType::String, "a", "a", 0, "a"},
        {"several texts", platform::RegMultiSz, bytes("a\0b\0\0"s), ValueType::String, "a", "a", 0, "a"},
        {"expandable text", platform::RegExpandSz, bytes("%windir%\0"s), ValueType::String, "%windir%", "%windir%", 0,
         "%windir%"},
        {"a high byte", platform::RegSz, bytes("\xE9\0"s), ValueType::String, "\xE9", "\xE9", 0, "\xE9"},
        {"binary", platform::RegBinary, {0x01, 0xA0, 0xFF}, ValueType::Binary, "1 A0 FF", "1 A0 FF", 0, "1 A0 FF"},
        {"binary zeros", platform::RegBinary, {0, 0x10}, ValueType::Binary, "0 10", "0 10", 0, "0 10"},
        {"number",
         platform::RegDword,
         {0xDB, 0, 0, 0},
         ValueType::Dword,
         "000000db",
         "219",
         219,
         "000000db (0,000,000,219)"},
        {"the largest number",
         platform::RegDword,
         {0xFF, 0xFF, 0xFF, 0xFF},
         ValueType::Dword,
         "ffffffff",
         "4294967295",
         4294967295.0,
         "ffffffff (4,294,967,295)"},
        {"a short number",
         platform::RegDword,
         {0x34, 0x12},
         ValueType::Dword,
         "00001234",
         "4660",
         4660,
         "00001234 (0,000,004,660)"},
        {"a long number",
         platform::RegDword,
         {1, 0, 0, 0, 9, 9},
         ValueType::Dword,
         "00000001",
         "1",
         1,
         "00000001 (0,000,000,001)"},
    };
    system.makeKey(TestsKey);
    goTo(TestsKey);
    for (const auto& c : cases) {
        set("Value", c.stored, c.data);
        ValueType type = ValueType::Binary;
        const auto value = registry.ValueOf("vALUE", type);
        ASSERT_TRUE(value) << c.what;
        EXPECT_EQ(type, c.type) << c.what;
        EXPECT_EQ(value->text, c.text) << c.what;
        EXPECT_EQ(value->display, c.display) << c.what;
        EXPECT_EQ(value->number, c.number) << c.what;
        const auto listed = registry.DirValue();
        ASSERT_TRUE(listed && listed->size() == 1) << c.what;
        EXPECT_EQ(listed->front().name, "Value");
        EXPECT_EQ(listed->front().text, c.listed) << c.what;
        EXPECT_EQ(listed->front().type, c.type) << c.what;
    }
}

TEST_F(RegistryValues, MissingAndEmptyValuesAreNothing) {
    system.makeKey(TestsKey);
    goTo(TestsKey);
    EXPECT_EQ(registry.DirValue(), std::nullopt);
    ValueType type = ValueType::Dword;
    EXPECT_EQ(registry.ValueOf("Value", type), std::nullopt);
    EXPECT_EQ(type, ValueType::String);
    EXPECT_EQ(registry.ValueOf(""), std::nullopt);
    set("Value", platform::RegDword, {});
    EXPECT_EQ(registry.ValueOf("Value", type), std::nullopt);
    EXPECT_EQ(type, ValueType::Dword);
    ASSERT_TRUE(registry.DirValue());
    EXPECT_EQ(registry.DirValue()->front().text, "00000000 (0,000,000,000)");
}

TEST_F(RegistryValues, LongNamesAndDataAreReadWhole) {
    const std::string name(255, 'n');
    system.setText(TestsKey, name, std::string(70000, 'x'));
    set("Unended", platform::RegSz, bytes(std::string(300, 'y')));
    set("Binary", platform::RegBinary, Bytes(65535, 0xAB));
    goTo(TestsKey);
    EXPECT_EQ(registry.ValueOf(name)->text, std::string(70000, 'x'));
    EXPECT_EQ(registry.ValueOf("Unended")->text, std::string(300, 'y'));
    EXPECT_EQ(registry.ValueOf("Binary")->text.size(), 65535 * 3 - 1u);
    const auto listed = registry.DirValue();
    ASSERT_TRUE(listed);
    for (const ListedValue& value : *listed) EXPECT_EQ(value.text, registry.ValueOf(value.name)->text) << value.name;
    EXPECT_EQ(listed->size(), 3u);
}

TEST_F(RegistryValues, WhatGrowsWhileItIsReadIsReadAgainAndWhatGoesEndsTheList) {
    for (const char* name : {"A", "B", "C"}) {
        system.setText(TestsKey, name, "text");
        system.makeKey(TestsKey + "\\" + name);
    }
    goTo(TestsKey);
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

TEST_F(RegistryValues, ValuesAreStoredInTheirType) {
    system.makeKey(TestsKey);
    goTo(TestsKey);
    const struct {
        ValueType type;
        Variant value;
        platform::RegType stored;
        Bytes data;
    } cases[] = {
        {ValueType::String, "a\xE9"s, platform::RegSz, bytes("a\xE9\0"s)},
        {ValueType::String, ""s, platform::RegSz, bytes("\0"s)},
        {ValueType::Binary, Bytes{0, 0x10}, platform::RegBinary, {0, 0x10}},
        {ValueType::Dword, 0.0, platform::RegDword, {0, 0, 0, 0}},
        {ValueType::Dword, 73728.0, platform::RegDword, {0, 0x20, 1, 0}},
        {ValueType::Dword, 2147483648.0, platform::RegDword, {0, 0, 0, 0x80}},
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

TEST_F(RegistryValues, ValuesOfTheWrongTypeAreRefusedAndNothingIsWritten) {
    system.setText(TestsKey, "Value", "old");
    goTo(TestsKey);
    const struct {
        int type;
        Variant value;
        int error;
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
        system.desktop.expectForm<frmError>([&](frmError& dialog) {
            EXPECT_EQ(dialog.lblModule.caption(), "clsRegistry");
            EXPECT_EQ(dialog.lblProcedure.caption(), "ValueOf [Let]");
            dialog.cmdContinue.click();
        });
        registry.ValueOf("Value", c.type, c.value);
        system.desktop.settle();
        EXPECT_EQ(basErrors::Err.number, 0x80040000u + static_cast<std::uint32_t>(c.error));
        EXPECT_EQ(system.text(TestsKey, "Value"), "old");
    }
    EXPECT_EQ(registry.CurrentKey(), Upper);
    EXPECT_EQ(registry.ValueOf("Value")->text, "old");
}

TEST_F(RegistryValues, AListedNumberIsTakenApartIntoItsForms) {
    system.makeKey(TestsKey);
    goTo(TestsKey);
    for (const std::uint32_t number :
         {0u, 1u, 9u, 999u, 1000u, 66816u, 999999u, 1000000u, 0x7FFFFFFFu, 0x80000000u, 1000000000u, 0xFFFFFFFFu}) {
        system.setDword(TestsKey, "Value", number);
        const std::string text = registry.DirValue()->front().text;
        std::string decimal = registry.ParseDWord(text, 2);
        EXPECT_EQ(decimal.size(), 13u);
        std::erase(decimal, ',');
        EXPECT_EQ(std::stoul(decimal), number);
        EXPECT_EQ(registry.ParseDWord(text, 1).size(), 8u);
        EXPECT_EQ(std::stoul(registry.ParseDWord(text, 1), nullptr, 16), number);
        EXPECT_EQ(registry.ParseDWord(text, 0) + registry.ParseDWord(text, 3), "");
    }
    EXPECT_EQ(registry.ParseDWord("", 1) + registry.ParseDWord("", 2) + registry.ParseDWord("text", 2), "");
}

}  // namespace
