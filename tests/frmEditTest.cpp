#include "editing/frmEdit.h"

#include "icons/frmIconSelector.h"
#include "support/EditingFixture.h"
#include "zones/Templates.h"

namespace {

class frmEditTest : public EditingFixture {
protected:
    static void typeOver(ui::TextBox& box, const std::string& text) {
        box.selectAll();
        box.type(text);
    }
    std::string savedIcon(const std::string& zone) { return system.text(key(zone), "Icon").value_or("none"); }
    std::uint32_t number(const std::string& zone, const char* name) {
        return system.dword(key(zone), name).value_or(0xFFFFFFFF);
    }
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
    for (const char* zone : {"0", "1", "2", "3", "4", "5", "6"}) {
        SCOPED_TRACE(zone);
        edit(zone, [&](frmEdit& form) {
            EXPECT_EQ(form.general.cmdGeneral(Default).enabled(), *zone < '5');
            for (int i = 0; i < 8; ++i)
                EXPECT_EQ(form.flags.chkProperties(i).enabled(), i != 5 || *zone != '3') << "box " << i;
        });
    }
}

TEST_F(frmEditTest, RepairsAMinimumLevelOfZeroInZone0WhicheverZoneIsEdited) {
    constexpr std::uint32_t None = 0xFFFFFFFF;
    const std::pair<std::uint32_t, std::uint32_t> cases[] = {{None, None}, {70000, 70000}, {0, 65536}};
    for (const auto& [stored, repaired] : cases) {
        if (stored != None) system.setDword(key("0"), "MinLevel", stored);
        edit("2", [](frmEdit&) {});
        EXPECT_EQ(number("0", "MinLevel"), repaired);
    }
    EXPECT_EQ(number("0", "RecommendedLevel"), 65536);
}

TEST_F(frmEditTest, SavesNamesAndDescriptionsAsTyped) {
    std::string every;
    for (int c = 33; c < 256; ++c) every += static_cast<char>(c);
    for (const std::string& name :
         {std::string("  \"quoted\" & C:\\sites\\;no comment "), every, std::string(300, 'x')}) {
        edit("2", [&](frmEdit& form) {
            EXPECT_EQ(form.general.details.txtZoneName.text(), window->lblZoneName.caption());
            EXPECT_EQ(form.general.details.picIcon.picture(), window->picZoneIcon.picture());
            typeOver(form.general.details.txtZoneName, name);
            typeOver(form.general.details.txtZoneDescription, name);
            form.pressEnter();
        });
        EXPECT_EQ(system.text(key("2"), "DisplayName"), name.substr(0, 259));
        EXPECT_EQ(system.text(key("2"), "Description"), name.substr(0, 199));
        EXPECT_EQ(window->lvwZones.item(3).text, name.substr(0, 259));
        EXPECT_EQ(savedIcon("2"), "inetcpl.cpl#00004480");
    }
}

TEST_F(frmEditTest, RefusesABlankNameOrDescription) {
    edit("2", [&](frmEdit& form) {
        ZoneDetails& details = form.general.details;
        const std::string before = *system.text(key("2"), "Description");
        for (ui::TextBox* box : {&details.txtZoneName, &details.txtZoneDescription}) {
            const bool isName = box == &details.txtZoneName;
            for (const char* blank : {"", "   "})
                for (const int button : {Default, Apply}) {
                    typeOver(*box, blank);
                    details.picIcon.setFocus();
                    system.desktop.expectMessage(
                        isName ? "You must give this zone a name." : "You must give this zone a description.",
                        ui::Answer::Ok);
                    form.general.cmdGeneral(button).click();
                    EXPECT_TRUE(box->focused());
                    EXPECT_EQ(box->selectionLength(), static_cast<int>(box->text().size()));
                }
            typeOver(*box, "text");
        }
        EXPECT_EQ(system.text(key("2"), "Description"), before);
    });
}

TEST_F(frmEditTest, DefaultSavesTheZonesOwnNameDescriptionAndIconAtOnce) {
    system.setText(key("2"), "DisplayName", "Mine");
    system.setText(key("2"), "Icon", "shell32.dll#1");
    edit("2", [&](frmEdit& form) { form.general.cmdGeneral(Default).click(); });
    EXPECT_EQ(system.text(key("2"), "DisplayName"), "Trusted sites");
    EXPECT_EQ(system.text(key("2"), "Description"),
              "This zone contains Web sites that you trust not to damage your computer or data.");
    EXPECT_EQ(savedIcon("2"), "inetcpl.cpl#00004480");
    EXPECT_EQ(window->lvwZones.item(3).text, "Trusted sites");
}

TEST_F(frmEditTest, GivesAZoneWithoutIconTheBrowsersOwn) {
    for (const char* icon : {"", "no number", "#18"}) {
        system.setText(key("5"), "Icon", icon);
        edit("5", [&](frmEdit& form) { form.general.cmdGeneral(Apply).click(); });
        EXPECT_EQ(savedIcon("5"), program.platform.system.GetSystemDirectoryA() + "\\Inetcpl.cpl#4487") << icon;
    }
}

TEST_F(frmEditTest, AnIconIsChosenFromAFileAndSavedWithApply) {
    const std::string file = system.path("chosen.dll");
    simulated::ProgramFile icons;
    icons::addTo(icons, std::uint16_t{7}, icons::usualImages(7), 1);
    system.addProgram("chosen.dll", icons);
    edit("2", [&](frmEdit& form) {
        ui::PictureBox& picture = form.general.details.picIcon;
        const ui::Picture before = picture.picture();
        system.desktop.expectFile(std::nullopt);
        picture.click();
        EXPECT_EQ(system.desktop.lastFileRequest().start, "inetcpl.cpl");
        EXPECT_EQ(picture.picture(), before);
        system.desktop.expectFile(file);
        system.desktop.expectForm<frmIconSelector>([](frmIconSelector& selector) {
            selector.tmrLoad.tick();
            selector.lvwIcons.click(1);
            selector.tmrUnload.tick();
        });
        picture.click();
        EXPECT_NE(picture.picture(), before);
        EXPECT_EQ(savedIcon("2"), "inetcpl.cpl#00004480");
        EXPECT_EQ(program.selection.iconFile, "inetcpl.cpl") << "the main window's zone has not changed";
        form.general.cmdGeneral(Apply).click();
        EXPECT_EQ(savedIcon("2"), file + "#7");
    });
}

// Flags ---------------------------------------------------------------------------------------------------------

TEST_F(frmEditTest, ShowsFlagsAndTheirDefaultsAndWritesTheBoxesWithApplyAlone) {
    editPage("1", FlagsPage, [&](frmEdit& form) {
        for (const unsigned stored : {0u, 0xFFu, 0x55u, 0x100u}) {
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
        EXPECT_EQ(level(form, RecommendedLevel), "Medium-Low|Medium-Low");
        EXPECT_EQ(level(form, MinimumLevel), "Low|Low");
        EXPECT_EQ(level(form, CurrentLevel), "Medium-Low|Medium-Low");

        system.setDword(key("1"), "RecommendedLevel", 0);
        system.setDword(key("1"), "MinLevel", 70000);
        system.setDword(key("1"), "CurrentLevel", 0);
        form.TabStrip1.choose(SecurityPage);
        EXPECT_EQ(level(form, RecommendedLevel), "Medium-Low|Medium-Low") << "custom is no level to recommend";
        EXPECT_EQ(level(form, MinimumLevel), "Low|Low");
        EXPECT_EQ(level(form, CurrentLevel), "Custom|Medium-Low|apply");
    });
    editPage("0", SecurityPage, [&](frmEdit& form) {
        EXPECT_EQ(level(form, RecommendedLevel), "|");
        EXPECT_EQ(level(form, CurrentLevel), "Custom|");
    });
}

TEST_F(frmEditTest, ReadsTheLevelsOfTheZoneAtThePlaceOfItsNumber) {
    system.makeKey(key("10"));
    removeZone("4");
    window->RebuildList();
    // At these places stand the zones 10 and 2, and none.
    const std::pair<const char*, const char*> cases[] = {{"2", "|"}, {"3", "Low|Low"}, {"10", "|"}};
    for (const auto& [zone, shownLevel] : cases)
        editPage(zone, SecurityPage, [&](frmEdit& form) { EXPECT_EQ(level(form, CurrentLevel), shownLevel) << zone; });
}

TEST_F(frmEditTest, WritesTheChosenRecommendedAndMinimumLevels) {
    const struct {
        const char* zone;
        int entry;
        std::uint32_t recommended, minimum;
    } cases[] = {
        {"2", High, 73728, 73728},         {"2", MediumLow, 66816, 66816},    {"1", DefaultEntry, 66816, 65536},
        {"3", DefaultEntry, 69632, 69632}, {"5", DefaultEntry, 73728, 73728},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.zone) + " entry " + std::to_string(c.entry));
        for (const LevelRow& row : LevelRows) system.setDword(key(c.zone), row.value, 70000);
        editPage(c.zone, SecurityPage, [&](frmEdit& form) {
            for (const int index : {RecommendedLevel, MinimumLevel}) {
                form.levels.cboSetting(index).setFocus();
                form.levels.cboSetting(index).choose(c.entry);
                EXPECT_TRUE(form.levels.cmdApply(index).enabled());
                form.pressEnter();
                EXPECT_FALSE(form.levels.cmdApply(index).enabled());
            }
        });
        EXPECT_EQ(number(c.zone, "RecommendedLevel"), c.recommended);
        EXPECT_EQ(number(c.zone, "MinLevel"), c.minimum);
        EXPECT_EQ(number(c.zone, "CurrentLevel"), 70000u);
    }
}

TEST_F(frmEditTest, AppliesATemplateAsCurrentLevel) {
    editPage("2", SecurityPage, [&](frmEdit& form) {
        ui::ComboBox& box = form.levels.cboSetting(CurrentLevel);
        box.choose(Low);
        EXPECT_EQ(level(form, CurrentLevel), "Low|Low") << "nothing to apply";
        box.choose(Medium);
        system.registry.watch.failOn("RegSetValueExA", 1, platform::AccessDenied);
        system.desktop.expectMessage(Refused, ui::Answer::Ok);
        form.levels.cmdApply(CurrentLevel).click();
        ASSERT_TRUE(form.levels.cmdApply(CurrentLevel).enabled()) << "can be tried again";
        form.levels.cmdApply(CurrentLevel).click();
        EXPECT_EQ(number("2", "CurrentLevel"), 69632u);
        EXPECT_EQ(system.dword(key("2"), "1800"), 1u);
        EXPECT_EQ(level(form, CurrentLevel), "Low|Medium") << "the label waits for the page to be chosen again";
        form.TabStrip1.choose(SecurityPage);
        EXPECT_EQ(level(form, CurrentLevel), "Medium|Medium");

        system.deleteTree(std::string(zones::TemplatesKey) + "\\High");
        box.choose(High);
        system.desktop.expectMessage(
            "The browser has no settings for the level \"High\" on this computer. The zone is unchanged.",
            ui::Answer::Ok);
        form.levels.cmdApply(CurrentLevel).click();
        EXPECT_EQ(number("2", "CurrentLevel"), 69632u);
        EXPECT_TRUE(form.levels.cmdApply(CurrentLevel).enabled());
    });
}

TEST_F(frmEditTest, TellsTheUserThatTheZoneIsGone) {
    edit("5", [&](frmEdit& form) {
        removeZone("5");
        system.desktop.expectMessage(NoZone, ui::Answer::Ok);
        form.general.cmdGeneral(Apply).click();
        form.TabStrip1.choose(FlagsPage);
        EXPECT_EQ(shown(form), 3u);
        system.desktop.expectMessage(NoZone, ui::Answer::Ok);
        form.flags.cmdFlags(Apply).click();
        form.TabStrip1.choose(SecurityPage);
        form.levels.cboSetting(CurrentLevel).choose(Low);
        system.desktop.expectMessage(NoZone, ui::Answer::Ok);
        form.levels.cmdApply(CurrentLevel).click();
    });
    EXPECT_FALSE(system.exists(key("5"))) << "nothing has made it again";
}
