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
    for (const char* key : {"10", "abc", "007", "4 \"5\" ", ".."}) addZone(key);
    system_.setDword(Zones, "SelfHealCount", 1);
    EXPECT_EQ(tags(), (Strings{"..", "0", "007", "1", "10", "2", "3", "4", "4 \"5\" ", "ABC"}));
    EXPECT_EQ(window().lvwZones.selected(), 2);
    EXPECT_EQ(program_.selection.zone, "0");
    EXPECT_EQ(window().lvwZones.item(10).image, 11);
    EXPECT_EQ(window().ilsZoneIcons.count(), 11);
    for (int item = 1; item <= 10; ++item) {
        window().lvwZones.choose(item);  // the arrow keys click too
        const std::string name = window().lblZoneName.caption();
        EXPECT_EQ(window().lvwZones.item(item).text, name);
        EXPECT_EQ(window().cmdZoneOption(2).enabled(), name.starts_with("Zone ")) << "only what was added may go";
        EXPECT_FALSE(window().mnuEditDelete.enabled());
    }
    EXPECT_FALSE(system_.dword(Zones, "SelfHealCount")) << "the browser would repair what the user changes";
}

TEST_F(MainWindow, ShowsAnErrorWithoutZonesAndLivesOn) {
    system_.deleteTree(Zones);
    expectErrorDialog("frmMain.FillListView");
    EXPECT_EQ(tags(), Strings{});
    addZone("3");
    window().RebuildList();
    EXPECT_EQ(tags(), Strings{"3"});
    EXPECT_EQ(window().lvwZones.selected(), 1) << "the only one there is";
    EXPECT_EQ(window().lblZoneName.caption(), "Zone 3");
    EXPECT_EQ(window().ilsZoneIcons.count(), 2);
}

TEST_F(MainWindow, SaysWhatIsMissingOrOfTheWrongKind) {
    const std::string z = zone("2");
    EXPECT_EQ(summary(2),
              "Local intranet|This zone contains all Web sites that are on your organization's intranet.|219|"
              "Medium-Low|Low|Medium-Low");
    // Zone 0 has no recommended and no minimum level: the labels keep what they showed.
    EXPECT_EQ(summary(1), "My Computer|Your computer|33|Medium-Low|Low|Custom");
    const std::string kept = "|Medium-Low|Low|Medium-Low";
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[&] {
             system_.deleteTree(z);
             system_.setText(z, "DisplayName", "");
         },
         "Missing Name|Missing Description|Missing" + kept},
        {[&] {
             system_.setText(z, "DisplayName", "A && B");
             for (const char* level : {"RecommendedLevel", "MinLevel", "CurrentLevel"}) system_.setDword(z, level, 0);
             system_.setDword(z, "Flags", 0xFFFFFFFF);
         },
         "A && B|Missing Description|4294967295|**Missing**|**Missing**|Custom"},
        {[&] {
             system_.setDword(z, "RecommendedLevel", 70000);
             system_.setText(z, "MinLevel", "65536");
             system_.setBinary(z, "CurrentLevel", {0, 0, 1, 0});
             system_.setText(z, "Flags", "many");
         },
         "A && B|Missing Description|many" + kept},
    };
    for (const auto& [damage, expected] : cases) {
        damage();
        summary(2);  // whose words stay where the next zone has none
        EXPECT_EQ(summary(3), expected);
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
    for (const std::string key : {"6", "abc", "005"}) {  // 6: as many as there are
        addZone(key);
        window().RebuildList();
        const Strings all = tags();
        for (int i = 1; i <= window().lvwZones.count(); ++i)
            if (window().lvwZones.item(i).text == "Zone " + key) window().lvwZones.click(i);
        system_.desktop.expectMessage(
            "The zone \"Zone " + key + "\" cannot be deleted: the zones are not numbered from 0 on without gaps.",
            ui::Answer::Ok);
        window().cmdZoneOption(2).click();
        EXPECT_EQ(tags(), all);
        system_.deleteTree(zone(key));
    }
}

// Views ---------------------------------------------------------------------------------------------------------

TEST_F(MainWindow, SwitchesBetweenItsViewsAndRemembersTheLast) {
    frmMain& w = window();
    const ui::Twips advancedHeight = w.height();
    EXPECT_EQ(system_.dword(Settings, "View"), 2u) << "saved on the first run";
    EXPECT_TRUE(w.mnuViewBasic.enabled() && !w.mnuViewAdv.enabled());
    w.mnuViewBasic.click();
    EXPECT_FALSE(w.zzzfraInfo.visible());
    EXPECT_EQ(w.zzzpicLogo.top(), w.zzzfraInfo.top());
    EXPECT_LT(w.height(), advancedHeight);
    EXPECT_EQ(system_.dword(Settings, "Main Height"), w.height());
    EXPECT_EQ(system_.dword(Settings, "View"), 1u);

    frmMain next(program_);
    next.load();
    EXPECT_FALSE(next.zzzfraInfo.visible());
    EXPECT_TRUE(next.mnuViewAdv.enabled() && !next.mnuViewBasic.enabled());
    EXPECT_EQ(next.height(), w.height());
    next.mnuViewAdv.click();
    EXPECT_TRUE(next.zzzfraInfo.visible());
    EXPECT_GT(next.zzzpicLogo.top(), next.zzzfraInfo.bounds().bottom());
    EXPECT_EQ(next.height(), advancedHeight);

    system_.setDword(Settings, "View", 3);
    frmMain unknown(program_);
    unknown.load();
    EXPECT_TRUE(unknown.mnuViewBasic.enabled() && !unknown.mnuViewAdv.enabled());
}

TEST_F(MainWindow, ReportsSavedSettingsThatAreMissingOrNoLengths) {
    window();
    window_.reset();
    const std::function<void()> damages[] = {[&] { system_.setText(Settings, "Frame Top", "12"); },
                                             [&] { system_.setDword(Settings, "Main Height", 0x80000000); },
                                             [&] { system_.deleteValue(Settings, "Main Height"); }};
    for (const auto& damage : damages) {
        damage();
        frmMain next(program_);
        expectErrorDialog("frmMain.SetFormAttributes");
        next.load();
        EXPECT_TRUE(next.loaded());
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
        EXPECT_LE(system_.registry.watch.calls(), 14 * count + 20);
        EXPECT_LE(system_.modules.watch.calls("LoadLibraryExA"), 7);  // five icons, the selected one's, its default
        system_.registry.watch.reset();
        window().lvwZones.click(3);
        EXPECT_LE(system_.registry.watch.calls(), 60);
    }
}
