#include "app/frmMain.h"

#include "support/BackupFixture.h"
#include "util/trace.h"

namespace {

const std::string Zones = zones::ZonesKey;
const std::string Domains = zones::DomainsKey;
const std::string Settings = "HKEY_CURRENT_USER\\Software\\Pellweather Inc.\\Tavimor";

struct MainWindow : BackupFixture {
    void SetUp() override {
        system.seedZones();
        system.seedModules();
    }
    frmMain& window() {
        if (!window_) {
            window_ = std::make_unique<frmMain>(program);
            window_->load();
        }
        return *window_;
    }
    void addZone(const std::string& key) { system.setText(zoneKey(key), "DisplayName", "Zone " + key); }
    // What the window says of a zone: "name|description|flags|recommended|minimum|current".
    std::string summary(int item) {
        window().lvwZones.click(item);
        return shown();
    }
    std::string shown() {
        frmMain& w = window();
        return w.lblZoneName.caption() + "|" + w.lblZoneCaption.caption() + "|" + w.lblFlags.caption() + "|" +
               w.lblRec.caption() + "|" + w.lblMin.caption() + "|" + w.lblCurrent.caption();
    }
    Texts names() { return texts(window().lvwZones); }

    std::unique_ptr<frmMain> window_;
};

}  // namespace

TEST_F(MainWindow, ListsTheZonesInTheRegistrysOrderAndSelectsTheSecond) {
    for (const char* key : {"10", "abc", "007", "4 \"5\" ", ".."}) addZone(key);
    system.setDword(Zones, "SelfHealCount", 1);
    EXPECT_EQ(names(), (Texts{"Zone ..", "My Computer", "Zone 007", "Local intranet", "Zone 10", "Trusted sites",
                              "Internet", "Restricted sites", "Zone 4 \"5\" ", "Zone abc"}));
    EXPECT_EQ(window().lvwZones.selected(), 2);
    EXPECT_EQ(window().lvwZones.item(10).image, 11);
    for (int item = 1; item <= 10; ++item) {
        window().lvwZones.choose(item);  // the arrow keys click too
        const std::string name = window().lvwZones.item(item).text;
        EXPECT_EQ(window().lblZoneName.caption(), name);
        EXPECT_EQ(window().cmdZoneOption(2).enabled(), name.starts_with("Zone ")) << "only what was added may go";
        EXPECT_FALSE(window().mnuEditDelete.enabled());
    }
    EXPECT_FALSE(system.dword(Zones, "SelfHealCount")) << "the browser would repair what the user changes";
}

TEST_F(MainWindow, ShowsAnErrorWithoutZonesAndLivesOn) {
    system.deleteTree(Zones);
    const std::string none =
        "Internet Explorer has no security zones for this user. Restoring a backup brings them back.";
    expectError("frmMain.FillListView", none);
    EXPECT_EQ(names(), Texts{});
    for (int i : {0, 2}) window().cmdZoneOption(i).click();
    window().mnuEditDelete.click();
    EXPECT_FALSE(window().cmdZoneOption(2).enabled() || window().mnuEditDelete.enabled());
    addZone("3");
    window().RebuildList();
    EXPECT_EQ(window().lblZoneName.caption(), "Zone 3") << "the only one there is";
    EXPECT_EQ(window().ilsZoneIcons.count(), 2);
}

TEST_F(MainWindow, ShowsNothingOfAZoneThatIsGone) {
    summary(2);
    system.deleteTree(Zones);
    window().ReloadAsItIs();
    EXPECT_EQ(shown(), "|||||");
    EXPECT_TRUE(window().picZoneIcon.picture().empty() && window().selection().icon.file.empty());
    system.registry.watch.failOn("RegQueryInfoKeyA", 1, platform::OutOfMemory);
    expectError("frmMain.FillListView", "The security zones of Internet Explorer cannot be read from the registry.");
    window().RebuildList();
}

TEST_F(MainWindow, TellsOfTheSelectedZoneAlone) {
    const std::string before = summary(3);
    for (const char* zone : {"0", "1", "3", "7"}) window().UpdateLabels(zone);
    EXPECT_EQ(shown(), before);
    system.setDword(zoneKey("2"), "Flags", 5);
    window().UpdateLabels("2");
    EXPECT_EQ(window().lblFlags.caption(), "5");
}

TEST_F(MainWindow, HasRoomForTheLongestDescriptionThatTheBrowserReads) {
    std::string description;
    while (description.size() < 199) description += "letters ";
    description.resize(199);
    EXPECT_GE(window().lblZoneCaption.height(),
              desktop.textSize(description, window().lblZoneCaption.width(), false).height);
    EXPECT_TRUE(window().lblZoneName.oneLine()) << "ends in three dots when it is cut off";
}

TEST_F(MainWindow, EditsNoZoneThatAnotherProgramHasRenamedOrDeleted) {
    for (const bool gone : {false, true}) {
        addZone("5");
        window().RebuildList();
        window().lvwZones.click(6);
        gone ? system.deleteTree(zoneKey("5")) : system.setText(zoneKey("5"), "DisplayName", "Another");
        desktop.expectMessage(std::string(gone ? "This zone no longer exists."
                                               : "Another program has changed this "
                                                 "zone.") +
                                  " The zones have been read again.",
                              ui::Answer::Ok);
        window().cmdZoneOption(0).click();
        EXPECT_EQ(window().lvwZones.count(), gone ? 5 : 6);
        EXPECT_EQ(names().back(), gone ? "Restricted sites" : "Another");
    }
}

TEST_F(MainWindow, ReadsTheZonesAgainWhenAClickedOneHasBecomeAnother) {
    for (const char* key : {"5", "6"}) addZone(key);
    const std::string intranet = summary(2);
    system.setText(zoneKey("5"), "DisplayName", "Zone 6");
    system.deleteTree(zoneKey("6"));
    desktop.expectMessage("This zone no longer exists. The zones have been read again.", ui::Answer::Ok);
    window().lvwZones.click(7);
    EXPECT_EQ(names().back(), "Zone 6");
    EXPECT_EQ(window().lvwZones.selected(), 2);
    EXPECT_EQ(shown(), intranet);
    system.setText(zoneKey("5"), "DisplayName", "Another");
    desktop.expectMessage("Another program has changed this zone. The zones have been read again.", ui::Answer::Ok);
    window().lvwZones.click(6);
    EXPECT_EQ(shown(), intranet);
}

TEST_F(MainWindow, SaysWhatIsMissingOrOfTheWrongKind) {
    const std::string z = zoneKey("2");
    EXPECT_EQ(summary(2),
              "Local intranet|This zone contains all Web sites that are on your organization's intranet.|219|"
              "Medium-Low|Low|Medium-Low");
    // Zone 0 has no recommended and no minimum level: the labels keep what they showed.
    EXPECT_EQ(summary(1), "My Computer|Your computer|33|Medium-Low|Low|Custom");
    const std::string kept = "|Medium-Low|Low|Medium-Low";
    const auto expect = [&](const std::string& expected) {
        window().RebuildList();
        summary(2);  // whose words stay where the next zone has none
        EXPECT_EQ(summary(3), expected);
    };
    system.deleteTree(z);
    system.setText(z, "DisplayName", "");
    expect("Missing Name|Missing Description|Missing" + kept);
    system.setText(z, "DisplayName", "A && B");
    for (const char* number : {"RecommendedLevel", "MinLevel", "CurrentLevel"}) system.setDword(z, number, 0);
    system.setDword(z, "Flags", 0xFFFFFFFF);
    expect("A && B|Missing Description|4294967295|**Missing**|**Missing**|Custom");
    system.setDword(z, "RecommendedLevel", 70000);
    system.setText(z, "MinLevel", "65536");
    system.setText(z, "Flags", "");
    system.deleteValue(z, "CurrentLevel");
    expect("A && B|Missing Description|Missing" + kept);
}

TEST_F(MainWindow, ShowsTheProgramsOwnIconWhereAZoneHasNone) {
    const std::string own = system.path("Tavimor.exe") + "#1";
    // A reference that leads nowhere stays the zone's: only its picture is replaced.
    const std::pair<const char*, bool> cases[] = {{"", false},
                                                  {"shell32.dll", false},
                                                  {"a\"b#c\"d#1", false},
                                                  {"nosuch.dll#1", true},
                                                  {"shell32.dll#99999", true},
                                                  {"#", true}};
    for (const auto& [icon, kept] : cases) {
        system.setText(zoneKey("1"), "Icon", icon);
        summary(2);
        EXPECT_EQ(window().selection().icon.text(), kept ? icon : own);
        EXPECT_FALSE(window().picZoneIcon.picture().empty()) << icon;
    }
}

// Deleting ------------------------------------------------------------------------------------------------------

// Zones 5, 6 and 7, and a site map that puts something into each, of every kind that the browser reads.
struct DeletingZones : MainWindow {
    const std::string Map =
        "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\ZoneMap";
    const char* Question = "There are site in the zone: \"Zone 5\"\r\nWould you like to delete them also?";

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
    void expectRefusal(const std::string& name, const std::string& reason) {
        desktop.expectMessage("The zone \"" + name + "\" cannot be deleted because " + reason, ui::Answer::Ok);
    }
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
        desktop.expectMessage("There are site in the zone: \"" + name + "\"\r\nWould you like to delete them also?",
                              sitesToo ? ui::Answer::Yes : ui::Answer::No);
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

TEST_F(DeletingZones, RefusesUnlessTheNumbersAreConsecutive) {
    for (const std::string key : {"9", "abc", "008"}) {
        addZone(key);
        window().RebuildList();
        const Texts all = names();
        for (const std::string& name : {std::string("Zone 6"), "Zone " + key}) {
            select(name);
            expectRefusal(name, "the zones are not numbered consecutively from 0.");
            press();
        }
        EXPECT_EQ(names(), all);
        system.deleteTree(zoneKey(key));
    }
    system.deleteTree(zoneKey("6"));
    window().RebuildList();
    select("Zone 5");
    expectRefusal("Zone 5", "the zones are not numbered consecutively from 0.");
    press();
    EXPECT_EQ(zonesNow(), "5=Zone 5 7=Zone 7");
}

TEST_F(DeletingZones, NamesTheKeyThatCannotBeRead) {
    fillMap();
    const std::string before = map();
    std::set<std::string> named;
    for (int call = 1;; ++call) {
        window().RebuildList();
        select("Zone 5");
        system.desktop.patient = true;
        system.desktop.told.clear();
        system.registry.watch.reset();
        desktop.expectMessage(Question, ui::Answer::Ok);  // neither Yes nor No: it could not be asked
        system.registry.watch.failOn(call, platform::AccessDenied);
        press();
        const bool failed = system.registry.watch.failed();
        system.registry.watch.reset();
        desktop.settle();
        EXPECT_EQ(zonesNow(), "5=Zone 5 6=Zone 6 7=Zone 7") << call;
        EXPECT_EQ(map(), before) << call;
        if (!failed) break;
        for (const std::string& message : desktop.told)
            if (const auto at = message.find("the registry key \""); at != std::string::npos)
                named.insert(message.substr(at + 18, message.rfind('"') - at - 18));
    }
    for (const std::string& key :
         {Zones, zoneKey("5"), zoneKey("7"), Map + "\\Domains", Map + "\\Domains\\five.com",
          Map + "\\Domains\\other.com\\www", Map + "\\Ranges\\Range1", Map + "\\ProtocolDefaults"})
        EXPECT_TRUE(named.contains(key)) << key;
}

TEST_F(DeletingZones, DoesNotTakeAKeyForAnotherThatIsListedAlike) {
    if (!system.simulation()) GTEST_SKIP() << "listing a key under another name takes the registry in memory";
    simulated::Registry& registry = system.simulation()->registry;
    addZone("8wide");
    registry.listAs(zoneKey("8wide"), "6");
    window().RebuildList();
    select("Zone 6");
    expectRefusal("Zone 6", "the registry lists two zones under the same name, \"6\".");
    press();
    system.deleteTree(zoneKey("6"));  // the other alone: a number that leads nowhere
    window().RebuildList();
    select("Zone 5");
    expectRefusal("Zone 5", "the registry key \"" + zoneKey("6") + "\" cannot be read.");
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
    desktop.expectMessage("Another program has changed this zone. Nothing was deleted.", ui::Answer::Ok);
    press();
    EXPECT_EQ(zonesNow(), "5=Zone 6 6=Zone 7");

    const std::pair<std::function<void()>, std::string> meanwhile[] = {
        {renumber, "Another program has changed this zone. Nothing was deleted."},
        {[&] { system.deleteTree(zoneKey("5")); }, "This zone no longer exists. Nothing was deleted."},
        {[&] { system.deleteTree(zoneKey("6")); },
         "The zone \"Zone 5\" cannot be deleted because the zones are not numbered consecutively from 0."}};
    for (const auto& [act, message] : meanwhile) {
        for (const char* key : {"5", "6", "7"}) addZone(key);
        fillMap();
        window().RebuildList();
        std::string zonesThen, mapThen;
        select("Zone 5");
        desktop.expectMessage(Question, ui::Answer::Yes, [&] {
            act();
            zonesThen = zonesNow();
            mapThen = map();
        });
        desktop.expectMessage(message, ui::Answer::Ok);
        press();
        EXPECT_EQ(zonesNow(), zonesThen);
        EXPECT_EQ(map(), mapThen);
    }
}

TEST_F(DeletingZones, DeletesWhatWasAskedAboutWhenTheListIsReadAgainMeanwhile) {
    fillMap();
    select("Zone 5");
    desktop.expectMessage(Question, ui::Answer::Yes, [&] { window().ReloadAsItIs(); });  // which selects zone 1
    press();
    EXPECT_EQ(zonesNow(), "5=Zone 6 6=Zone 7");
}

// Views ---------------------------------------------------------------------------------------------------------

TEST_F(MainWindow, SwitchesBetweenItsViewsAndRemembersTheLast) {
    frmMain& w = window();
    const ui::Twips advancedHeight = w.height();
    EXPECT_EQ(system.dword(Settings, "View"), 2u) << "saved on the first run";
    w.mnuViewBasic.click();
    EXPECT_FALSE(w.zzzfraInfo.visible());
    EXPECT_EQ(w.zzzpicLogo.top(), w.zzzfraInfo.top());
    EXPECT_LT(w.height(), advancedHeight);

    frmMain next(program);
    next.load();
    EXPECT_FALSE(next.zzzfraInfo.visible());
    EXPECT_TRUE(next.mnuViewAdv.enabled() && !next.mnuViewBasic.enabled());
    EXPECT_EQ(next.height(), w.height());
    next.mnuViewAdv.click();
    EXPECT_TRUE(next.zzzfraInfo.visible());
    EXPECT_GT(next.zzzpicLogo.top(), next.zzzfraInfo.bounds().bottom());
    EXPECT_EQ(next.height(), advancedHeight);

    system.setDword(Settings, "View", 3);
    frmMain unknown(program);
    unknown.load();
    EXPECT_TRUE(unknown.mnuViewBasic.enabled() && !unknown.mnuViewAdv.enabled());
}

TEST_F(MainWindow, ReportsSavedSettingsThatAreMissingOrNoLengths) {
    window();
    window_.reset();
    const std::function<void()> damages[] = {[&] { system.setText(Settings, "Frame Top", "12"); },
                                             [&] { system.setDword(Settings, "Main Height", 0x80000000); },
                                             [&] { system.deleteValue(Settings, "Main Height"); }};
    for (const auto& damage : damages) {
        damage();
        frmMain next(program);
        expectError("frmMain.SetFormAttributes", "not a length");
        next.load();
        EXPECT_GT(next.height(), 3000);
    }
}

// The rest of the window ----------------------------------------------------------------------------------------

TEST_F(MainWindow, LetsNobodyDragAZone) {
    window();
    const std::int32_t before = basErrors::ProcCount;
    EXPECT_EQ(window().hookAnswer({ui::WmNotify, 0, 0, ui::LvnBeginDrag}), 1);
    EXPECT_EQ(window().hookAnswer({ui::WmNotify, 0, 0, -2}), std::nullopt);
    EXPECT_EQ(basErrors::ProcCount, before + 1);  // the swallowed drag stays on the trace
}

TEST_F(MainWindow, UnloadsEveryWindowWhenItCloses) {
    ui::Form other(desktop, ui::Form::Kind::Dialog, "other", "Other", {3000, 3000});
    other.load();
    window().mnuFileExit.click();
    EXPECT_FALSE(window().loaded() || window().hooked() || other.loaded());
}

TEST_F(MainWindow, AsksTheRegistryNoMoreThanItMust) {
    for (const int count : {5, 1000}) {
        for (int i = 5; i < count; ++i) {
            addZone(std::to_string(i));
            system.setText(zoneKey(std::to_string(i)), "Icon", "shell32.dll#0018");
        }
        window();
        system.registry.watch.reset();
        system.modules.watch.reset();
        window().RebuildList();
        EXPECT_LE(system.registry.watch.calls(), 5 * count + 14);
        EXPECT_LE(system.modules.watch.calls("LoadLibraryExA"), 7);  // five icons, the selected one's, its default
        system.registry.watch.reset();
        window().lvwZones.click(3);
        EXPECT_LE(system.registry.watch.calls(), 14);
    }
}
