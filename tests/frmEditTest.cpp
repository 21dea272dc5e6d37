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

IN_MEMORY_TEST_F(frmEditTest, RepairsAMinimumLevelOfZeroInZone0WhicheverZoneIsEdited) {
    for (const auto& [stored, repaired] : {std::pair{None, None}, {70000u, 70000u}, {0u, 65536u}}) {
        if (stored != None) system.setDword(key("0"), "MinLevel", stored);
        edit("2", [](frmEdit&) {});
        EXPECT_EQ(number("0", "MinLevel"), repaired);
    }
    EXPECT_EQ(number("0", "RecommendedLevel"), 65536);
    system.setDword(key("0"), "MinLevel", 0);
    select("2");
    system.registry.watch.failOn("RegSetValueExA", 1, platform::AccessDenied);
    edit("2", [](frmEdit&) {});  // a repair that is refused is not told
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
                    system.desktop.expectMessage(lacking);
                    form.general.cmdGeneral(button).click();
                    EXPECT_TRUE(box.focused());
                    EXPECT_EQ(box.selectionLength(), static_cast<int>(box.text().size()));
                }
            typeOver(box, before);
        };
        expectRefusal(details.txtZoneName, "no name");
        expectRefusal(details.txtZoneDescription, "no description");
        EXPECT_EQ(saved("2", "Description"), details.txtZoneDescription.text());
    });
}

TEST_F(frmEditTest, WritesAnIconOnlyForAZoneThatHasNoneThatCanBeUsed) {
    const std::string browsers = program.platform.system.GetSystemDirectoryA() + "\\Inetcpl.cpl#4487";
    const std::pair<const char*, std::string> cases[] = {
        {"", browsers},
        {"no number", browsers},
        {"#18", browsers},
        {"shell32.dll#", browsers},
        {"C:\\a\"b\"c.dll#5", browsers},
        {"missing.dll#18", "missing.dll#18"},
        {"C:\\my#icons\\x.dll#0018", "C:\\my#icons\\x.dll#0018"},
    };
    for (const auto& [stored, kept] : cases) {
        system.setText(key("5"), "Icon", stored);
        edit("5", [&](frmEdit& form) { form.general.cmdGeneral(Apply).click(); });
        EXPECT_EQ(saved("5", "Icon"), kept) << stored;
    }
    edit("2", [&](frmEdit& form) {
        system.setText(key("2"), "Icon", "shell32.dll#18");
        form.general.cmdGeneral(Apply).click();
        EXPECT_EQ(saved("2", "Icon"), "shell32.dll#18") << "which another program has chosen meanwhile";
        system.setText(key("2"), "Description", "another's");
        form.general.cmdGeneral(Default).click();
    });
    EXPECT_EQ(saved("2", "Icon"), "inetcpl.cpl#00004480");
    EXPECT_EQ(saved("2", "Description"),
              "This zone contains Web sites that you trust not to damage your computer or data.");
}

TEST_F(frmEditTest, RefusesAnIconFileThatAReferenceCannotName) {
    edit("2", [&](frmEdit& form) {
        system.desktop.expectFile("C:\\my#icons\\x.dll");
        system.desktop.expectMessage("icon path|C:\\my#icons\\x.dll");
        form.general.details.picIcon.click();
        form.general.cmdGeneral(Apply).click();
    });
    EXPECT_EQ(saved("2", "Icon"), "inetcpl.cpl#00004480");
}

TEST_F(frmEditTest, ShowsWhatIsTooLongForTheBrowserWholeAndDoesNotSaveIt) {
    const std::string name(260, 'n'), description(200, 'd');
    system.setText(key("2"), "DisplayName", name);
    system.setText(key("2"), "Description", description);
    window->RebuildList();
    edit("2", [&](frmEdit& form) {
        ZoneDetails& details = form.general.details;
        EXPECT_EQ(details.txtZoneName.text(), name);
        EXPECT_EQ(details.txtZoneDescription.text(), description);
        const auto expectRefusal = [&](ui::TextBox& box, const std::string& message) {
            system.desktop.expectMessage(message);
            form.general.cmdGeneral(Apply).click();
            EXPECT_TRUE(box.focused());
            EXPECT_EQ(saved("2", "DisplayName") + saved("2", "Description"), name + description);
        };
        expectRefusal(details.txtZoneName, "long name");
        typeOver(details.txtZoneName, "Short");
        expectRefusal(details.txtZoneDescription, "long description");
        form.general.cmdGeneral(Default).click();
        EXPECT_EQ(saved("2", "DisplayName"), "Trusted sites");
    });
}

TEST_F(frmEditTest, AZoneWithoutValuesKeepsWhatItHasWhenItIsSavedUnchanged) {
    system.deleteTree(key("5"));
    system.setDword(key("5"), "1200", 3);
    window->RebuildList();
    edit("5", [&](frmEdit& form) {
        form.pressEnter();
        form.TabStrip1.choose(FlagsPage);
        form.pressEnter();
    });
    EXPECT_EQ(saved("5", "DisplayName"), "Missing Name");
    EXPECT_EQ(saved("5", "Description"), "Missing Description");
    EXPECT_EQ(number("5", "Flags"), 3u);
    EXPECT_EQ(number("5", "1200"), 3u);
    EXPECT_EQ(system.values(key("5")).size(), 5u) << "no level";
}

// Told once; until it can be read nothing of the page can be pressed.
IN_MEMORY_TEST_F(frmEditTest, DoesNotSaveWhatCouldNotBeRead) {
    const struct {
        const char *zone, *value, *message;
        int page;
    } cases[] = {
        {"2", "DisplayName", "names unreadable", GeneralTab}, {"2", "Description", "names unreadable", GeneralTab},
        {"2", "Icon", "names unreadable", GeneralTab},        {"2", "Flags", "flags unreadable", FlagsPage},
        {"3", "Flags", "flags unreadable", FlagsPage},        {"2", "MinLevel", "levels unreadable", SecurityPage}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.zone + std::string(c.value));
        const auto before = system.value(key(c.zone), c.value);
        if (before->type == platform::RegDword)
            system.setText(key(c.zone), c.value, "65536");
        else
            system.setDword(key(c.zone), c.value, 7);
        const auto damaged = system.value(key(c.zone), c.value);
        window->RebuildList();
        if (c.page == GeneralTab) system.desktop.expectMessage(c.message);
        edit(c.zone, [&](frmEdit& form) {
            if (c.page != GeneralTab) system.desktop.expectMessage(c.message);
            std::vector<ui::Control*> controls;
            for (const int i : {0, 1, 2})
                if (c.page == SecurityPage) controls.push_back(&form.levels.cmdApply(i));
            for (const int i : {Default, Apply})
                if (c.page == GeneralTab) controls.push_back(&form.general.cmdGeneral(i));
            for (const int i : {Default, Apply})
                if (c.page == FlagsPage)
                    controls.insert(controls.end(), {&form.flags.cmdFlags(i), &form.flags.chkProperties(i)});
            for (const bool readable : {false, false, true}) {
                if (readable) system.set(*before);
                form.TabStrip1.choose(c.page);
                for (const int i : {0, 1, 2}) form.levels.cboSetting(i).choose(High);
                for (const ui::Control* control : controls) EXPECT_EQ(control->enabled(), readable) << control->name();
                if (!readable) form.levels.cboSetting(MinimumLevel).setFocus();
                if (!readable) form.pressEnter();
                EXPECT_EQ(system.value(key(c.zone), c.value)->data, (readable ? before : damaged)->data);
            }
            EXPECT_TRUE(c.page != FlagsPage || form.flags.chkProperties(5).enabled() == (*c.zone != '3'));
            if (c.page == SecurityPage) return;
            form.pressEnter();
            EXPECT_EQ(system.value(key(c.zone), c.value)->data, before->data) << "saved as it was";
        });
    }
    edit("2", [&](frmEdit& form) {
        system.registry.watch.failOn("RegEnumKeyExA", 1, platform::OutOfMemory);
        system.desktop.expectMessage("levels unreadable");
        form.TabStrip1.choose(SecurityPage);
        EXPECT_FALSE(form.levels.cmdApply(MinimumLevel).enabled());
    });
}

// Another program -----------------------------------------------------------------------------------------------

TEST_F(frmEditTest, ChangesNothingInAZoneThatHasBecomeAnotherSinceItWasShown) {
    edit("5", [&](frmEdit& form) {
        for (const char* value : {"MinLevel", "CurrentLevel", "Flags"}) system.setDword(key("5"), value, 65536);
        system.setText(key("5"), "DisplayName", "Other");
        const std::pair<int, ui::CommandButton*> buttons[] = {{GeneralTab, &form.general.cmdGeneral(Apply)},
                                                              {SecurityPage, &form.levels.cmdApply(MinimumLevel)},
                                                              {SecurityPage, &form.levels.cmdApply(CurrentLevel)},
                                                              {FlagsPage, &form.flags.cmdFlags(Apply)}};
        for (const auto& [page, button] : buttons) {
            form.TabStrip1.choose(page);
            form.levels.cboSetting(MinimumLevel).choose(Medium);
            form.levels.cboSetting(CurrentLevel).choose(Medium);
            system.desktop.expectMessage("changed, not saved");
            button->click();
        }
        EXPECT_EQ(saved("5", "DisplayName"), "Other");
        EXPECT_EQ(number("5", "Flags"), 65536u);
        EXPECT_EQ(number("5", "MinLevel"), 65536u);
        EXPECT_EQ(number("5", "CurrentLevel"), 65536u);
    });
    EXPECT_EQ(window->lvwZones.item(6).text, "Other") << "the list has been read again";
}

TEST_F(frmEditTest, TellsTheUserThatTheZoneIsGone) {
    edit("5", [&](frmEdit& form) {
        removeZone("5");
        system.desktop.expectMessage("gone, not saved");
        form.general.cmdGeneral(Apply).click();
        system.desktop.expectMessage("gone");
        form.TabStrip1.choose(FlagsPage);
        form.flags.cmdFlags(Apply).click();
        form.TabStrip1.choose(SecurityPage);
        form.levels.cboSetting(CurrentLevel).choose(Low);
        system.desktop.expectMessage("gone, not saved");
        form.levels.cmdApply(CurrentLevel).click();
    });
    EXPECT_FALSE(system.exists(key("5"))) << "nothing has made it again";
}

IN_MEMORY_TEST_F(frmEditTest, KnowsTheZoneByTheNameThatItHasSaved) {
    edit("5", [&](frmEdit& form) {
        EXPECT_EQ(form.lblZone.caption(), saved("5", "DisplayName"));
        typeOver(form.general.details.txtZoneName, "Renamed");
        form.pressEnter();
        EXPECT_EQ(form.lblZone.caption(), "Renamed");
        // The name is the first that is written.
        typeOver(form.general.details.txtZoneName, "Again");
        system.registry.watch.failOn("RegSetValueExA", 2, platform::AccessDenied);
        system.desktop.expectMessage("saved in part");
        form.pressEnter();
        EXPECT_EQ(form.lblZone.caption(), "Again");
        form.TabStrip1.choose(FlagsPage);
        form.flags.cmdFlags(Apply).click();
    });
}

TEST_F(frmEditTest, AnIconIsChosenFromAFileAndSavedWithApply) {
    const std::string file = system.path("explorer.exe");
    edit("2", [&](frmEdit& form) {
        ui::PictureButton& picture = form.general.details.picIcon;
        const ui::Picture before = picture.picture();
        system.desktop.expectFile(std::nullopt, "inetcpl.cpl");
        picture.click();
        EXPECT_EQ(picture.picture(), before);
        chooseIcon(form, file, 1);
        EXPECT_NE(picture.picture(), before);
        EXPECT_EQ(saved("2", "Icon"), "inetcpl.cpl#00004480");
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
    editPage("0", SecurityPage, [&](frmEdit& form) { EXPECT_EQ(level(form, RecommendedLevel), "**Missing**|"); });
}

TEST_F(frmEditTest, ReadsTheLevelsOfTheZoneAtThePlaceOfItsNumber) {
    system.makeKey(key("10"));
    removeZone("4");
    window->RebuildList();
    // At these places stand the zones 10 and 2, and none.
    for (const auto& [zone, shownLevel] : {std::pair{"2", "|"}, {"3", "Low|Low"}, {"10", "|"}})
        editPage(zone, SecurityPage, [&, zone = zone, shownLevel = shownLevel](frmEdit& form) {
            EXPECT_EQ(level(form, CurrentLevel), shownLevel) << zone;
        });
}

TEST_F(frmEditTest, TurnsItsPagesByKeyboard) {
    edit("1", [](frmEdit& form) {
        for (const auto& [key, page] : {std::pair{ui::FormKey::NextPage, FlagsPage},
                                        {ui::FormKey::NextPage, SecurityPage},
                                        {ui::FormKey::NextPage, 1},
                                        {ui::FormKey::PreviousPage, SecurityPage}}) {
            EXPECT_TRUE(form.pressKey(key));
            EXPECT_TRUE(form.TabStrip1.selected() == page && form.Picture1(page - 1).showing()) << page;
            EXPECT_TRUE(form.TabStrip1.focused());
            form.cmdClose.setFocus();
        }
    });
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

IN_MEMORY_TEST_F(frmEditTest, AppliesATemplateAsCurrentLevel) {
    editPage("2", SecurityPage, [&](frmEdit& form) {
        ui::ComboBox& box = form.levels.cboSetting(CurrentLevel);
        box.choose(Medium);
        system.registry.watch.failOn("RegSetValueExA", 1, platform::AccessDenied);
        system.desktop.expectMessage("saved in part");
        form.levels.cmdApply(CurrentLevel).click();
        ASSERT_TRUE(form.levels.cmdApply(CurrentLevel).enabled()) << "can be tried again";
        form.levels.cmdApply(CurrentLevel).click();
        EXPECT_EQ(number("2", "1800"), 1u);
        EXPECT_EQ(window->lblCurrent.caption(), "Medium");
        EXPECT_EQ(level(form, CurrentLevel), "Low|Medium") << "the label waits for the page to be chosen again";
        form.TabStrip1.choose(SecurityPage);
        EXPECT_EQ(level(form, CurrentLevel), "Medium|Medium");

        system.deleteTree(std::string(zones::TemplatesKey) + "\\High");
        box.choose(High);
        system.desktop.expectMessage("no template|High");
        form.levels.cmdApply(CurrentLevel).click();
        EXPECT_TRUE(form.levels.cmdApply(CurrentLevel).enabled());
        box.choose(Low);
        system.registry.watch.failOn("RegEnumValueA", 1, platform::OutOfMemory);
        system.desktop.expectMessage("template unreadable|Low");
        form.levels.cmdApply(CurrentLevel).click();
        EXPECT_EQ(number("2", "CurrentLevel"), 69632u);
    });
}

TEST_F(frmEditTest, EnterAppliesTheBoxThatHasTheFocusAndOtherwiseCloses) {
    editPage("2", SecurityPage, [&](frmEdit& form) {
        form.levels.cboSetting(CurrentLevel).choose(High);
        form.levels.cboSetting(MinimumLevel).setFocus();
        form.levels.cboSetting(MinimumLevel).choose(Medium);
        form.pressEnter();
        EXPECT_EQ(number("2", "MinLevel"), 69632u);
        form.TabStrip1.setFocus();
        form.pressEnter();
        EXPECT_FALSE(form.loaded());
    });
    EXPECT_EQ(number("2", "CurrentLevel"), 65536u);
    editPage("2", SecurityPage, [&](frmEdit& form) {
        form.levels.cboSetting(CurrentLevel).setFocus();
        form.levels.cboSetting(CurrentLevel).choose(Medium);
        form.levels.cmdSecurity.setFocus();
        form.pressEnter();
        EXPECT_FALSE(form.loaded());
    });
    EXPECT_EQ(number("2", "CurrentLevel"), 65536u);
}
