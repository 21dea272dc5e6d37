#include "support/Core.h"
#include "zones/siteMap.h"
#include "zones/zones.h"

namespace {

const std::string Zones = zones::ZonesKey;
const std::string Domains = zones::DomainsKey;

struct Deletion : testing::Test, Core {
    // Each zone with its own name, a number and binary data.
    void makeZones(const std::vector<std::string>& names) {
        system.deleteTree(Zones);
        system.makeKey(Zones);
        for (const std::string& name : names) {
            system.setText(Zones + "\\" + name, "DisplayName", "Zone " + name);
            system.setDword(Zones + "\\" + name, "Flags", 1);
            system.setBinary(Zones + "\\" + name, "Java", {1});
        }
    }
    // "0=Zone 0+ 1=Zone 2": names, whose data a key holds, and "+" where numbers are there as well.
    std::string zonesNow() {
        std::string text;
        for (const std::string& name : system.keys(Zones)) {
            auto zone = system.tree(Zones + "\\" + name);
            text += (text.empty() ? "" : " ") + name + "=" + zone["|DisplayName"];
            if (zone.contains("|Flags") || zone.contains("|Java")) text += "+";
        }
        return text;
    }
};

TEST_F(Deletion, ZonesAboveADeletedOneMoveDownWithTheirTexts) {
    const struct {
        std::vector<std::string> before;
        const char *deleted, *after;
    } cases[] = {
        {{"0", "1", "2", "3"}, "1", "0=Zone 0+ 1=Zone 2 2=Zone 3"},
        {{"0", "1", "2", "3", "4"}, "2", "0=Zone 0+ 1=Zone 1+ 2=Zone 3 3=Zone 4"},
        {{"0", "1", "2"}, "2", "0=Zone 0+ 1=Zone 1+"},
        {{"0", "1"}, "7", "0=Zone 0+ 1=Zone 1+"},
        {{"0", "1", "2", "4"}, "1", "0=Zone 0+ 1=Zone 2 2=Zone 2+ 4=Zone 4+"},  // there is no zone to move to 2
    };
    for (const auto& c : cases) {
        makeZones(c.before);
        registry.DeleteAndRename(zones::ZonesKey, c.deleted);
        EXPECT_EQ(zonesNow(), c.after) << c.deleted;
    }
}

IN_MEMORY_TEST_F(Deletion, AZoneThatCouldNotMoveIsNotDeletedInItsOldPlace) {
    for (const std::string function : {"RegDeleteKeyA", "RegCreateKeyExA", "RegSetValueExA", "RegEnumValueA"}) {
        makeZones({"0", "1", "2", "3"});
        system.registry.watch.failOn(function, 1, platform::AccessDenied);
        const clsRegistry::FailureWatch watch(registry);
        registry.DeleteAndRename(zones::ZonesKey, "1", [&](std::uint32_t) { ADD_FAILURE() << "nothing has moved"; });
        EXPECT_TRUE(watch.failed()) << function;
        const std::string kept =
            function == "RegDeleteKeyA" ? "0=Zone 0+ 1=Zone 1+ 2=Zone 2+ 3=Zone 3+" : " 2=Zone 2+ 3=Zone 3+";
        EXPECT_TRUE(zonesNow().ends_with(kept)) << function << ": " << zonesNow();
    }
    makeZones({"0", "1", "2", "3"});
    registry.DeleteAndRename(zones::ZonesKey, "1", [&](std::uint32_t from) {
        EXPECT_EQ(from, 2u);
        registry.NoteFailure();  // its sites cannot move
    });
    EXPECT_EQ(zonesNow(), "0=Zone 0+ 1=Zone 2 2=Zone 2+ 3=Zone 3+");
}

TEST_F(Deletion, AZoneWithoutANumberIsNotTakenForAnother) {
    makeZones({"0", "1", "5", "7"});
    const std::string before = zonesNow();
    for (const std::string zone : {"007", "abc", "", "-1"}) {
        expectError("The zone \"" + zone + "\" has no number and cannot be deleted.");
        registry.DeleteAndRename(zones::ZonesKey, zone);
        EXPECT_EQ(zonesNow(), before);
    }
    registry.DeleteZone(zones::ZonesKey);
    EXPECT_EQ(zonesNow(), "5=Zone 5+ 7=Zone 7+") << "as many as there are, by number";
}

TEST_F(Deletion, SitesOfAZoneAreFoundTwoLevelsDeepAndTheirKeysAreWhatGoes) {
    system.setDword(Domains + "\\example.com\\mail", "*", 50);
    for (const auto& [below, name] : {std::pair{"example.com\\www", "http"},
                                      {"example.com\\www", "https"},
                                      {"direct.org", "http"},
                                      {"..\\...", "ftp"},
                                      {"blank \\b ", "http"}})
        system.setDword(Domains + "\\" + below, name, 5);
    system.setText(Domains + "\\example.com\\text", "http", "00000005 (0,000,000,005)");
    system.setDword(Domains + "\\bare.net", "http", 3);
    const zones::SiteMap map = zones::readSiteMap(registry);
    const auto found = basMain::CheckForDomains(map, "5");
    EXPECT_EQ(found.sites, (std::vector<std::string>{"ftp://......", "http://b .blank ", "http://www.example.com",
                                                     "https://www.example.com"}));
    EXPECT_EQ(found.keys, (std::vector<std::string>{"..\\...", "blank \\b ", "example.com\\www", "example.com\\www"}));
    for (const char* zone : {"6", "abc", "", "4294967296"})
        EXPECT_TRUE(basMain::CheckForDomains(map, zone).sites.empty()) << zone;
    zones::deleteSites(registry, map, 5);
    EXPECT_EQ(system.keys(Domains), std::vector<std::string>{"example.com"});
    EXPECT_EQ(system.keys(Domains + "\\example.com").size(), 2u);
}

IN_MEMORY_TEST_F(Deletion, ADomainThatCannotBeReadIsNotTakenForEmpty) {
    for (int call = 1; call <= 12; ++call) {
        system.deleteTree(Domains);
        system.registry.deletesSubtrees = true;
        system.setDword(Domains + "\\example.com\\www", "http", 5);
        system.registry.watch.failOn(call, platform::AccessDenied);
        registry.DeleteEmptyDomains(Domains);
        system.registry.watch.reset();
        EXPECT_TRUE(system.exists(Domains + "\\example.com\\www")) << call;
    }
}

}  // namespace
