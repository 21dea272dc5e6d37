#include "app/frmMain.h"

#include <gtest/gtest.h>

#include "errors/basErrors.h"
#include "errors/frmError.h"
#include "support/TestSystem.h"

namespace {

const std::string Zones = zones::ZonesKey;
const std::string Domains = zones::DomainsKey;
const std::string Settings = "HKEY_CURRENT_USER\\Software\\Pellweather Inc.\\Tavimor";

class MainWindow : public testing::Test {
protected:
    MainWindow() : program_(system_.platform()) {
        system_.seedZones();
        system_.seedModules();
    }

    frmMain& window() {
        if (!window_) {
            window_ = std::make_unique<frmMain>(program_);
            window_->load();
        }
        return *window_;
    }
    std::string zone(const std::string& name) const { return Zones + "\\" + name; }
    void addZone(const std::string& key) { system_.setText(zone(key), "DisplayName", "Zone " + key); }
    // What the window says of a zone: "name|description|flags|recommended|minimum|current".
    std::string summary(int item) {
        frmMain& w = window();
        w.lvwZones.click(item);
        return w.lblZoneName.caption() + "|" + w.lblZoneCaption.caption() + "|" + w.lblFlags.caption() + "|" +
               w.lblRec.caption() + "|" + w.lblMin.caption() + "|" + w.lblCurrent.caption();
    }
    std::vector<std::string> tags() {
        std::vector<std::string> all;
        for (int i = 1; i <= window().lvwZones.count(); ++i) all.push_back(window().lvwZones.item(i).tag);
        return all;
    }
    void expectErrorDialog(const std::string& procedureName) {
        system_.desktop.expectForm<frmError>([procedureName](frmError& dialog) {
            EXPECT_EQ(dialog.lblModule.caption() + "." + dialog.lblProcedure.caption(), procedureName);
            EXPECT_FALSE(dialog.lblErrDescription.caption().empty());
            dialog.cmdContinue.click();
        });
    }

    TestSystem system_;
    Program program_;
    std::unique_ptr<frmMain> window_;
};

using Strings = std::vector<std::string>;

}  // namespace

TEST_F(MainWindow, ListsTheZonesInTheRegistrysOrderAndSelectsTheSecond) {
    addZone("10");
    addZone("abc");
    addZone("007");
    addZone("4 \"5\" ");
    addZone("..");
    EXPECT_EQ(tags(), (Strings{"..", "0", "007", "1", "10", "2", "3", "4", "4 \"5\" ", "ABC"}));
    EXPECT_EQ(window().lvwZones.selected(), 2);
    EXPECT_EQ(program_.selection.zone, "0");
    for (int i = 1; i <= 10; ++i) EXPECT_EQ(window().lvwZones.item(i).image, i + 1);
    EXPECT_EQ(window().ilsZoneIcons.count(), 11);
    EXPECT_EQ(window().lvwZones.item(9).text, "Zone 4 \"5\" ");
    window().lvwZones.click(1);
    EXPECT_EQ(window().lblZoneName.caption(), "Zone ..");
    EXPECT_EQ(window().caption(), "Tavimor - 5.0.32 (Public BETA)");
}

TEST_F(MainWindow, SelectsTheOnlyZoneThereIs) {
    system_.deleteTree(Zones);
    addZone("3");
    EXPECT_EQ(tags(), Strings{"3"});
    EXPECT_EQ(window().lvwZones.selected(), 1);
    EXPECT_EQ(window().lblZoneName.caption(), "Zone 3");
}

TEST_F(MainWindow, ShowsAnErrorWithoutZonesAndLivesOn) {
    system_.deleteTree(Zones);
    expectErrorDialog("frmMain.FillListView");
    EXPECT_EQ(tags(), Strings{});
    EXPECT_EQ(window().ilsZoneIcons.count(), 1);
    system_.seedZones();
    window().RebuildList();
    EXPECT_EQ(window().lvwZones.selected(), 2);
}

TEST_F(MainWindow, ShowsWhatEachZoneIs) {
    const std::string intranet =
        "This zone contains all Web sites that are on your organization's intranet.|219|Medium-Low|Low|Medium-Low";
    EXPECT_EQ(summary(2), "Local intranet|" + intranet);
    EXPECT_EQ(program_.selection.iconFile, "shell32.dll");
    EXPECT_EQ(program_.selection.iconResource, "0018");
    EXPECT_FALSE(window().picZoneIcon.picture().empty());
    // Zone 0 has no recommended and no minimum level: the labels keep what they showed.
    EXPECT_EQ(summary(1), "My Computer|Your computer|33|Medium-Low|Low|Custom");
}

TEST_F(MainWindow, SaysWhatIsMissingOrOfTheWrongKind) {
    const std::string z = zone("2");
    const struct {
        const char* what;
        std::function<void()> damage;
        const char* summary;
    } cases[] = {
        {"nothing there",
         [&] {
             system_.deleteTree(z);
             system_.setText(z, "Other", "x");
         },
         "Missing Name|Missing Description|Missing|Medium-Low|Low|Medium-Low"},
        {"empty texts",
         [&] {
             system_.setText(z, "DisplayName", "");
             system_.setText(z, "Description", "");
         },
         "Missing Name|Missing Description|Missing|Medium-Low|Low|Medium-Low"},
        {"an ampersand", [&] { system_.setText(z, "DisplayName", "A && B"); },
         "A && B|Missing Description|Missing|Medium-Low|Low|Medium-Low"},
        {"zero levels",
         [&] {
             for (const char* level : {"RecommendedLevel", "MinLevel", "CurrentLevel"}) system_.setDword(z, level, 0);
             system_.setDword(z, "Flags", 0xFFFFFFFF);
         },
         "A && B|Missing Description|4294967295|**Missing**|**Missing**|Custom"},
        {"levels that are none, or no numbers",
         [&] {
             system_.setDword(z, "RecommendedLevel", 70000);
             system_.setText(z, "MinLevel", "65536");
             system_.setBinary(z, "CurrentLevel", {0, 0, 1, 0});
             system_.setText(z, "Flags", "many");
         },
         "A && B|Missing Description|many|Medium-Low|Low|Medium-Low"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        c.damage();
        summary(2);  // whose words stay where the next zone has none
        EXPECT_EQ(summary(3), c.summary);
    }
}

TEST_F(MainWindow, ShowsTheProgramsOwnIconWhereAZoneHasNone) {
    const std::string defaultFile = system_.path("Tavimor.exe");
    for (const char* icon : {"", "shell32.dll", "a\"b#c\"d#1"}) {
        SCOPED_TRACE(icon);
        system_.setText(zone("1"), "Icon", icon);
        summary(2);
        EXPECT_EQ(program_.selection.iconFile, defaultFile);
        EXPECT_EQ(program_.selection.iconResource, "1");
        EXPECT_FALSE(window().picZoneIcon.picture().empty());
    }
    // A reference that leads nowhere stays the zone's own: only its picture is replaced.
    for (const char* icon : {"nosuch.dll#1", "shell32.dll#99999", "shell32.dll#", "#"}) {
        SCOPED_TRACE(icon);
        system_.setText(zone("1"), "Icon", icon);
        summary(2);
        EXPECT_EQ(program_.selection.iconFile + "#" + program_.selection.iconResource, icon);
        EXPECT_FALSE(window().picZoneIcon.picture().empty());
    }
}

TEST_F(MainWindow, OffersToDeleteAddedZonesByTheButtonOnly) {
    addZone("5");
    for (int item = 1; item <= 6; ++item) {
        window().lvwZones.choose(item);  // the arrow keys click too
        EXPECT_EQ(window().cmdZoneOption(2).enabled(), item == 6) << item;
        EXPECT_FALSE(window().mnuEditDelete.enabled());
    }
}

TEST_F(MainWindow, DeletesAZoneAndItsSitesWhenToldTo) {
    for (const bool sitesToo : {false, true}) {
        SCOPED_TRACE(sitesToo);
        system_.deleteTree(Domains);
        addZone("5");
        addZone("6");
        system_.setDword(Domains + "\\example.com\\www", "http", 5);
        system_.setDword(Domains + "\\other.com\\www", "http", 2);
        window().RebuildList();
        window().lvwZones.click(6);
        system_.desktop.expectMessage("There are site in the zone: \"Zone 5\"\r\nWould you like to delete them also?",
                                      sitesToo ? ui::Answer::Yes : ui::Answer::No);
        window().cmdZoneOption(2).click();
        EXPECT_EQ(tags(), (Strings{"0", "1", "2", "3", "4", "5"}));
        EXPECT_EQ(window().lvwZones.item(6).text, "Zone 6");
        EXPECT_EQ(system_.keys(Domains), sitesToo ? Strings{"other.com"} : (Strings{"example.com", "other.com"}));
        system_.deleteTree(zone("5"));
    }
}

TEST_F(MainWindow, RefusesToDeleteAZoneWhosePlaceIsNotItsNumber) {
    for (const char* key : {"7", "abc", "005"}) {
        addZone(key);
        window().RebuildList();
        const Strings all = tags();
        for (int i = 1; i <= window().lvwZones.count(); ++i)
            if (window().lvwZones.item(i).text == std::string("Zone ") + key) window().lvwZones.click(i);
        system_.desktop.expectMessage("The zone \"Zone " + std::string(key) +
                                          "\" cannot be deleted: the zones are not numbered from 0 on without gaps.",
                                      ui::Answer::Ok);
        window().cmdZoneOption(2).click();
        EXPECT_EQ(tags(), all);
        system_.deleteTree(zone(key));
    }
}

// Views ---------------------------------------------------------------------------------------------------------

TEST_F(MainWindow, SavesItsDesignOnTheFirstRun) {
    const ui::Twips height = window().height(), frame = window().zzzfraInfo.top(), logo = window().zzzpicLogo.top();
    EXPECT_EQ(system_.dword(Settings, "Main Height"), height);
    EXPECT_EQ(system_.dword(Settings, "Frame Top"), frame);
    EXPECT_EQ(system_.dword(Settings, "Logo Top"), logo);
    EXPECT_EQ(system_.dword(Settings, "View"), 2u);
    EXPECT_TRUE(window().mnuViewBasic.enabled());
    EXPECT_FALSE(window().mnuViewAdv.enabled());
}

TEST_F(MainWindow, SwitchesBetweenItsViewsAndRemembersTheLast) {
    frmMain& w = window();
    const ui::Twips advancedHeight = w.height();
    w.mnuViewBasic.click();
    EXPECT_FALSE(w.zzzfraInfo.visible());
    EXPECT_EQ(w.zzzpicLogo.top(), w.zzzfraInfo.top());
    EXPECT_EQ(w.height(), 2 * w.zzzpicLogo.height() + w.zzzpicLogo.top() + 20);
    EXPECT_EQ(system_.dword(Settings, "Main Height"), w.height());
    EXPECT_EQ(system_.dword(Settings, "View"), 1u);

    frmMain next(program_);
    next.load();
    EXPECT_FALSE(next.zzzfraInfo.visible());
    EXPECT_FALSE(next.mnuViewBasic.enabled());
    EXPECT_TRUE(next.mnuViewAdv.enabled());
    EXPECT_EQ(next.height(), w.height());

    next.mnuViewAdv.click();
    EXPECT_TRUE(next.zzzfraInfo.visible());
    EXPECT_EQ(next.zzzpicLogo.top(), next.zzzfraInfo.top() + next.zzzfraInfo.height() + 50);
    EXPECT_EQ(next.height(), advancedHeight);
    EXPECT_EQ(system_.dword(Settings, "View"), 2u);
}

TEST_F(MainWindow, IgnoresAViewItDoesNotKnow) {
    window();
    system_.setDword(Settings, "View", 3);
    frmMain next(program_);
    next.load();
    EXPECT_TRUE(next.zzzfraInfo.visible());
    EXPECT_FALSE(next.mnuViewAdv.enabled());
}

TEST_F(MainWindow, ReportsSavedSettingsThatAreMissingOrNoLengths) {
    window();
    window_.reset();
    for (const auto& damage : {std::function<void()>([&] { system_.setText(Settings, "Frame Top", "12"); }),
                               std::function<void()>([&] { system_.setDword(Settings, "Main Height", 0x80000000); }),
                               std::function<void()>([&] {
                                   system_.deleteTree(Settings);
                                   system_.setDword(Settings, "View", 1);
                               })}) {
        damage();
        frmMain next(program_);
        expectErrorDialog("frmMain.SetFormAttributes");
        next.load();
        EXPECT_TRUE(next.loaded());
        EXPECT_GT(next.height(), 3000);
    }
}

// The rest of the window ----------------------------------------------------------------------------------------

TEST_F(MainWindow, DrawsTheSeparatorHalfAButtonAboveTheButtons) {
    const auto& button = window().cmdZoneOption(0);
    const ui::Twips top = button.top() - button.height() / 2, width = window().client().width;
    EXPECT_EQ(window().lines(),
              (std::vector<ui::Line>{{0, top, width, top, ui::SystemColour::Shadow3D},
                                     {0, top + 20, width - 5, top + 20, ui::SystemColour::Highlight3D}}));
    window().userResized({9000, 6000});
    EXPECT_EQ(window().lines().front().right, 9000);
    EXPECT_EQ(window().lvwZones.bounds().right(), 9000 - 120);
}

TEST_F(MainWindow, LetsNobodyDragAZone) {
    window();
    const std::int32_t before = basErrors::ProcCount;
    EXPECT_EQ(window().hookAnswer({ui::WmNotify, 0, 0, ui::LvnBeginDrag}), 1);
    EXPECT_EQ(window().hookAnswer({ui::WmNotify, 0, 0, -2}), std::nullopt);
    EXPECT_EQ(basErrors::ProcCount, before + 1);  // the swallowed drag stays on the trace
}

TEST_F(MainWindow, SpacesItsIconsOnceAfterAFill) {
    EXPECT_FALSE(window().lvwZones.iconSpacing());
    window().tmrIconSpace.tick();
    EXPECT_EQ(window().lvwZones.iconSpacing(), (ui::ListView::Spacing{75, 75}));
    EXPECT_FALSE(window().tmrIconSpace.enabled());
}

TEST_F(MainWindow, RemovesTheBrowsersRepairCount) {
    system_.setDword(Zones, "SelfHealCount", 1);
    window();
    EXPECT_FALSE(system_.dword(Zones, "SelfHealCount"));
}

TEST_F(MainWindow, UnloadsEveryWindowWhenItCloses) {
    ui::Form other(system_.platform().desktop, ui::Form::Kind::Dialog, "other", "Other", {3000, 3000});
    other.load();
    window().mnuFileExit.click();
    EXPECT_FALSE(window().loaded());
    EXPECT_FALSE(window().hooked());
    EXPECT_FALSE(other.loaded());
}

TEST_F(MainWindow, AsksTheRegistryNoMoreThanItMust) {
    for (const int count : {5, 1000}) {
        for (int i = 5; i < count; ++i) {
            addZone(std::to_string(i));
            system_.setText(zone(std::to_string(i)), "Icon", "shell32.dll#0018");
        }
        window();
        system_.registry.watch.reset();
        system_.modules.watch.reset();
        window().RebuildList();
        const int fill = system_.registry.watch.calls();
        const int loads = system_.modules.watch.calls("LoadLibraryExA");
        system_.registry.watch.reset();
        window().lvwZones.click(3);
        const int click = system_.registry.watch.calls();
        std::printf("%d zones: %d registry calls to fill the list, %d for a click, %d modules loaded\n", count, fill,
                    click, loads);
        EXPECT_LE(fill, 14 * count + 20);
        EXPECT_LE(click, 60);
        EXPECT_LE(loads, 7);  // five icons, the selected zone's again, and its default
    }
}
