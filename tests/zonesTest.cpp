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

TEST(Zones, LevelsAndZonesAreConvertedBetweenNameAndNumberExactly) {
    const std::tuple<const char*, const char*, const char*, std::uint32_t> levels[] = {
        {"High", "73728", "12000", 73728},
        {"Medium", "69632", "11000", 69632},
        {"Medium-Low", "66816", "10500", 66816},
        {"Low", "65536", "10000", 65536},
        {"Custom", "0", "0", 0}};
    for (int place = 0; const auto& [name, decimal, hexadecimal, number] : levels) {
        EXPECT_EQ(GetSecurity(name), decimal);
        for (const char* text : {decimal, hexadecimal}) EXPECT_EQ(GetSecurity(text), name);
        EXPECT_EQ(levelIndex(number), place++);
    }
    for (const char* text : {"", "high", "073728", "70000"}) EXPECT_EQ(GetSecurity(text), "") << text;
    for (const std::uint32_t number : {70000u, 1u, 0xFFFFFFFFu}) EXPECT_FALSE(levelIndex(number)) << number;
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
        EXPECT_EQ(std::tie(defaults.flags, defaults.recommendedLevel, defaults.minimumLevel),
                  std::tie(zone.flags, zone.recommended, zone.minimum));
        if (!own) continue;
        EXPECT_STREQ(own->name, zone.name);
        EXPECT_STREQ(own->description, zone.description);
        EXPECT_EQ(own->iconFile + std::string("#") + own->iconResource, zone.icon);
    }
    EXPECT_FALSE(isBuiltIn("00"));
}

struct ZoneKeys : testing::Test, Core {
    const std::string zone = Zones + "\\5", high = Templates + "\\High";
    std::uint32_t number(const std::string& name) { return system.dword(zone, name).value_or(0xBAD); }
};

TEST_F(ZoneKeys, ALevelIsCopiedFromItsTemplate) {
    const std::pair<const char*, std::uint32_t> levels[] = {
        {"High", 73728}, {"Medium", 69632}, {"Medium-Low", 66816}, {"Low", 65536}};
    system.setText(zone, "DisplayName", "Mine");
    for (std::uint32_t level = 0; const auto& [name, stored] : levels) {
        const std::string key = Templates + "\\" + name;
        SaveSecurityLevel(registry, "5", static_cast<int>(level));
        system.makeKey(key);
        EXPECT_FALSE(hasTemplate(registry, static_cast<int>(level)));
        SaveSecurityLevel(registry, "5", static_cast<int>(level));
        EXPECT_NE(number("CurrentLevel"), stored) << "nothing to copy";
        system.setText(key, "DisplayName", "Template");
        system.setDword(key, "1A00", 0x80000000 + level);
        system.setBinary(key, "1C00", {1, 2, 3, 4});
        system.setDword(key, "TemplateIndex", 1);
        system.setDword(key, "templateindexes", level);

        SaveSecurityLevel(registry, "5", static_cast<int>(level));

        EXPECT_EQ(number("CurrentLevel"), stored);
        EXPECT_EQ(number("1A00"), 0x80000000 + level);
        EXPECT_EQ(number("templateindexes"), level++);
        EXPECT_EQ(system.text(zone, "DisplayName"), "Mine");
        EXPECT_EQ(system.values(zone).size(), 4u);
    }
}

IN_MEMORY_TEST_F(ZoneKeys, TheLevelIsWrittenAfterEachOfItsSettings) {
    using States = std::vector<std::vector<std::string>>;
    for (const char* name : {"1200", "1400"}) system.setDword(high, name, 3);
    system.makeKey(zone);
    const States states = beforeEachWrite(zone, [&] { SaveSecurityLevel(registry, "5", 0); });
    EXPECT_EQ(states, (States{{}, {"1200"}, {"1200", "CurrentLevel"}, {"1200", "1400", "CurrentLevel"}}));
}

IN_MEMORY_TEST_F(ZoneKeys, MediumLowMayHaveTheShortNameOfRealMachines) {
    system.setDword(Templates + "\\MedLow", "1200", 7);
    SaveSecurityLevel(registry, "5", 2);
    EXPECT_FALSE(system.exists(zone));
    system.makeKey(zone);
    SaveSecurityLevel(registry, "5", 2);
    EXPECT_EQ(number("1200"), 7u);
    EXPECT_EQ(number("CurrentLevel"), 66816u);
    system.setDword(Templates + "\\Medium-Low", "1200", 8);
    SaveSecurityLevel(registry, "5", 2);
    EXPECT_EQ(number("1200"), 8u);
    system.registry.watch.failOn("RegQueryInfoKeyA", 1, platform::OutOfMemory);
    SaveSecurityLevel(registry, "5", 2);
    EXPECT_EQ(number("1200"), 8u) << "one that cannot be read is not missing";
}

TEST_F(ZoneKeys, ASettingThatIsNoPlainNumberIsLeftOutAndCounts) {
    system.setDword(high, "1200", 3);
    system.setDword(zone, "1400", 3);
    for (const platform::Bytes& data : {platform::Bytes{}, {1}, {1, 0}, {1, 0, 0, 0, 0}}) {
        for (const char* name : {"1400", "1800"}) system.set({high, name, platform::RegDword, data});
        const clsRegistry::FailureWatch watch(registry);
        SaveSecurityLevel(registry, "5", 0);
        EXPECT_TRUE(watch.failed());
        EXPECT_EQ(number("1200"), 3u);
        EXPECT_EQ(number("1400"), 3u) << "as it was";
        EXPECT_FALSE(system.value(zone, "1800"));
        EXPECT_EQ(number("CurrentLevel"), 73728u);
    }
    system.set({zone, "Flags", platform::RegDword, {219}});
    goToZone(registry, "5");
    EXPECT_EQ(readFlags(registry).found, Found::OtherType);
}

IN_MEMORY_TEST_F(ZoneKeys, ANewZoneIsSafeWhateverTheTemplateHolds) {
    const std::vector<std::string> names{"CurrentLevel", "Flags", "MinLevel", "RecommendedLevel"};
    for (const std::string& name : names) system.setDword(high, name, 1);
    for (const bool isRead : {true, false}) {
        system.deleteTree(Zones);
        system.makeKey(zone);
        if (!isRead) system.registry.watch.failOn("RegQueryInfoKeyA", 1, platform::AccessDenied);
        SetDefaults(registry, "5");
        for (const std::string& name : names) EXPECT_EQ(number(name), name == "Flags" ? 3u : 73728u) << name;
        EXPECT_EQ(system.text(zone, ""), "");
        EXPECT_EQ(system.values(high), names) << "a template is everybody's";
    }
}

IN_MEMORY_TEST_F(ZoneKeys, ANameThatIsListedTwiceIsAtNoPlace) {
    for (const char* listed : {"0", "1", "1wide", "2"}) system.makeKey(Zones + "\\" + listed);
    system.registry.listAs(Zones + "\\1wide", "1");
    const char* const places[] = {"0", "", "", "2"};
    for (int place = 0; place < 4; ++place)
        EXPECT_EQ(zoneAtIndex(registry, std::to_string(place)), places[place]) << place;
}

}  // namespace
