#include "editing/frmEdit.h"

#include "support/User.h"
#include "ui/ComboBox.h"
#include "zones/Templates.h"

namespace {

struct frmEditTest : User {
    frmEditTest() { system.seedAll(); }

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
    // Chooses a level and applies it, which the user is told something of.
    std::string apply(frmEdit& form, int index, int entry, const char* message = nullptr) {
        form.levels.cboSetting(index).choose(entry);
        if (message) desktop.expectMessage(message);
        form.levels.cmdApply(index).click();
        return level(form, index);
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
    edit("2", [](frmEdit&) {});
    EXPECT_EQ(stored("0", "MinLevel"), "none");
    for (const auto& [before, repaired] : {std::pair{70000u, "#70000"}, {0u, "#65536"}}) {
        system.setDword(zoneKey("0"), "MinLevel", before);
        edit("2", [](frmEdit&) {});
        EXPECT_EQ(stored("0", "MinLevel"), repaired);
    }
    EXPECT_EQ(stored("0", "RecommendedLevel"), "#65536");
    system.setDword(zoneKey("0"), "MinLevel", 0);
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
            EXPECT_EQ(details.txtZoneName.text(), window().lblZoneName.caption());
            EXPECT_EQ(details.picIcon.picture(), window().picZoneIcon.picture());
            typeOver(details.txtZoneName, name);
            typeOver(details.txtZoneDescription, name);
            form.pressEnter();
        });
        EXPECT_EQ(stored("2", "DisplayName"), name.substr(0, 259));
        EXPECT_EQ(stored("2", "Description"), name.substr(0, 199));
        EXPECT_EQ(stored("2", "Icon"), "inetcpl.cpl#00004480");
        EXPECT_EQ(window().lvwZones.item(3).text, name.substr(0, 259));
    }
}

TEST_F(frmEditTest, RefusesNamesAndDescriptionsThatAreBlankOrTooLongForTheBrowser) {
    const std::string name(260, 'n'), description(200, 'd');
    set("2", {{"DisplayName", name}, {"Description", description}});
    edit("2", [&](frmEdit& form) {
        ZoneDetails& details = form.general.details;
        EXPECT_EQ(details.txtZoneName.text(), name);
        EXPECT_EQ(details.txtZoneDescription.text(), description);
        const auto expectRefusal = [&](ui::TextBox& box, int button, const std::string& message) {
            button == Apply ? box.setFocus() : details.picIcon.setFocus();
            box.select(0, 0);
            desktop.expectMessage(message);
            form.general.cmdGeneral(button).click();
            EXPECT_TRUE(box.focused());
            EXPECT_EQ(box.selectionLength(), static_cast<int>(box.text().size()));
            EXPECT_EQ(stored("2", "DisplayName") + stored("2", "Description"), name + description);
        };
        for (const auto& [box, what] :
             {std::pair{&details.txtZoneName, "name"}, {&details.txtZoneDescription, "description"}}) {
            expectRefusal(*box, Apply, std::string("long ") + what);
            for (const char* blank : {"", "   "})
                for (const int button : {Default, Apply}) {
                    typeOver(*box, blank);
                    expectRefusal(*box, button, std::string("no ") + what);
                }
            typeOver(*box, "Short");
        }
        form.general.cmdGeneral(Default).click();
        EXPECT_EQ(stored("2", "DisplayName") + "|" + stored("2", "Description"),
                  "Trusted sites|This zone contains Web sites that you trust not to damage your computer or data.");
    });
}

TEST_F(frmEditTest, WritesAnIconOnlyForAZoneThatHasNoneThatCanBeUsed) {
    const std::string browsers = program.platform.system.GetSystemDirectoryA() + "\\Inetcpl.cpl#4487";
    const std::pair<const char*, std::string> cases[] = {
        {"", browsers},
        {"#18", browsers},
        {"shell32.dll#", browsers},
        {"C:\\a\"b\"c.dll#5", browsers},
        {"missing.dll#18", "missing.dll#18"},
        {"C:\\my#icons\\x.dll#0018", "C:\\my#icons\\x.dll#0018"},
    };
    for (const auto& [icon, kept] : cases) {
        system.setText(zoneKey("5"), "Icon", icon);
        edit("5", [&](frmEdit& form) { form.general.cmdGeneral(Apply).click(); });
        EXPECT_EQ(stored("5", "Icon"), kept) << icon;
    }
    edit("2", [&](frmEdit& form) {
        system.setText(zoneKey("2"), "Icon", "shell32.dll#18");
        form.general.cmdGeneral(Apply).click();
        EXPECT_EQ(stored("2", "Icon"), "shell32.dll#18") << "which another program has chosen meanwhile";
        form.general.cmdGeneral(Default).click();
    });
    EXPECT_EQ(stored("2", "Icon"), "inetcpl.cpl#00004480");
}

TEST_F(frmEditTest, AZoneWithoutValuesKeepsWhatItHasWhenItIsSavedUnchanged) {
    system.deleteTree(zoneKey("5"));
    system.setDword(zoneKey("5"), "1200", 3);
    edit("5", [&](frmEdit& form) {
        form.pressEnter();
        form.TabStrip1.choose(FlagsPage);
        form.pressEnter();
    });
    const auto saved = stored("5", "DisplayName") + "|" + stored("5", "Description") + "|" + stored("5", "Flags");
    EXPECT_EQ(saved + stored("5", "1200"), "Missing Name|Missing Description|#3#3");
    EXPECT_EQ(system.values(zoneKey("5")).size(), 5u) << "these and an icon";
}

// Told once; until it can be read nothing of the page can be pressed.
IN_MEMORY_TEST_F(frmEditTest, DoesNotSaveWhatCouldNotBeRead) {
    const struct {
        const char *zone, *value, *message;
        int page, buttons;
    } cases[] = {{"2", "DisplayName", "names unreadable", GeneralTab, 2},
                 {"2", "Description", "names unreadable", GeneralTab, 2},
                 {"2", "Icon", "names unreadable", GeneralTab, 2},
                 {"2", "Flags", "flags unreadable", FlagsPage, 10},
                 {"3", "Flags", "flags unreadable", FlagsPage, 9},
                 {"2", "MinLevel", "levels unreadable", SecurityPage, 3}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.zone + std::string(c.value));
        const std::string before = stored(c.zone, c.value), damaged = before[0] == '#' ? "65536" : "#7";
        set(c.zone, {{c.value, damaged}});
        window().RebuildList();
        if (c.page == GeneralTab) desktop.expectMessage(c.message);
        edit(c.zone, [&](frmEdit& form) {
            if (c.page != GeneralTab) desktop.expectMessage(c.message);
            const auto choose = [&] {
                form.TabStrip1.choose(c.page);
                for (const int i : {0, 1, 2}) form.levels.cboSetting(i).choose(High);
                return std::ranges::count_if(form.controls(), [&](const ui::Control* control) {
                    const bool isButton = dynamic_cast<const ui::CommandButton*>(control) != nullptr;
                    return control->showing() && control->enabled() && control != &form.cmdClose &&
                           control != &form.levels.cmdSecurity &&
                           (isButton || dynamic_cast<const ui::CheckBox*>(control) != nullptr);
                });
            };
            for (int twice = 0; twice < 2; ++twice) {
                EXPECT_EQ(choose(), 0);
                form.levels.cboSetting(MinimumLevel).setFocus();
                form.pressEnter();
                EXPECT_EQ(stored(c.zone, c.value), damaged);
            }
            set(c.zone, {{c.value, before}});
            EXPECT_EQ(choose(), c.buttons);
            if (c.page == SecurityPage) return;
            form.pressEnter();
            EXPECT_EQ(stored(c.zone, c.value), before) << "saved as it was";
        });
    }
}

// Another program -----------------------------------------------------------------------------------------------

TEST_F(frmEditTest, ChangesNothingInAZoneThatHasBecomeAnotherOrIsGoneSinceItWasShown) {
    for (const bool gone : {false, true}) {
        TestSystem::Tree before;
        edit("5", [&](frmEdit& form) {
            if (gone) system.deleteTree(zoneKey("5"));
            if (!gone) system.setText(zoneKey("5"), "DisplayName", "Other");
            before = system.tree(zoneKey("5"));
            const std::tuple<int, ui::CommandButton*, const char*> buttons[] = {
                {GeneralTab, &form.general.cmdGeneral(Apply), "gone, not saved"},
                {FlagsPage, &form.flags.cmdFlags(Apply), "gone"},
                {SecurityPage, &form.levels.cmdApply(MinimumLevel), "gone, not saved"},
                {SecurityPage, &form.levels.cmdApply(CurrentLevel), "gone, not saved"}};
            for (const auto& [page, button, message] : buttons) {
                desktop.expectMessage(gone ? message : "changed, not saved");
                form.TabStrip1.choose(page);
                form.flags.chkProperties(0).click();
                for (const int level : {MinimumLevel, CurrentLevel}) form.levels.cboSetting(level).choose(Low);
                button->click();
            }
        });
        EXPECT_EQ(system.tree(zoneKey("5")), before);
        EXPECT_EQ(names()[5], gone ? "Under review" : "Other") << "the list has been read again";
    }
}

IN_MEMORY_TEST_F(frmEditTest, KnowsTheZoneByTheNameThatItHasSaved) {
    edit("5", [&](frmEdit& form) {
        EXPECT_EQ(form.lblZone.caption(), stored("5", "DisplayName"));
        EXPECT_TRUE(form.lblZone.oneLine());
        typeOver(form.general.details.txtZoneName, "Renamed");
        form.pressEnter();
        EXPECT_EQ(form.lblZone.caption(), "Renamed");
        // The name is the first that is written.
        typeOver(form.general.details.txtZoneName, "Again");
        system.registry.watch.failOn("RegSetValueExA", 2, platform::AccessDenied);
        desktop.expectMessage("saved in part");
        form.pressEnter();
        EXPECT_EQ(form.lblZone.caption(), "Again");
        form.TabStrip1.choose(FlagsPage);
        system.registry.watch.failOn("RegQueryValueExA", 1, platform::OutOfMemory);
        desktop.expectMessage("unreadable, not saved|" + zoneKey("5"));
        const std::string flags = stored("5", "Flags");
        form.flags.chkProperties(0).click();
        form.flags.cmdFlags(Apply).click();
        EXPECT_EQ(stored("5", "Flags"), flags);
        form.flags.cmdFlags(Apply).click();
    });
}

TEST_F(frmEditTest, AnIconIsChosenFromAFileThatAReferenceCanNameAndSavedWithApply) {
    const std::string file = system.path("explorer.exe"), before = "inetcpl.cpl#00004480";
    edit("2", [&](frmEdit& form) {
        ui::PictureButton& picture = form.general.details.picIcon;
        const ui::Picture first = picture.picture();
        desktop.expectFile(std::nullopt);
        picture.click();
        EXPECT_EQ(picture.picture(), first);
        desktop.expectFile("C:\\my#icons\\x.dll");
        desktop.expectMessage("icon path|C:\\my#icons\\x.dll");
        picture.click();
        form.general.cmdGeneral(Apply).click();
        EXPECT_EQ(stored("2", "Icon"), before);
        chooseIcon(form, file, 1);
        EXPECT_NE(picture.picture(), first);
        EXPECT_EQ(stored("2", "Icon"), before);
        form.general.cmdGeneral(Apply).click();
        EXPECT_EQ(stored("2", "Icon"), file + "#100");
    });
}

// Flags ---------------------------------------------------------------------------------------------------------

TEST_F(frmEditTest, ShowsFlagsAndTheirDefaultsAndWritesTheBoxesWithApplyAlone) {
    editPage("1", FlagsPage, [&](frmEdit& form) {
        for (const unsigned stored : {0xFFu, 0x55u, 0x100u}) {
            system.setDword(zoneKey("1"), "Flags", stored);
            form.TabStrip1.choose(FlagsPage);
            EXPECT_EQ(shown(form), stored & 0xFF);
        }
        form.flags.cmdFlags(Default).click();
        EXPECT_EQ(shown(form), 219u);
        EXPECT_EQ(stored("1", "Flags"), "#256");
        for (const int box : {7, 6, 4, 1}) form.flags.chkProperties(box).click();
        form.pressEnter();
        EXPECT_EQ(stored("1", "Flags"), "#9") << "the bits above the boxes are gone";
        EXPECT_EQ(window().lblFlags.caption(), "9");

        system.deleteValue(zoneKey("1"), "Flags");
        form.TabStrip1.choose(FlagsPage);
        EXPECT_EQ(shown(form), 3u);
    });
}

// Levels --------------------------------------------------------------------------------------------------------

TEST_F(frmEditTest, ShowsTheLevelsAsStored) {
    editPage("1", SecurityPage, [&](frmEdit& form) {
        EXPECT_EQ(level(form, CurrentLevel), "Medium-Low|Medium-Low");
        set("1", {{"RecommendedLevel", "#0"}, {"MinLevel", "#70000"}, {"CurrentLevel", "#0"}});
        form.TabStrip1.choose(SecurityPage);
        EXPECT_EQ(level(form, RecommendedLevel), "Medium-Low|Medium-Low") << "custom is no level to recommend";
        EXPECT_EQ(level(form, MinimumLevel), "Low|Low");
        EXPECT_EQ(level(form, CurrentLevel), "Custom|Medium-Low|apply");
    });
    editPage("0", SecurityPage, [&](frmEdit& form) { EXPECT_EQ(level(form, RecommendedLevel), "**Missing**|"); });
}

TEST_F(frmEditTest, ReadsTheLevelsOfTheZoneAtThePlaceOfItsNumber) {
    system.makeKey(zoneKey("10"));
    system.deleteTree(zoneKey("4"));
    window().RebuildList();
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
            EXPECT_EQ(form.TabStrip1.selected(), page);
            EXPECT_TRUE(form.Picture1(page - 1).showing()) << page;
            EXPECT_TRUE(form.TabStrip1.focused());
            form.cmdClose.setFocus();
        }
    });
}

TEST_F(frmEditTest, WritesTheChosenRecommendedAndMinimumLevels) {
    const std::tuple<const char*, int, const char*> cases[] = {
        {"2", MediumLow, "#66816#66816"}, {"1", DefaultEntry, "#66816#65536"}, {"5", DefaultEntry, "#73728#73728"}};
    for (const auto& [zone, entry, written] : cases) {
        set(zone, {{"RecommendedLevel", "#70000"}, {"MinLevel", "#70000"}, {"CurrentLevel", "#70000"}});
        editPage(zone, SecurityPage, [&, entry = entry](frmEdit& form) {
            for (const int index : {RecommendedLevel, MinimumLevel})
                EXPECT_FALSE(apply(form, index, entry).ends_with("apply"));
        });
        EXPECT_EQ(stored(zone, "RecommendedLevel") + stored(zone, "MinLevel"), written) << zone;
        EXPECT_EQ(stored(zone, "CurrentLevel"), "#70000");
    }
}

IN_MEMORY_TEST_F(frmEditTest, AppliesATemplateAsCurrentLevel) {
    editPage("2", SecurityPage, [&](frmEdit& form) {
        system.registry.watch.failOn("RegSetValueExA", 1, platform::AccessDenied);
        EXPECT_EQ(apply(form, CurrentLevel, Medium, "saved in part"), "Low|Medium|apply") << "can be tried again";
        EXPECT_EQ(apply(form, CurrentLevel, Medium), "Low|Medium") << "waits for the page to be chosen again";
        EXPECT_EQ(stored("2", "1800") + window().lblCurrent.caption(), "#1Medium");
        form.TabStrip1.choose(SecurityPage);
        EXPECT_EQ(level(form, CurrentLevel), "Medium|Medium");
        system.deleteTree(std::string(zones::TemplatesKey) + "\\High");
        EXPECT_EQ(apply(form, CurrentLevel, High, "no template|High"), "Medium|High|apply");
        system.registry.watch.failOn("RegEnumValueA", 1, platform::OutOfMemory);
        EXPECT_EQ(apply(form, CurrentLevel, Low, "template unreadable|Low"), "Medium|Low|apply");
        EXPECT_EQ(stored("2", "CurrentLevel"), "#69632");
    });
}

TEST_F(frmEditTest, EnterAppliesTheBoxThatHasTheFocusAndOtherwiseCloses) {
    for (const bool onTabs : {true, false})
        editPage("2", SecurityPage, [&](frmEdit& form) {
            form.levels.cboSetting(CurrentLevel).choose(High);
            form.levels.cboSetting(MinimumLevel).setFocus();
            form.levels.cboSetting(MinimumLevel).choose(Medium);
            form.pressEnter();
            EXPECT_EQ(stored("2", "MinLevel"), "#69632");
            onTabs ? form.TabStrip1.setFocus() : form.levels.cmdSecurity.setFocus();
            form.pressEnter();
            EXPECT_FALSE(form.loaded());
            EXPECT_EQ(stored("2", "CurrentLevel"), "#65536");
        });
}
