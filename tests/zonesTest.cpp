#include "zones/zones.h"

#include "support/Core.h"
#include "zones/Defaults.h"
#include "zones/Templates.h"

namespace {

using namespace zones;

const std::string Zones = ZonesKey;
const std::string Templates = TemplatesKey;

TEST(Zones, LevelsAreConvertedBetweenNameAndNumberExactly) {
    const struct {
        const char *name, *decimal, *hexadecimal;
        std::uint32_t number;
    } levels[] = {{"High", "73728", "12000", 73728},
                  {"Medium", "69632", "11000", 69632},
                  {"Medium-Low", "66816", "10500", 66816},
                  {"Low", "65536", "10000", 65536},
                  {"Custom", "0", "0", 0}};
    int place = 0;
    for (const auto& level : levels) {
        EXPECT_EQ(GetSecurity(level.name), level.decimal);
        EXPECT_EQ(GetSecurity(level.decimal), level.name);
        EXPECT_EQ(GetSecurity(level.hexadecimal), level.name);
        EXPECT_EQ(levelIndex(level.number), place++);
    }
    for (const char* text : {"", "high", "073728", "70000"}) EXPECT_EQ(GetSecurity(text), "") << text;
    for (const std::uint32_t number : {70000u, 1u, 0xFFFFFFFFu}) EXPECT_FALSE(levelIndex(number)) << number;
}

TEST(Zones, OnlyNumbersAsTheSystemWritesThemAreZoneNumbers) {
    for (const char* zone : {"0", "10", "4294967295"}) EXPECT_EQ(std::to_string(numberOf(zone).value()), zone);
    for (const char* zone : {"", "007", "abc", "1 ", "1,000", "4294967296"}) EXPECT_FALSE(numberOf(zone)) << zone;
    EXPECT_FALSE(isBuiltIn("5") || isBuiltIn("00"));
}

class ZoneKeys : public testing::Test, protected Core {
protected:
    std::uint32_t number(const std::string& zone, const std::string& name) {
        return system.dword(Zones + "\\" + zone, name).value_or(0xBAD);
    }
};

TEST_F(ZoneKeys, ALevelIsCopiedFromItsTemplate) {
    for (int level = 0; level < OfferedLevels; ++level) {
        const std::string key = Templates + "\\" + Levels[static_cast<std::size_t>(level)].name, zone = Zones + "\\5";
        const auto setting = static_cast<std::uint32_t>(level + 1);
        system.setText(key, "DisplayName", "Template");
        system.setDword(key, "1A00", 0x80000000 + setting);
        system.setBinary(key, "1C00", {1, 2, 3, 4});
        system.setDword(key, "TemplateIndex", 1);
        system.setDword(key, "templateindexes", setting);
        system.setText(zone, "DisplayName", "Mine");

        SaveSecurityLevel(registry, "5", level);

        EXPECT_EQ(number("5", "CurrentLevel"), Levels[static_cast<std::size_t>(level)].number);
        EXPECT_EQ(number("5", "1A00"), 0x80000000 + setting);
        EXPECT_EQ(number("5", "templateindexes"), setting);
        EXPECT_EQ(system.text(zone, "DisplayName"), "Mine");
        EXPECT_EQ(system.values(zone).size(), 4u);
    }
}

TEST_F(ZoneKeys, WithoutATemplateALevelIsNotSavedAndANewZoneIsCompleteAllTheSame) {
    system.setDword(Zones + "\\5", "CurrentLevel", 65536);
    SaveSecurityLevel(registry, "5", 0);
    system.makeKey(Templates + "\\High");
    SaveSecurityLevel(registry, "5", 0);
    EXPECT_EQ(number("5", "CurrentLevel"), 65536u);
    SetDefaults(registry, "5");
    EXPECT_EQ(number("5", "CurrentLevel"), 73728u);
    EXPECT_EQ(number("5", "Flags"), 3u);
    EXPECT_EQ(system.values(Zones + "\\5").size(), 5u);
    EXPECT_TRUE(system.values(Templates + "\\High").empty()) << "every zone that is set to High would get it";
}

}  // namespace
