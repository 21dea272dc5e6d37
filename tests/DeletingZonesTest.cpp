// Deleting a zone in the main window.
#include "support/User.h"
#include "support/texts.h"

namespace {

const std::string Map = "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\ZoneMap";
const std::string Gaps = "5=Zone 6 6=Zone 7";  // the zones 5, 6 and 7 without the first

}  // namespace

// Zones 5, 6 and 7, and a site map that puts something into each, of every kind that the browser reads.
struct DeletingZones : User {
    void SetUp() override {
        system.seedZones();
        system.deleteTree(Map);
        addZones();
    }
    void TearDown() override { system.deleteTree(Map); }
    void addZones() {
        for (const char* key : {"5", "6", "7"}) addZone(key);
    }
    void fillMap() {
        for (const auto& [key, name, zone] : std::initializer_list<std::tuple<const char*, const char*, std::uint32_t>>{
                 {"Domains\\five.com\\www", "http", 5},
                 {"Domains\\five.com\\mail", "*", 6},
                 {"Domains\\other.com\\www", "http", 2},
                 {"Domains\\other.com\\www", "https", 7},
                 {"Domains\\other.com", "http", 6},
                 {"Domains\\other.com", "ftp", 5},
                 {"Domains\\nowhere.com\\www", "http", 8},  // no zone before, no zone after
                 {"Ranges\\Range1", "*", 7},
                 {"Ranges\\Range1", "ftp", 5},
                 {"ProtocolDefaults", "http", 3},
                 {"ProtocolDefaults", "gopher", 6}})
            system.setDword(Map + "\\" + key, name, zone);
        system.setText(Map + "\\Ranges\\Range1", ":Range", "10.0.0.*");
    }
    // "Domains\five.com\mail|*=#6": what stands where, and for which zone.
    std::string map() {
        std::string text;
        for (const auto& [name, zone] : system.tree(Map))
            if (zone.starts_with('#')) text += name + "=" + zone + "\n";
        return text;
    }
    // The zones beyond the browser's: "5=Zone 5 6=Zone 6".
    std::string zonesNow() {
        std::string text;
        for (const std::string& key : system.keys(zones::ZonesKey))
            if (key > "4") text += (text.empty() ? "" : " ") + key + "=" + stored(key, "DisplayName");
        return text;
    }
    // Deletes a zone of the list, which is read again before.
    void remove(const std::string& zone) {
        window().RebuildList();
        select(zone);
        window().cmdZoneOption(2).click();
    }
    void expectRefusal(const std::string& zone, const std::string& message) {
        desktop.expectMessage(message);
        remove(zone);
    }
};

TEST_F(DeletingZones, TakesTheSitesOfTheZonesAboveAlong) {
    const std::string mail = "Domains\\five.com\\mail|*=#5\n", www = "Domains\\five.com\\www|http=#5\n",
                      nowhere = "Domains\\nowhere.com\\www|http=#8\n",
                      other = "Domains\\other.com\\www|http=#2\nDomains\\other.com\\www|https=#6\n",
                      otherFtp = "Domains\\other.com|ftp=#5\n", otherHttp = "Domains\\other.com|http=#5\n",
                      defaults = "ProtocolDefaults|gopher=#5\nProtocolDefaults|http=#3\n",
                      range = "Ranges\\Range1|*=#6\n", rangeFtp = "Ranges\\Range1|ftp=#5\n";
    fillMap();
    desktop.expectMessage("sites|Zone 5", ui::Answer::No);
    remove("5");
    EXPECT_EQ(map(), mail + www + nowhere + other + otherFtp + otherHttp + defaults + range + rangeFtp);
    EXPECT_EQ(zonesNow(), Gaps);
    fillMap();
    addZone("7");
    // Another program's doing while the user is asked: the first zone is selected then.
    desktop.expectMessage("sites|Zone 6", ui::Answer::Yes, [&] { window().ReloadAsItIs(); });
    remove("5");
    EXPECT_EQ(map(), mail + nowhere + other + otherHttp + defaults + range);
    EXPECT_EQ(zonesNow(), "5=Zone 7 6=Zone 7");
}

TEST_F(DeletingZones, AsksNothingWithoutSites) {
    system.setDword(Map + "\\Domains\\example.com\\www", "http", 55);
    system.setText(Map + "\\Domains\\example.com\\text", "http", "5");
    system.set({Map + "\\Domains\\example.com\\short", "http", platform::RegDword, {5}});
    remove("5");
    EXPECT_EQ(zonesNow(), Gaps);
}

IN_MEMORY_TEST_F(DeletingZones, KnowsAZoneByItsNumberHoweverWindows95ListsThem) {
    system.registry.shuffles = system.registry.repeatsHandles = true;
    EXPECT_EQ(names(), (Texts{"Local intranet", "Internet", "Zone 5", "Zone 7", "My Computer", "Trusted sites",
                              "Restricted sites", "Zone 6"}));
    for (const char* zone : {"0", "4", "5", "7"}) {
        select(zone);
        EXPECT_EQ(window().lblZoneName.caption(), stored(zone, "DisplayName"));
        EXPECT_EQ(window().cmdZoneOption(2).enabled(), *zone > '4');
    }
    system.registry.watch.failOn("RegDeleteKeyA", 1, platform::AccessDenied);
    expectRefusal("5", "deleted in part");
    remove("5");
    EXPECT_EQ(names(), (Texts{"Local intranet", "Internet", "Zone 6", "My Computer", "Trusted sites",
                              "Restricted sites", "Zone 7"}));
    system.registry.shuffles = false;
    EXPECT_EQ(zonesNow(), Gaps);
}

TEST_F(DeletingZones, RefusesUnlessTheNumbersAreConsecutive) {
    for (const std::string odd : {"9", "abc", "008"}) {
        addZone(odd);
        const auto before = system.tree(zones::ZonesKey);
        for (const std::string& zone : {std::string("6"), odd})
            expectRefusal(zone, "not deleted, numbers|Zone " + zone);
        EXPECT_EQ(system.tree(zones::ZonesKey), before);
        system.deleteTree(zoneKey(odd));
    }
    system.deleteTree(zoneKey("6"));
    expectRefusal("5", "not deleted, numbers|Zone 5");
    EXPECT_EQ(zonesNow(), "5=Zone 5 7=Zone 7");
}

IN_MEMORY_TEST_F(DeletingZones, NamesTheKeyThatCannotBeRead) {
    fillMap();
    const std::string before = map();
    desktop.patient = true;
    bool failed = true;
    for (int call = 1; failed; ++call) {
        window().RebuildList();
        select("5");
        desktop.expectMessage("sites|Zone 5", ui::Answer::Ok);  // neither Yes nor No: it could not be asked
        system.registry.watch.failOn(call, platform::AccessDenied);
        window().cmdZoneOption(2).click();
        desktop.settle();
        EXPECT_EQ(zonesNow() + map(), "5=Zone 5 6=Zone 6 7=Zone 7" + before) << call;
        failed = system.registry.watch.failed();
        system.registry.watch.reset();
    }
    for (const std::string& key :
         {std::string(zones::ZonesKey), zoneKey("5"), zoneKey("7"), Map + "\\Domains", Map + "\\Domains\\five.com",
          Map + "\\Domains\\other.com\\www", Map + "\\Ranges\\Range1", Map + "\\ProtocolDefaults"})
        EXPECT_GT(std::ranges::count(desktop.told, texts::message("not deleted, unreadable|Zone 5|" + key)), 0) << key;
}

IN_MEMORY_TEST_F(DeletingZones, DoesNotTakeAKeyForAnotherThatIsListedAlike) {
    for (const std::string domain : {"a.com", "b.com"}) {
        system.makeKey(Map + "\\Domains\\" + domain);
        system.registry.listAs(Map + "\\Domains\\" + domain, domain + "?");
    }
    expectRefusal("5", "not deleted, unreadable|Zone 5|" + Map + "\\Domains\\a.com?");
    addZone("8wide");
    system.registry.listAs(zoneKey("8wide"), "6");
    expectRefusal("6", "not deleted, twice|Zone 6|6");
    system.deleteTree(zoneKey("6"));  // the other alone: a number that leads nowhere
    expectRefusal("5", "not deleted, unreadable|Zone 5|" + zoneKey("6"));
    EXPECT_EQ(system.text(zoneKey("8wide"), "DisplayName"), "Zone 8wide");
    EXPECT_EQ(names().size(), 7u) << "a name that leads to no key is passed over";
}

TEST_F(DeletingZones, DeletesNothingThatAnotherProgramHasPutInItsPlace) {
    const std::pair<std::function<void()>, std::string> meanwhile[] = {
        {[&] { system.setText(zoneKey("5"), "DisplayName", "Zone 6"); }, "not deleted, changed"},
        {[&] { system.deleteTree(zoneKey("5")); }, "not deleted, gone"},
        {[&] { system.deleteTree(zoneKey("6")); }, "not deleted, numbers|Zone 5"}};
    for (const auto& [act, message] : meanwhile) {
        addZones();
        fillMap();
        std::string then;
        desktop.expectMessage("sites|Zone 5", ui::Answer::Yes, [&, act = act] {
            act();
            then = zonesNow() + map();
        });
        expectRefusal("5", message);
        EXPECT_EQ(zonesNow() + map(), then);
    }
}
