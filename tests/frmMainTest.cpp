#include "editing/frmEdit.h"
#include "support/IconBytes.h"
#include "support/MainWindowFixture.h"
#include "support/texts.h"
#include "util/trace.h"

namespace {

const std::string Zones = zones::ZonesKey;
const std::string Settings = "HKEY_CURRENT_USER\\Software\\Pellweather Inc.\\Tavimor";

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
        window_.reset();
        system.desktop.dots = dots;
        EXPECT_EQ(window().zzzpicLogo.picture().width(), width) << dots;
    }
}

TEST_F(MainWindow, ListsTheZonesInTheRegistrysOrderAndSelectsTheSecond) {
    for (const char* key : {"10", "abc", "007", "4 \"5\" ", ".."}) addZone(key);
    system.setDword(Zones, "SelfHealCount", 1);
    EXPECT_EQ(names(), (Texts{"Zone ..", "My Computer", "Zone 007", "Local intranet", "Zone 10", "Trusted sites",
                              "Internet", "Restricted sites", "Zone 4 \"5\" ", "Zone abc"}));
    EXPECT_EQ(window().lvwZones.selected(), 2);
    EXPECT_EQ(window().lvwZones.item(10).image, 11);
    EXPECT_NE(window().ilsZoneIcons.picture(5), window().ilsZoneIcons.picture(7)) << "the intranet's, trusted sites'";
    for (int item = 1; item <= 10; ++item) {
        window().lvwZones.choose(item);  // the arrow keys click too
        const std::string name = window().lvwZones.item(item).text;
        EXPECT_EQ(window().lblZoneName.caption(), name);
        EXPECT_EQ(window().ilsZoneIcons.picture(item + 1), window().picZoneIcon.picture()) << name;
        EXPECT_FALSE(window().picZoneIcon.picture().empty()) << name;
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
    EXPECT_FALSE(window().cmdZoneOption(2).enabled());
    EXPECT_FALSE(window().mnuEditDelete.enabled());
    addZone("3");
    window().RebuildList();
    EXPECT_EQ(window().lblZoneName.caption(), "Zone 3") << "the only one there is";
    EXPECT_EQ(window().ilsZoneIcons.count(), 2);
}

IN_MEMORY_TEST_F(MainWindow, ShowsNothingOfAZoneThatIsGone) {
    summary(2);
    system.deleteTree(Zones);
    window().ReloadAsItIs();
    EXPECT_EQ(shown(), "|||||");
    EXPECT_TRUE(window().picZoneIcon.picture().empty());
    EXPECT_TRUE(window().selection().icon.file.empty());
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

TEST_F(MainWindow, ReadsTheZonesAgainWhenAClickedOneHasBecomeAnother) {
    for (const char* key : {"5", "6"}) addZone(key);
    const std::string intranet = summary(2);
    system.setText(zoneKey("5"), "DisplayName", "Zone 6");
    system.deleteTree(zoneKey("6"));
    desktop.expectMessage("gone, read again");
    window().lvwZones.click(7);
    EXPECT_EQ(names().back(), "Zone 6");
    EXPECT_EQ(window().lvwZones.selected(), 2);
    EXPECT_EQ(shown(), intranet);
    system.setText(zoneKey("5"), "DisplayName", "Another");
    desktop.expectMessage("changed, read again");
    window().lvwZones.click(6);
    EXPECT_EQ(shown(), intranet);
    for (const bool gone : {false, true}) {
        window().lvwZones.click(6);
        gone ? system.deleteTree(zoneKey("5")) : system.setText(zoneKey("5"), "DisplayName", "Another's");
        desktop.expectMessage(gone ? "gone, read again" : "changed, read again");
        window().cmdZoneOption(0).click();
        EXPECT_EQ(names().back(), gone ? "Restricted sites" : "Another's");
    }
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

// Views ---------------------------------------------------------------------------------------------------------

TEST_F(MainWindow, SwitchesBetweenItsViewsAndRemembersTheLast) {
    frmMain& w = window();
    const ui::Twips advancedHeight = w.height();
    EXPECT_EQ(system.dword(Settings, "View"), 2u) << "saved on the first run";
    w.mnuViewBasic.click();
    EXPECT_FALSE(w.zzzfraInfo.visible());
    EXPECT_EQ(w.zzzpicLogo.top(), w.zzzfraInfo.top());
    EXPECT_EQ(w.height(), 2 * w.zzzpicLogo.height() + w.zzzpicLogo.top() + 20);
    EXPECT_LT(w.height(), advancedHeight);

    frmMain next(program);
    next.load();
    EXPECT_FALSE(next.zzzfraInfo.visible());
    EXPECT_TRUE(next.mnuViewAdv.enabled());
    EXPECT_FALSE(next.mnuViewBasic.enabled());
    EXPECT_EQ(next.height(), w.height());
    next.mnuViewAdv.click();
    EXPECT_TRUE(next.zzzfraInfo.visible());
    EXPECT_EQ(next.zzzpicLogo.top(), next.zzzfraInfo.bounds().bottom() + 50);
    EXPECT_EQ(next.height(), advancedHeight);
    const std::pair<const char*, int> saved[] = {{"Main Height", next.height()},
                                                 {"Frame Top", next.zzzfraInfo.top()},
                                                 {"Logo Top", next.zzzpicLogo.top()},
                                                 {"View", 2}};
    for (const auto& [name, number] : saved) EXPECT_EQ(system.dword(Settings, name), number) << name;
    const int line = next.cmdZoneOption(0).top() - next.cmdZoneOption(0).height() / 2, width = next.client().width;
    EXPECT_EQ(next.lines(),
              (std::vector<ui::Line>{{0, line, width, line, ui::SystemColour::Shadow3D},
                                     {0, line + 20, width - 5, line + 20, ui::SystemColour::Highlight3D}}));

    system.setDword(Settings, "View", 3);
    frmMain unknown(program);
    unknown.load();
    EXPECT_TRUE(unknown.mnuViewBasic.enabled());
    EXPECT_FALSE(unknown.mnuViewAdv.enabled());
}

TEST_F(MainWindow, GivesTheHeightThatTheUserAddsToTheList) {
    frmMain& w = window();
    const ui::Size client = w.client();
    const struct {
        ui::Twips more, list, buttons, frame, logo;
    } rows[] = {{3000, 5310, 6735, 7230, 8330},
                {-700, 1610, 3035, 3530, 4630},
                {-3000, 1200, 2625, 3120, 4220},
                {0, 2310, 3735, 4230, 5330}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.more);
        w.userResized({client.width, client.height + row.more});
        EXPECT_EQ(w.lvwZones.height(), row.list);
        EXPECT_EQ(w.cmdZoneOption(2).top(), row.buttons);
        EXPECT_EQ(w.zzzfraInfo.top(), row.frame);
        EXPECT_EQ(w.zzzpicLogo.top(), row.logo);
        EXPECT_EQ(w.smallest().height, 4220) << "that of the list's lowest, without the logo";
    }
    w.userResized({client.width, client.height + 3000});
    w.mnuViewBasic.click();
    EXPECT_EQ(w.lvwZones.height(), 5310);
    EXPECT_EQ(w.zzzpicLogo.top(), 7230);
    EXPECT_EQ(w.height(), 8870);
    EXPECT_EQ(w.smallest().height, 3120);
}

TEST_F(MainWindow, ComesBackWhereItWasAndAsLarge) {
    frmMain& w = window();
    w.userResized({w.client().width + 900, w.client().height + 1500});
    for (const ui::Control* c : std::initializer_list<ui::Control*>{&w.lvwZones, &w.lblZoneName, &w.lblZoneCaption,
                                                                    &w.cmdZoneOption(2), &w.zzzfraInfo, &w.zzzpicLogo})
        EXPECT_EQ(c->bounds().right(), 7680) << c->name();
    w.userPlaced({1500, 900, w.width(), w.height()}, false);
    w.unload();
    EXPECT_EQ(system.dword(Settings, "Main Height"), 6970u) << "the views alone change it";
    frmMain next(program);
    const auto expectTheSame = [&](frmMain& form) {
        form.load();
        EXPECT_TRUE(form.place().left == 1500 && form.place().top == 900);
        EXPECT_EQ(form.client().width, 7800);
        EXPECT_EQ(form.lvwZones.height(), 3810);
    };
    expectTheSame(next);
    const ui::Twips height = next.height();
    next.userPlaced({1500, 900, next.width(), height}, false);
    next.userPlaced({0, 0, 15000, 11000}, true);
    next.userResized({15000, 10300});
    next.unload();
    frmMain third(program);
    expectTheSame(third);
    third.userPlaced({15, 15, 9000, height}, false);
    system.deleteTree(Settings);
    third.unload();
    EXPECT_FALSE(system.exists(Settings));
    // Written on a larger screen, or by nobody in his senses.
    for (const char* name : {"Main Left", "Main Top", "List Height", "Main Height"})
        system.setDword(Settings, name, 0x7FFF);
    for (const char* name : {"Frame Top", "Logo Top"}) system.setDword(Settings, name, 5000);
    frmMain damaged(program);
    system.setDword(Settings, "Main Width", static_cast<std::uint32_t>(damaged.width()));
    damaged.load();
    EXPECT_LT(damaged.zzzpicLogo.bounds().bottom(), damaged.client().height);
    system.deleteValue(Settings, "Main Top");
    frmMain centred(program);
    centred.load();
    EXPECT_EQ(centred.place().width, 0);
}

TEST_F(MainWindow, ReadsTheZonesAgainAndOpensThemByKeyboard) {
    frmMain& w = window();
    w.lvwZones.click(4);
    addZone("5");
    EXPECT_TRUE(w.pressKey(ui::FormKey::Refresh));
    EXPECT_EQ(w.lvwZones.count(), 6);
    EXPECT_EQ(w.lvwZones.selected(), 4);
    EXPECT_FALSE(w.pressKey(ui::FormKey::NextPage));
    desktop.expectForm<frmEdit>([](frmEdit& form) {
        EXPECT_EQ(form.lblZone.caption(), "Internet");
        form.unload();
    });
    w.lvwZones.open();
    EXPECT_EQ(w.lvwZones.commands().size(), 3u);
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
    EXPECT_FALSE(window().loaded());
    EXPECT_FALSE(window().hooked());
    EXPECT_FALSE(other.loaded());
}

IN_MEMORY_TEST_F(MainWindow, AsksTheRegistryNoMoreThanItMust) {
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
