#include "support/IconBytes.h"
#include "support/User.h"
#include "util/trace.h"

namespace {

const std::string Zones = zones::ZonesKey;
const std::string Settings = "HKEY_CURRENT_USER\\Software\\Pellweather Inc.\\Tavimor";

struct MainWindow : User {
    void SetUp() override {
        system.seedZones();
        system.seedModules();
    }
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
    // The list's height, where buttons, frame and logo begin, and the window's height.
    using Twips = std::vector<ui::Twips>;
    static Twips layout(const frmMain& w) {
        EXPECT_NE(w.mnuViewAdv.enabled(), w.mnuViewBasic.enabled());
        EXPECT_EQ(w.zzzfraInfo.visible(), w.mnuViewBasic.enabled());
        return {w.lvwZones.height(), w.cmdZoneOption(2).top(), w.zzzfraInfo.top(), w.zzzpicLogo.top(), w.height()};
    }
};

}  // namespace

TEST_F(MainWindow, TheLogoIsTheSmallOneAt96DotsAlone) {
    simulated::ProgramFile own;
    for (const std::uint16_t number : {std::uint16_t{1}, std::uint16_t{2}}) {
        icons::ByteWriter out;
        out.u32(40).u32(number).u32(1).u16(1).u16(24).fill(24).fill(8);
        own.add(platform::RtBitmap, number, out.bytes());
    }
    system.addProgram("Tavimor.exe", own);
    for (const auto& [dots, width] : {std::pair{96, 1}, {120, 2}, {144, 2}, {192, 2}}) {
        closeWindow();
        desktop.dots = dots;
        EXPECT_EQ(window().zzzpicLogo.picture().width(), width) << dots;
    }
}

TEST_F(MainWindow, ListsTheZonesInTheRegistrysOrderAndSelectsTheSecond) {
    for (const char* key : {"10", "abc", "007", "4 \"5\" ", ".."}) addZone(key);
    system.setDword(Zones, "SelfHealCount", 1);
    EXPECT_EQ(names(), (Texts{"Zone ..", "My Computer", "Zone 007", "Local intranet", "Zone 10", "Trusted sites",
                              "Internet", "Restricted sites", "Zone 4 \"5\" ", "Zone abc"}));
    frmMain& w = window();
    EXPECT_EQ(w.lvwZones.selected(), 2);
    desktop.expectForm<frmError>([&](frmError& error) {
        EXPECT_EQ(desktop.owner, &w);
        w.tmrIconSpace.tick();
        EXPECT_FALSE(w.lvwZones.iconSpacing()) << "not while there is an error";
        error.cmdContinue.click();
    });
    registry.RaiseClassError(1);
    w.RebuildList();
    w.tmrIconSpace.tick();
    EXPECT_TRUE(w.lvwZones.iconSpacing());
    EXPECT_NE(w.ilsZoneIcons.picture(5), w.ilsZoneIcons.picture(7)) << "the intranet's, trusted sites'";
    for (int item = 1; item <= 10; ++item) {
        w.lvwZones.choose(item);  // the arrow keys click too
        const std::string name = w.lvwZones.item(item).text;
        EXPECT_EQ(w.lblZoneName.caption(), name);
        EXPECT_EQ(w.lvwZones.largeImages()->picture(w.lvwZones.item(item).image), w.picZoneIcon.picture()) << name;
        EXPECT_FALSE(w.picZoneIcon.picture().empty()) << name;
        EXPECT_EQ(w.cmdZoneOption(2).enabled(), name.starts_with("Zone ")) << "only what was added may go";
        EXPECT_FALSE(w.mnuEditDelete.enabled());
    }
    EXPECT_FALSE(system.dword(Zones, "SelfHealCount")) << "the browser would repair what the user changes";
}

TEST_F(MainWindow, ShowsAnErrorWithoutZonesAndLivesOn) {
    summary(2);
    system.deleteTree(Zones);
    window().ReloadAsItIs();
    EXPECT_EQ(shown(), "|||||");
    EXPECT_TRUE(window().picZoneIcon.picture().empty());
    expectError("frmMain.FillListView",
                "Internet Explorer has no security zones for this user. Restoring a backup brings them back.");
    window().RebuildList();
    EXPECT_EQ(names(), Texts{});
    for (int i : {0, 2}) window().cmdZoneOption(i).click();
    window().mnuEditDelete.click();
    EXPECT_FALSE(window().cmdZoneOption(2).enabled());
    addZone("3");
    window().RebuildList();
    EXPECT_EQ(window().lblZoneName.caption(), "Zone 3") << "the only one there is";
    EXPECT_EQ(window().ilsZoneIcons.count(), 2);
    if (!system.inMemory()) return;
    system.registry.watch.failOn("RegQueryInfoKeyA", 1, platform::OutOfMemory);
    expectError("frmMain.FillListView", "The security zones of Internet Explorer cannot be read from the registry.");
    window().RebuildList();
    EXPECT_EQ(shown(), "|||||");
}

TEST_F(MainWindow, HasRoomForTheLongestDescriptionThatTheBrowserReads) {
    std::string description;
    for (int word = 0; word < 25; ++word) description += "letters ";
    const ui::Label& label = window().lblZoneCaption;
    EXPECT_GE(label.height(), desktop.textSize(description.substr(0, 199), label.width(), false).height);
    EXPECT_TRUE(window().lblZoneName.oneLine()) << "ends in three dots when it is cut off";
}

TEST_F(MainWindow, ReadsTheZonesAgainWhenTheOneThatIsWantedHasBecomeAnother) {
    const std::string intranet = summary(2);
    const auto renamed = [&] { system.setText(zoneKey("5"), "DisplayName", "Another"); };
    const auto gone = [&] { system.deleteTree(zoneKey("5")); };
    const auto refused = [&] { system.registry.watch.failOn("RegQueryValueExA", 1, platform::OutOfMemory); };
    enum { Edit, Delete = 2, Click };
    const std::tuple<std::function<void()>, int, std::string, const char*> cases[] = {
        {renamed, Click, "changed, read again", "Another"},
        {gone, Click, "gone, read again", "Restricted sites"},
        {renamed, Edit, "changed, read again", "Another"},
        {gone, Edit, "gone, read again", "Restricted sites"},
        {renamed, Delete, "not deleted, changed", "Another"},
        {refused, Edit, "unreadable, read again|" + zoneKey("5"), "Zone 5"},
        {refused, Delete, "unreadable, not deleted|" + zoneKey("5"), "Zone 5"}};
    for (const auto& [meanwhile, wanted, message, last] : cases) {
        if (message.starts_with("unreadable") && !system.inMemory()) return;
        addZone("5");
        window().RebuildList();
        if (wanted != Click) select("5");
        meanwhile();
        window().lvwZones.activate();  // is no click
        desktop.expectMessage(message);
        wanted == Click ? window().lvwZones.click(6) : window().cmdZoneOption(wanted).click();
        EXPECT_EQ(shown(), intranet) << message;
        EXPECT_EQ(names().back(), last) << message;
    }
    system.registry.watch.failOn("RegOpenKeyExA", 1, platform::AccessDenied);
    EXPECT_TRUE(summary(4).starts_with("Internet|")) << "whose values can be read";
    EXPECT_TRUE(system.registry.watch.failed());
}

TEST_F(MainWindow, SaysWhatIsMissingOrOfTheWrongKind) {
    const std::string z = zoneKey("2"), kept = "|Medium-Low|Low|Medium-Low";
    EXPECT_EQ(summary(2),
              "Local intranet|This zone contains all Web sites that are on your organization's intranet.|219" + kept);
    // Zone 0 has no recommended and no minimum level: the labels keep what they showed.
    EXPECT_EQ(summary(1), "My Computer|Your computer|33|Medium-Low|Low|Custom");
    const auto expect = [&](const std::string& expected) {
        window().RebuildList();
        summary(2);  // whose words stay where the next zone has none
        EXPECT_EQ(summary(3), expected);
    };
    system.deleteTree(z);
    set("2", {{"DisplayName", ""}});
    expect("Missing Name|Missing Description|Missing" + kept);
    set("2", {{"DisplayName", "A && B"}, {"Flags", "#4294967295"}});
    set("2", {{"RecommendedLevel", "#0"}, {"MinLevel", "#0"}, {"CurrentLevel", "#0"}});
    expect("A && B|Missing Description|4294967295|**Missing**|**Missing**|Custom");
    for (const char* other : {"0", "1", "3", "7"}) window().UpdateLabels(other);
    set("2", {{"RecommendedLevel", "#70000"}, {"MinLevel", "65536"}, {"Flags", ""}});
    system.deleteValue(z, "CurrentLevel");
    EXPECT_TRUE(shown().ends_with("|4294967295|**Missing**|**Missing**|Custom")) << "of the selected zone alone";
    expect("A && B|Missing Description|Missing" + kept);
    system.setDword(z, "Flags", 5);
    window().UpdateLabels("2");
    EXPECT_EQ(window().lblFlags.caption(), "5");
}

TEST_F(MainWindow, ShowsTheProgramsOwnIconWhereAZoneHasNone) {
    const std::string own = system.path("Tavimor.exe") + "#1";
    // A reference that leads nowhere stays the zone's: only its picture is replaced.
    const std::pair<const char*, bool> cases[] = {{"", false}, {"shell32.dll", false}, {"a\"b#c\"d#1", false},
                                                  {"#", true}, {"nosuch.dll#1", true}, {"shell32.dll#99999", true}};
    for (const auto& [icon, kept] : cases) {
        system.setText(zoneKey("1"), "Icon", icon);
        summary(2);
        EXPECT_EQ(window().selection().icon.text(), kept ? icon : own);
        EXPECT_FALSE(window().picZoneIcon.picture().empty()) << icon;
    }
}

// Views ---------------------------------------------------------------------------------------------------------

TEST_F(MainWindow, SwitchesBetweenItsViewsAndRemembersTheLast) {
    const Twips advanced{2310, 3735, 4230, 5330, 6970}, basic{2310, 3735, 4230, 4230, 5870};
    EXPECT_EQ(layout(window()), advanced);
    EXPECT_EQ(window().lines(), (std::vector<ui::Line>{{0, 3548, 6900, 3548, ui::SystemColour::Shadow3D},
                                                       {0, 3568, 6895, 3568, ui::SystemColour::Highlight3D}}));
    EXPECT_EQ(system.dword(Settings, "View"), 2u) << "saved on the first run";
    registry.cD("\\HKEY_LOCAL_MACHINE");  // where another window has left the session
    window().mnuViewBasic.click();
    EXPECT_EQ(layout(window()), basic);
    closeWindow();
    EXPECT_EQ(layout(window()), basic);
    EXPECT_EQ(window().smallest().height, 3120);
    window().mnuViewAdv.click();
    EXPECT_EQ(layout(window()), advanced);
    EXPECT_EQ(
        system.tree(Settings),
        (TestSystem::Tree{
            {"", ""}, {"|Frame Top", "#4230"}, {"|Logo Top", "#5330"}, {"|Main Height", "#6970"}, {"|View", "#2"}}));
    system.setDword(Settings, "View", 3);
    closeWindow();
    EXPECT_TRUE(window().mnuViewBasic.enabled());
}

TEST_F(MainWindow, GivesTheHeightThatTheUserAddsToTheList) {
    frmMain& w = window();
    const ui::Size client = w.client();
    for (const auto& [more, list] : {std::pair{-700, 1610}, {-3000, 1200}, {0, 2310}, {3000, 5310}}) {
        w.userResized({client.width, client.height + more});
        EXPECT_EQ(layout(w), (Twips{list, list + 1425, list + 1920, list + 3020, 6970 + more})) << "all in its place";
        EXPECT_EQ(w.smallest().height, 4220) << "that of the list's lowest, without the logo";
    }
    w.mnuViewBasic.click();
    EXPECT_EQ(layout(w), (Twips{5310, 6735, 7230, 7230, 8870}));
}

TEST_F(MainWindow, ComesBackWhereItWasAndAsLarge) {
    frmMain& w = window();
    w.userResized({w.client().width + 900, w.client().height + 1500});
    for (const ui::Control* c : std::initializer_list<ui::Control*>{&w.lvwZones, &w.lblZoneName, &w.lblZoneCaption,
                                                                    &w.cmdZoneOption(2), &w.zzzfraInfo, &w.zzzpicLogo})
        EXPECT_EQ(c->bounds().right(), 7680) << c->name();
    w.userPlaced({1500, 900, w.width(), w.height()}, false);
    const auto placeNextTime = [&] {  // and how wide the window is then, and how high its list
        window().unload();
        closeWindow();
        return Twips{window().place().left, window().place().top, window().client().width, window().lvwZones.height()};
    };
    const Twips same{1500, 900, 7800, 3810};
    EXPECT_EQ(placeNextTime(), same);
    const ui::Twips height = window().height(), width = window().width();
    window().userPlaced({1500, 900, width, height}, false);
    window().userPlaced({0, 0, 15000, 11000}, true);
    window().userResized({15000, 10300});
    EXPECT_EQ(placeNextTime(), same);
    EXPECT_EQ(system.dword(Settings, "Main Height"), 6970u) << "the views alone change it";
    system.deleteTree(Settings);
    window().unload();
    EXPECT_FALSE(system.exists(Settings));
    // Written on a larger screen, or by nobody in his senses.
    for (const char* name : {"Main Left", "Main Top", "List Height", "Main Height"})
        system.setDword(Settings, name, 0x7FFF);
    for (const char* name : {"Frame Top", "Logo Top"}) system.setDword(Settings, name, 5000);
    system.setDword(Settings, "Main Width", static_cast<std::uint32_t>(width - 900));
    closeWindow();
    EXPECT_LT(window().zzzpicLogo.bounds().bottom(), window().client().height);
    system.deleteValue(Settings, "Main Top");
    closeWindow();
    EXPECT_EQ(window().place().width, 0) << "in the middle";
}

TEST_F(MainWindow, ReportsSavedSettingsThatAreMissingOrNoLengths) {
    window();
    for (const sample::Entry& damaged : {sample::dword(Settings, "Main Height", 32768),
                                         sample::text(Settings, "Main Height", "12"), sample::dword(Settings, "", 0)}) {
        closeWindow();
        system.deleteValue(Settings, "Main Height");
        system.set(damaged);
        expectError("frmMain.SetFormAttributes", "not a length");
        EXPECT_GT(window().height(), 3000);
    }
}

// The rest of the window ----------------------------------------------------------------------------------------

TEST_F(MainWindow, ReadsTheZonesAgainAndOpensThemByKeyboard) {
    frmMain& w = window();
    select("3");
    addZone("5");
    EXPECT_TRUE(w.pressKey(ui::FormKey::Refresh));
    EXPECT_EQ(w.lvwZones.count(), 6);
    EXPECT_EQ(w.lvwZones.selected(), 4);
    EXPECT_FALSE(w.pressKey(ui::FormKey::NextPage));
    const auto read = [](frmEdit& form) { EXPECT_EQ(form.lblZone.caption(), "Internet"); };
    desktop.use<frmEdit>(read, [&] { w.lvwZones.open(); });
    desktop.use<frmEdit>(read, [&] { w.mnuEditEdit.click(); });
    EXPECT_EQ(w.lvwZones.commands().size(), 3u);
}

TEST_F(MainWindow, LetsNobodyDragAZoneAndUnloadsEveryWindowWhenItCloses) {
    ui::Form other(desktop, ui::Form::Kind::Dialog, "other", "Other", {3000, 3000});
    other.load();
    window();
    const std::int32_t before = basErrors::ProcCount;
    EXPECT_EQ(window().hookAnswer({ui::WmNotify, 0, 0, ui::LvnBeginDrag}), 1);
    EXPECT_EQ(window().hookAnswer({ui::WmNotify, 0, 0, -2}), std::nullopt);
    EXPECT_EQ(basErrors::ProcCount, before + 1);  // the swallowed drag stays on the trace
    window().mnuFileExit.click();
    EXPECT_EQ((std::tuple{window().loaded(), window().hooked(), other.loaded()}), (std::tuple{false, false, false}));
}
