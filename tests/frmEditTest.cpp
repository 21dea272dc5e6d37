#include "editing/frmEdit.h"

#include "support/EditingFixture.h"
#include "ui/ComboBox.h"
#include "ui/Picture.h"
#include "ui/TextBox.h"
#include "zones/Templates.h"

namespace {

struct frmEditTest : EditingFixture {
    static void typeOver(ui::TextBox& box, const std::string& text) {
        box.selectAll();
        box.type(text);
    }
    std::string saved(const std::string& zone, const char* name) {
        return system.text(key(zone), name).value_or("none");
    }
    std::uint32_t number(const std::string& zone, const char* name) {
        return system.dword(key(zone), name).value_or(None);
    }
    static constexpr std::uint32_t None = 0xFFFFFFFF;
    // The boxes' sum.
    static unsigned shown(frmEdit& form) {
        unsigned sum = 0;
        for (int i = 0; i < 8; ++i) sum += form.flags.chkProperties(i).checked() ? 1u << i : 0;
        return sum;
    }
    static std::string level(frmEdit& form, int index) {
        return form.levels.stored[static_cast<std::size_t>(index)].caption() + "|" +
               form.levels.cboSetting(index).text() + (form.levels.cmdApply(index).enabled() ? "|apply" : "");
    }
};

enum { Default = 0, Apply = 1 };
enum { High, Medium, MediumLow, Low, DefaultEntry };

}  // namespace

// General -------------------------------------------------------------------------------------------------------

TEST_F(frmEditTest, OffersDefaultsToBuiltInZonesAndHidingToAllButTheInternet) {
    for (const char* zone : {"2", "3", "4", "5"})
        edit(zone, [&](frmEdit& form) {
            EXPECT_EQ(form.general.cmdGeneral(Default).enabled(), *zone < '5') << zone;
            EXPECT_EQ(form.flags.chkProperties(5).enabled(), *zone != '3') << zone;
        });
}

TEST_F(frmEditTest, RepairsAMinimumLevelOfZeroInZone0WhicheverZoneIsEdited) {
    for (const auto& [stored, repaired] : {std::pair{None, None}, {70000u, 70000u}, {0u, 65536u}}) {
        if (stored != None) system.setDword(key("0"), "MinLevel", stored);
        edit("2", [](frmEdit&) {});
        EXPECT_EQ(number("0", "MinLevel"), repaired);
    }
    EXPECT_EQ(number("0", "RecommendedLevel"), 65536);
}

TEST_F(frmEditTest, SavesNamesAndDescriptionsAsTyped) {
    std::string every;
    for (int c = 33; c < 256; ++c) every += static_cast<char>(c);
    for (const std::string& name : {"  " + every + " ", std::string(300, 'x')}) {
        edit("2", [&](frmEdit& form) {
            ZoneDetails& details = form.general.details;
            EXPECT_EQ(details.txtZoneName.text(), window->lblZoneName.caption());
            EXPECT_EQ(details.picIcon.picture(), window->picZoneIcon.picture());
            typeOver(details.txtZoneName, name);
            typeOver(details.txtZoneDescription, name);
            form.pressEnter();
        });
        EXPECT_EQ(saved("2", "DisplayName"), name.substr(0, 259));
        EXPECT_EQ(saved("2", "Description"), name.substr(0, 199));
        EXPECT_EQ(saved("2", "Icon"), "inetcpl.cpl#00004480");
        EXPECT_EQ(window->lvwZones.item(3).text, name.substr(0, 259));
    }
}

TEST_F(frmEditTest, RefusesABlankNameOrDescription) {
    edit("2", [&](frmEdit& form) {
        ZoneDetails& details = form.general.details;
        const auto expectRefusal = [&](ui::TextBox& box, const std::string& lacking) {
            const std::string before = box.text();
            for (const char* blank : {"", "   "})
                for (const int button : {Default, Apply}) {
                    typeOver(box, blank);
                    details.picIcon.setFocus();
                    system.desktop.expectMessage("You must give this zone a " + lacking + ".", ui::Answer::Ok);
                    form.general.cmdGeneral(button).click();
                    EXPECT_TRUE(box.focused());
                    EXPECT_EQ(box.selectionLength(), static_cast<int>(box.text().size()));
                }
            typeOver(box, before);
        };
        expectRefusal(details.txtZoneName, "name");
        expectRefusal(details.txtZoneDescription, "description");
        EXPECT_EQ(saved("2", "Description"), details.txtZoneDescription.text());
    });
}

TEST_F(frmEditTest, DefaultSavesTheZonesOwnNameDescriptionAndIconAtOnce) {
    for (const char* name : {"DisplayName", "Description", "Icon"}) system.setText(key("2"), name, "shell32.dll#1");
    window->RebuildList();
    edit("2", [&](frmEdit& form) { form.general.cmdGeneral(Default).click(); });
    EXPECT_EQ(saved("2", "DisplayName"), "Trusted sites");
    EXPECT_EQ(saved("2", "Description"),
              "This zone contains Web sites that you trust not to damage your computer or data.");
    EXPECT_EQ(saved("2", "Icon"), "inetcpl.cpl#00004480");
}

TEST_F(frmEditTest, GivesAZoneWithoutIconTheBrowsersOwn) {
    for (const char* icon : {"", "no number", "#18"}) {
        system.setText(key("5"), "Icon", icon);
        edit("5", [&](frmEdit& form) { form.general.cmdGeneral(Apply).click(); });
        EXPECT_EQ(saved("5", "Icon"), program.platform.system.GetSystemDirectoryA() + "\\Inetcpl.cpl#4487") << icon;
    }
}

TEST_F(frmEditTest, AnIconIsChosenFromAFileAndSavedWithApply) {
    const std::string file = system.path("explorer.exe");
    edit("2", [&](frmEdit& form) {
        ui::PictureBox& picture = form.general.details.picIcon;
        const ui::Picture before = picture.picture();
        system.desktop.expectFile(std::nullopt);
        picture.click();
        EXPECT_EQ(system.desktop.lastFileRequest().start, "inetcpl.cpl");
        EXPECT_EQ(picture.picture(), before);
        chooseIcon(form, file, 1);
        EXPECT_NE(picture.picture(), before);
        EXPECT_EQ(saved("2", "Icon"), "inetcpl.cpl#00004480");
        EXPECT_EQ(window->selection().iconFile, "inetcpl.cpl") << "the main window's zone has not changed";
        form.general.cmdGeneral(Apply).click();
        EXPECT_EQ(saved("2", "Icon"), file + "#100");
    });
}

// Flags ---------------------------------------------------------------------------------------------------------

TEST_F(frmEditTest, ShowsFlagsAndTheirDefaultsAndWritesTheBoxesWithApplyAlone) {
    editPage("1", FlagsPage, [&](frmEdit& form) {
        for (const unsigned stored : {0xFFu, 0x55u, 0x100u}) {
            system.setDword(key("1"), "Flags", stored);
            form.TabStrip1.choose(FlagsPage);
            EXPECT_EQ(shown(form), stored & 0xFF);
        }
        form.flags.cmdFlags(Default).click();
        EXPECT_EQ(shown(form), 219u);
        EXPECT_EQ(number("1", "Flags"), 0x100u);
        for (const int box : {7, 6, 4, 1}) form.flags.chkProperties(box).click();
        form.pressEnter();
        EXPECT_EQ(number("1", "Flags"), 9u) << "the bits above the boxes are gone";
        EXPECT_EQ(window->lblFlags.caption(), "9");

        system.deleteValue(key("1"), "Flags");
        form.TabStrip1.choose(FlagsPage);
        EXPECT_EQ(shown(form), 3u);
    });
}

// Levels --------------------------------------------------------------------------------------------------------

TEST_F(frmEditTest, ShowsTheLevelsAsStored) {
    editPage("1", SecurityPage, [&](frmEdit& form) {
        EXPECT_EQ(level(form, CurrentLevel), "Medium-Low|Medium-Low");
        for (const LevelRow& row : LevelRows) system.setDword(key("1"), row.value, 0);
        system.setDword(key("1"), "MinLevel", 70000);
        form.TabStrip1.choose(SecurityPage);
        EXPECT_EQ(level(form, RecommendedLevel), "Medium-Low|Medium-Low") << "custom is no level to recommend";
        EXPECT_EQ(level(form, MinimumLevel), "Low|Low");
        EXPECT_EQ(level(form, CurrentLevel), "Custom|Medium-Low|apply");
    });
    editPage("0", SecurityPage, [&](frmEdit& form) { EXPECT_EQ(level(form, RecommendedLevel), "|"); });
}

TEST_F(frmEditTest, ReadsTheLevelsOfTheZoneAtThePlaceOfItsNumber) {
    system.makeKey(key("10"));
    removeZone("4");
    window->RebuildList();
    // At these places stand the zones 10 and 2, and none.
    for (const auto& [zone, shownLevel] : {std::pair{"2", "|"}, {"3", "Low|Low"}, {"10", "|"}})
        editPage(zone, SecurityPage, [&](frmEdit& form) { EXPECT_EQ(level(form, CurrentLevel), shownLevel) << zone; });
}

TEST_F(frmEditTest, WritesTheChosenRecommendedAndMinimumLevels) {
    const std::tuple<const char*, int, unsigned, unsigned> cases[] = {
        {"2", MediumLow, 66816, 66816}, {"1", DefaultEntry, 66816, 65536}, {"5", DefaultEntry, 73728, 73728}};
    for (const auto& [zone, entry, recommended, minimum] : cases) {
        for (const LevelRow& row : LevelRows) system.setDword(key(zone), row.value, 70000);
        editPage(zone, SecurityPage, [&, entry = entry](frmEdit& form) {
            for (const int index : {RecommendedLevel, MinimumLevel}) {
                form.levels.cboSetting(index).setFocus();
                form.levels.cboSetting(index).choose(entry);
                form.pressEnter();
                EXPECT_FALSE(form.levels.cmdApply(index).enabled());
            }
        });
        EXPECT_EQ(number(zone, "RecommendedLevel"), recommended) << zone;
        EXPECT_EQ(number(zone, "MinLevel"), minimum) << zone;
        EXPECT_EQ(number(zone, "CurrentLevel"), 70000u);
    }
}

TEST_F(frmEditTest, AppliesATemplateAsCurrentLevel) {
    editPage("2", SecurityPage, [&](frmEdit& form) {
        ui::ComboBox& box = form.levels.cboSetting(CurrentLevel);
        box.choose(Medium);
        system.registry.watch.failOn("RegSetValueExA", 1, platform::AccessDenied);
        system.desktop.expectMessage(Refused, ui::Answer::Ok);
        form.levels.cmdApply(CurrentLevel).click();
        ASSERT_TRUE(form.levels.cmdApply(CurrentLevel).enabled()) << "can be tried again";
        form.levels.cmdApply(CurrentLevel).click();
        EXPECT_EQ(number("2", "1800"), 1u);
        EXPECT_EQ(level(form, CurrentLevel), "Low|Medium") << "the label waits for the page to be chosen again";
        form.TabStrip1.choose(SecurityPage);
        EXPECT_EQ(level(form, CurrentLevel), "Medium|Medium");

        system.deleteTree(std::string(zones::TemplatesKey) + "\\High");
        box.choose(High);
        system.desktop.expectMessage(
            "The browser has no settings for the level \"High\" on this computer. The zone is unchanged.",
            ui::Answer::Ok);
        form.pressEnter();
        EXPECT_TRUE(form.levels.cmdApply(CurrentLevel).enabled());
    });
}

TEST_F(frmEditTest, TellsTheUserThatTheZoneIsGone) {
    int page = 0;
    edit("5", [&](frmEdit& form) {
        removeZone("5");
        for (ui::CommandButton* apply :
             {&form.general.cmdGeneral(Apply), &form.flags.cmdFlags(Apply), &form.levels.cmdApply(CurrentLevel)}) {
            system.desktop.expectMessage(NoZone, ui::Answer::Ok);
            form.TabStrip1.choose(1 + page++);
            form.levels.cboSetting(CurrentLevel).choose(Low);  // where it can be reached
            apply->click();
        }
    });
    EXPECT_FALSE(system.exists(key("5"))) << "nothing has made it again";
}
