#include "zones/zones.h"

#include "support/Core.h"
#include "zones/Defaults.h"
#include "zones/Templates.h"

namespace {

using namespace zones;

const std::string Zones = ZonesKey;
const std::string Templates = TemplatesKey;

TEST(Zones, LevelsAreConvertedBetweenNameAndNumberExactly) {
    for (const Level& level : Levels) {
        EXPECT_EQ(GetSecurity(level.name), level.decimal);
        EXPECT_EQ(GetSecurity(level.decimal), level.name);
        EXPECT_EQ(GetSecurity(level.decimal), Levels[static_cast<std::size_t>(*levelIndex(level.number))].name);
        EXPECT_EQ(std::to_string(level.number), level.decimal);
    }
    EXPECT_EQ(GetSecurity("12000") + GetSecurity("11000") + GetSecurity("10500") + GetSecurity("10000"),
              "HighMediumMedium-LowLow");
    for (const char* text : {"", "high", " High", "073728", "012000", "0x12000", "70000", "00", "-"})
        EXPECT_EQ(GetSecurity(text), "") << text;
    for (const double number : {70000.0, 1.0, -1.0, 66816.5, 4294967295.0}) EXPECT_FALSE(levelIndex(number));
}

TEST(Zones, OnlyNumbersAsTheSystemWritesThemAreZoneNumbers) {
    for (const char* zone : {"0", "10", "999", "4294967295"}) EXPECT_EQ(std::to_string(numberOf(zone).value()), zone);
    for (const char* zone : {"", "007", "00", "abc", "1 ", " 1", "-1", "1,000", "4294967296", "0x1"})
        EXPECT_FALSE(numberOf(zone)) << zone;
    for (const char* zone : {"5", "00", "abc", ""}) {
        EXPECT_FALSE(isBuiltIn(zone));
        EXPECT_EQ(builtIn(zone), nullptr);
        EXPECT_EQ(defaultsOf(zone).flags, MissingFlags);
        EXPECT_EQ(defaultsOf(zone).minimumLevel, 73728u);
    }
    EXPECT_STREQ(builtIn("3")->description, "This zone contains all Web sites you haven't placed in other zones");
}

class ZoneKeys : public testing::Test, protected Core {
protected:
    std::uint32_t number(const std::string& zone, const std::string& name) {
        return system.dword(Zones + "\\" + zone, name).value_or(0xBAD);
    }
};

TEST_F(ZoneKeys, EveryNameOfAKeyIsReached) {
    const std::string names[] = {"10", "abc", "007", "..", "15 ", "."};
    for (const std::string& name : names) system.setText(Zones + "\\" + name, "DisplayName", name);
    for (const std::string& name : names) {
        goToZone(registry, name);
        ASSERT_TRUE(registry.ValueOf("DisplayName")) << name;
        EXPECT_EQ(registry.ValueOf("DisplayName")->text, name);
    }
    goToZones(registry);
    EXPECT_EQ(registry.DirKey()->size(), std::size(names));
}

TEST_F(ZoneKeys, ALevelIsCopiedFromItsTemplate) {
    for (int level = 0; level < OfferedLevels; ++level) {
        const std::string key = Templates + "\\" + Levels[static_cast<std::size_t>(level)].name;
        const auto setting = static_cast<std::uint32_t>(level + 1);
        system.setText(key, "DisplayName", "Template");
        system.setDword(key, "1001", setting);
        system.setDword(key, "1A00", 0x80000000 + setting);
        system.setBinary(key, "1C00", {1, 2, 3, 4});
        system.setDword(key, "TemplateIndex", 1);
        system.setDword(key, "templateindexes", 2);
        const std::string zone = std::to_string(level);
        system.setText(Zones + "\\" + zone, "DisplayName", "Mine");
        system.setDword(Zones + "\\" + zone, "1004", 3);
        system.setDword(Zones + "\\" + zone, "MinLevel", 70000);

        SaveSecurityLevel(registry, zone, level);

        EXPECT_EQ(number(zone, "CurrentLevel"), Levels[static_cast<std::size_t>(level)].number);
        EXPECT_EQ(number(zone, "1001"), setting);
        EXPECT_EQ(number(zone, "1A00"), 0x80000000 + setting);
        EXPECT_EQ(number(zone, "templateindexes"), 2u);
        EXPECT_EQ(number(zone, "1004"), 3u);
        EXPECT_EQ(number(zone, "MinLevel"), 70000u);
        EXPECT_EQ(system.text(Zones + "\\" + zone, "DisplayName"), "Mine");
        EXPECT_EQ(system.values(Zones + "\\" + zone).size(), 7u);
    }
}

TEST_F(ZoneKeys, WithoutATemplateNothingChanges) {
    system.setDword(Zones + "\\5", "CurrentLevel", 65536);
    SaveSecurityLevel(registry, "5", 0);
    system.makeKey(Templates + "\\High");
    SaveSecurityLevel(registry, "5", 0);
    EXPECT_EQ(number("5", "CurrentLevel"), 65536u);
    EXPECT_TRUE(system.values(Templates + "\\High").empty());
    // One without settings still is the level.
    system.setDword(Templates + "\\High", "TemplateIndex", 73728);
    SaveSecurityLevel(registry, "5", 0);
    EXPECT_EQ(number("5", "CurrentLevel"), 73728u);
    EXPECT_EQ(system.values(Zones + "\\5").size(), 1u);
}

TEST_F(ZoneKeys, ANewZoneBeginsWithTheHighTemplateAndItsDefaults) {
    system.setDword(Templates + "\\High", "1400", 3);
    system.setDword(Templates + "\\High", "CurrentLevel", 1);
    system.makeKey(Zones + "\\7");
    SetDefaults(registry, "7");
    EXPECT_EQ(number("7", "1400"), 3u);
    for (const char* level : {"CurrentLevel", "RecommendedLevel", "MinLevel"}) EXPECT_EQ(number("7", level), 73728u);
    EXPECT_EQ(number("7", "Flags"), 3u);
    EXPECT_EQ(system.text(Zones + "\\7", ""), "");
    EXPECT_EQ(system.values(Zones + "\\7").size(), 6u);
}

TEST_F(ZoneKeys, WithoutSettingsInTheTemplateTheDefaultsGoToTheTemplatesKey) {
    system.makeKey(Templates + "\\High");
    system.makeKey(Zones + "\\7");
    SetDefaults(registry, "7");
    EXPECT_TRUE(system.values(Zones + "\\7").empty());
    EXPECT_EQ(system.dword(Templates + "\\High", "Flags"), 3u);
}

}  // namespace
