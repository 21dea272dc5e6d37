// Deleting a zone in the main window.
#include "support/MainWindowFixture.h"
#include "support/texts.h"

namespace {

const std::string Zones = zones::ZonesKey;
const std::string Domains = zones::DomainsKey;

}  // namespace

// Zones 5, 6 and 7, and a site map that puts something into each, of every kind that the browser reads.
struct DeletingZones : MainWindow {
    const std::string Map =
        "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\ZoneMap";

    void SetUp() override {
        MainWindow::SetUp();
        clearMap();
        for (const char* key : {"5", "6", "7"}) addZone(key);
    }
    void TearDown() override { clearMap(); }
    void clearMap() {
        for (const char* part : {"Domains", "Ranges", "ProtocolDefaults"}) system.deleteTree(Map + "\\" + part);
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
    // "Domains\five.com\mail|*=6": what stands where, and for which zone.
    std::string map() {
        std::string text;
        const std::function<void(const std::string&)> add = [&](const std::string& key) {
            for (const std::string& name : system.values(Map + key))
                if (const auto zone = system.dword(Map + key, name))
                    text += key.substr(1) + "|" + name + "=" + std::to_string(*zone) + "\n";
            for (const std::string& sub : system.keys(Map + key)) add(key + "\\" + sub);
        };
        for (const char* part : {"\\Domains", "\\ProtocolDefaults", "\\Ranges"}) add(part);
        return text;
    }
    // The zones beyond the browser's: "5=Zone 5 6=Zone 6".
    std::string zonesNow() {
        std::string text;
        for (const std::string& key : system.keys(Zones))
            if (key > "4")
                text += (text.empty() ? "" : " ") + key + "=" + system.text(zoneKey(key), "DisplayName").value_or("");
        return text;
    }
    void select(const std::string& name) {
        for (int item = 1; item <= window().lvwZones.count(); ++item)
            if (window().lvwZones.item(item).text == name) return window().lvwZones.click(item);
        ADD_FAILURE() << name;
    }
    void press() { window().cmdZoneOption(2).click(); }
};

TEST_F(DeletingZones, TakesTheSitesOfTheZonesAboveAlong) {
    const std::string moved =
        "Domains\\nowhere.com\\www|http=8\n"
        "Domains\\other.com|http=5\n"
        "Domains\\other.com\\www|http=2\n"
        "Domains\\other.com\\www|https=6\n"
        "ProtocolDefaults|gopher=5\n"
        "ProtocolDefaults|http=3\n"
        "Ranges\\Range1|*=6\n";
    for (const bool sitesToo : {false, true}) {
        fillMap();
        addZone("7");
        window().RebuildList();
        window().lvwZones.click(6);
        const std::string name = sitesToo ? "Zone 6" : "Zone 5";  // which has moved to 5
        desktop.expectMessage("sites|" + name, sitesToo ? ui::Answer::Yes : ui::Answer::No);
        press();
        std::string expected = "Domains\\five.com\\mail|*=5\n" + moved;
        if (!sitesToo) {
            expected.insert(expected.find("Domains\\nowhere"), "Domains\\five.com\\www|http=5\n");
            expected.insert(expected.find("Domains\\other.com|http"), "Domains\\other.com|ftp=5\n");
            expected += "Ranges\\Range1|ftp=5\n";
        }
        EXPECT_EQ(map(), expected);
        EXPECT_EQ(zonesNow(), sitesToo ? "5=Zone 7 6=Zone 7" : "5=Zone 6 6=Zone 7");
    }
}

TEST_F(DeletingZones, AsksNothingWithoutSites) {
    system.setDword(Map + "\\Domains\\example.com\\www", "http", 55);
    system.setText(Map + "\\Domains\\example.com\\text", "http", "5");
    system.set({Map + "\\Domains\\example.com\\short", "http", platform::RegDword, {5}});
    select("Zone 5");
    press();
    EXPECT_EQ(zonesNow(), "5=Zone 6 6=Zone 7");
}

IN_MEMORY_TEST_F(DeletingZones, KnowsAZoneByItsNumberHoweverWindows95ListsThem) {
    system.registry.shuffles = system.registry.repeatsHandles = true;
    EXPECT_EQ(names(), (Texts{"Local intranet", "Internet", "Zone 5", "Zone 7", "My Computer", "Trusted sites",
                              "Restricted sites", "Zone 6"}));
    for (int item = 1; item <= 8; ++item) {
        window().lvwZones.click(item);
        EXPECT_EQ(window().lblZoneName.caption(), window().lvwZones.item(item).text);
        EXPECT_EQ(window().cmdZoneOption(2).enabled(), window().lvwZones.item(item).text.starts_with("Zone "));
    }
    select("Zone 5");
    press();
    EXPECT_EQ(names(), (Texts{"Local intranet", "Internet", "Zone 6", "My Computer", "Trusted sites",
                              "Restricted sites", "Zone 7"}));
    system.registry.shuffles = false;
    EXPECT_EQ(zonesNow(), "5=Zone 6 6=Zone 7");
}

TEST_F(DeletingZones, RefusesUnlessTheNumbersAreConsecutive) {
    for (const std::string key : {"9", "abc", "008"}) {
        addZone(key);
        window().RebuildList();
        const Texts all = names();
        for (const std::string& name : {std::string("Zone 6"), "Zone " + key}) {
            select(name);
            desktop.expectMessage("not deleted, numbers|" + name);
            press();
        }
        EXPECT_EQ(names(), all);
        system.deleteTree(zoneKey(key));
    }
    system.deleteTree(zoneKey("6"));
    window().RebuildList();
    select("Zone 5");
    desktop.expectMessage("not deleted, numbers|Zone 5");
    press();
    EXPECT_EQ(zonesNow(), "5=Zone 5 7=Zone 7");
}

IN_MEMORY_TEST_F(DeletingZones, NamesTheKeyThatCannotBeRead) {
    fillMap();
    const std::string before = map();
    std::set<std::string> told;
    system.desktop.patient = true;
    for (int call = 1;; ++call) {
        window().RebuildList();
        select("Zone 5");
        system.registry.watch.reset();
        desktop.expectMessage("sites|Zone 5", ui::Answer::Ok);  // neither Yes nor No: it could not be asked
        system.registry.watch.failOn(call, platform::AccessDenied);
        press();
        desktop.settle();
        EXPECT_EQ(zonesNow(), "5=Zone 5 6=Zone 6 7=Zone 7") << call;
        EXPECT_EQ(map(), before) << call;
        if (!system.registry.watch.failed()) break;
    }
    for (const std::string& message : desktop.told) told.insert(message.substr(message.find(": ") + 2));
    for (const std::string& key :
         {Zones, zoneKey("5"), zoneKey("7"), Map + "\\Domains", Map + "\\Domains\\five.com",
          Map + "\\Domains\\other.com\\www", Map + "\\Ranges\\Range1", Map + "\\ProtocolDefaults"})
        EXPECT_TRUE(told.contains(texts::message("not deleted, unreadable|Zone 5|" + key))) << key;
}

IN_MEMORY_TEST_F(DeletingZones, DoesNotTakeAKeyForAnotherThatIsListedAlike) {
    addZone("8wide");
    system.registry.listAs(zoneKey("8wide"), "6");
    window().RebuildList();
    select("Zone 6");
    desktop.expectMessage("not deleted, twice|Zone 6|6");
    press();
    system.deleteTree(zoneKey("6"));  // the other alone: a number that leads nowhere
    window().RebuildList();
    select("Zone 5");
    desktop.expectMessage("not deleted, unreadable|Zone 5|" + zoneKey("6"));
    press();
    EXPECT_EQ(system.text(zoneKey("8wide"), "DisplayName"), "Zone 8wide");
    EXPECT_EQ(names().size(), 7u) << "a name that leads to no key is passed over";
}

// The zones that are listed are 5, 6 and 7; another program deletes 5 and renumbers.
TEST_F(DeletingZones, DeletesNothingThatAnotherProgramHasPutInItsPlace) {
    const auto renumber = [&] {
        system.setText(zoneKey("5"), "DisplayName", "Zone 6");
        system.setText(zoneKey("6"), "DisplayName", "Zone 7");
        system.deleteTree(zoneKey("7"));
    };
    select("Zone 6");
    renumber();
    desktop.expectMessage("not deleted, changed");
    press();
    EXPECT_EQ(zonesNow(), "5=Zone 6 6=Zone 7");

    const std::pair<std::function<void()>, std::string> meanwhile[] = {
        {renumber, "not deleted, changed"},
        {[&] { system.deleteTree(zoneKey("5")); }, "not deleted, gone"},
        {[&] { system.deleteTree(zoneKey("6")); }, "not deleted, numbers|Zone 5"}};
    for (const auto& [act, message] : meanwhile) {
        for (const char* key : {"5", "6", "7"}) addZone(key);
        fillMap();
        window().RebuildList();
        std::string zonesThen, mapThen;
        select("Zone 5");
        desktop.expectMessage("sites|Zone 5", ui::Answer::Yes, [&, act = act] {
            act();
            zonesThen = zonesNow();
            mapThen = map();
        });
        desktop.expectMessage(message);
        press();
        EXPECT_EQ(zonesNow(), zonesThen);
        EXPECT_EQ(map(), mapThen);
    }
}

TEST_F(DeletingZones, DeletesWhatWasAskedAboutWhenTheListIsReadAgainMeanwhile) {
    fillMap();
    select("Zone 5");
    desktop.expectMessage("sites|Zone 5", ui::Answer::Yes, [&] { window().ReloadAsItIs(); });  // which selects zone 1
    press();
    EXPECT_EQ(zonesNow(), "5=Zone 6 6=Zone 7");
}
