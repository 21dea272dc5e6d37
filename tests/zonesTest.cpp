#include "zones/zones.h"

#include "support/Core.h"
#include "zones/Defaults.h"
#include "zones/Templates.h"
#include "zones/ZoneRecord.h"

namespace {

using namespace zones;

const std::string Zones = "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Zones";
const std::string Templates =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\TemplatePolicies";

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
}

TEST(Zones, TheBrowsersOwnHaveTheirDefaultsAndAllOthersTheSafeOnes) {
    for (const sample::Zone& zone : sample::Zones) {
        SCOPED_TRACE(zone.number);
        const BuiltInZone* own = builtIn(zone.number);
        ASSERT_EQ(own != nullptr, zone.name != nullptr);
        EXPECT_EQ(isBuiltIn(zone.number), own != nullptr);
        const Defaults& defaults = defaultsOf(zone.number);
        EXPECT_EQ(defaults.flags, zone.flags);
        EXPECT_EQ(defaults.recommendedLevel, zone.recommended);
        EXPECT_EQ(defaults.minimumLevel, zone.minimum);
        if (!own) continue;
        EXPECT_STREQ(own->name, zone.name);
        EXPECT_STREQ(own->description, zone.description);
        EXPECT_EQ(own->iconFile + std::string("#") + own->iconResource, zone.icon);
    }
    EXPECT_FALSE(isBuiltIn("00"));
}

class ZoneKeys : public testing::Test, protected Core {
protected:
    std::uint32_t number(const std::string& zone, const std::string& name) {
        return system.dword(Zones + "\\" + zone, name).value_or(0xBAD);
    }
};

TEST_F(ZoneKeys, ALevelIsCopiedFromItsTemplate) {
    const std::pair<const char*, std::uint32_t> levels[] = {
        {"High", 73728}, {"Medium", 69632}, {"Medium-Low", 66816}, {"Low", 65536}};
    std::uint32_t setting = 0;
    for (const auto& [name, stored] : levels) {
        const std::string key = Templates + "\\" + name, zone = Zones + "\\5";
        const int level = static_cast<int>(setting++);
        system.setText(key, "DisplayName", "Template");
        system.setDword(key, "1A00", 0x80000000 + setting);
        system.setBinary(key, "1C00", {1, 2, 3, 4});
        system.setDword(key, "TemplateIndex", 1);
        system.setDword(key, "templateindexes", setting);
        system.setText(zone, "DisplayName", "Mine");

        SaveSecurityLevel(registry, "5", level);

        EXPECT_EQ(number("5", "CurrentLevel"), stored);
        EXPECT_EQ(number("5", "1A00"), 0x80000000 + setting);
        EXPECT_EQ(number("5", "templateindexes"), setting);
        EXPECT_EQ(system.text(zone, "DisplayName"), "Mine");
        EXPECT_EQ(system.values(zone).size(), 4u);
    }
}

TEST_F(ZoneKeys, WithoutATemplateNoLevelIsCopied) {
    system.setDword(Zones + "\\5", "CurrentLevel", 65536);
    for (const bool empty : {false, true}) {
        if (empty) system.makeKey(Templates + "\\High");
        EXPECT_FALSE(hasTemplate(registry, 0));
        SaveSecurityLevel(registry, "5", 0);
        EXPECT_EQ(number("5", "CurrentLevel"), 65536u);
        EXPECT_EQ(system.values(Zones + "\\5").size(), 1u);
    }
}

IN_MEMORY_TEST_F(ZoneKeys, MediumLowMayHaveTheShortNameOfRealMachines) {
    system.setDword(Templates + "\\MedLow", "1200", 7);
    SaveSecurityLevel(registry, "5", 2);
    EXPECT_FALSE(system.exists(Zones + "\\5"));
    system.makeKey(Zones + "\\5");
    SaveSecurityLevel(registry, "5", 2);
    EXPECT_EQ(number("5", "1200"), 7u);
    EXPECT_EQ(number("5", "CurrentLevel"), 66816u);
    system.setDword(Templates + "\\Medium-Low", "1200", 8);
    SaveSecurityLevel(registry, "5", 2);
    EXPECT_EQ(number("5", "1200"), 8u);
    system.registry.watch.failOn("RegQueryInfoKeyA", 1, platform::OutOfMemory);
    SaveSecurityLevel(registry, "5", 2);
    EXPECT_EQ(number("5", "1200"), 8u) << "one that cannot be read is not missing";
}

TEST_F(ZoneKeys, ASettingThatIsNoPlainNumberIsLeftOutAndCounts) {
    const std::string high = Templates + "\\High", zone = Zones + "\\5";
    system.setDword(high, "1200", 3);
    system.setDword(zone, "1400", 3);
    for (const platform::Bytes& data : {platform::Bytes{}, {1}, {1, 0}, {1, 0, 0, 0, 0}}) {
        system.set({high, "1400", platform::RegDword, data});
        system.set({high, "1800", platform::RegDword, data});
        const clsRegistry::FailureWatch watch(registry);
        SaveSecurityLevel(registry, "5", 0);
        EXPECT_TRUE(watch.failed());
        EXPECT_EQ(number("5", "1200"), 3u);
        EXPECT_EQ(number("5", "1400"), 3u) << "as it was";
        EXPECT_FALSE(system.value(zone, "1800"));
        EXPECT_EQ(number("5", "CurrentLevel"), 73728u);
    }
}

IN_MEMORY_TEST_F(ZoneKeys, ANewZoneIsSafeWhateverTheTemplateHolds) {
    const std::string high = Templates + "\\High", zone = Zones + "\\5";
    const std::function<void()> templates[] = {
        [] {},
        [&] { system.makeKey(high); },
        [&] { system.setText(high, "DisplayName", "High"); },
        [&] {
            for (const char* name : {"Flags", "currentlevel", "MinLevel", "RecommendedLevel", "1200"})
                system.setDword(high, name, 1);
        },
        [&] { system.registry.watch.failOn("RegQueryInfoKeyA", 1, platform::AccessDenied); },
    };
    for (const auto& fill : templates) {
        system.deleteTree(Zones);
        system.makeKey(zone);
        fill();
        const std::vector<std::string> before = system.values(high);
        SetDefaults(registry, "5");
        for (const char* level : {"CurrentLevel", "MinLevel", "RecommendedLevel"})
            EXPECT_EQ(number("5", level), 73728u) << level;
        EXPECT_EQ(number("5", "Flags"), 3u);
        EXPECT_EQ(system.text(zone, ""), "");
        EXPECT_EQ(system.values(high), before) << "a template is everybody's";
    }
}

TEST_F(ZoneKeys, ANumberThatIsNotFourBytesLongIsNone) {
    system.set({Zones + "\\5", "Flags", platform::RegDword, {219}});
    goToZone(registry, "5");
    EXPECT_EQ(readFlags(registry).found, Found::OtherType);
}

IN_MEMORY_TEST_F(ZoneKeys, ANameThatIsListedTwiceIsAtNoPlace) {
    for (const char* zone : {"0", "1", "1wide", "2"}) system.makeKey(Zones + "\\" + zone);
    system.registry.listAs(Zones + "\\1wide", "1");
    EXPECT_EQ(zoneAtIndex(registry, "0"), "0");
    EXPECT_EQ(zoneAtIndex(registry, "1"), "");
    EXPECT_EQ(zoneAtIndex(registry, "2"), "");
    EXPECT_EQ(zoneAtIndex(registry, "3"), "2");
}

}  // namespace
