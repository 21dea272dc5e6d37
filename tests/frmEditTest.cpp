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
    static constexpr const char* NamesUnreadable =
        "The zone's name, description and icon could not be read, and cannot be saved.";
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
constexpr ui::Answer Ok = ui::Answer::Ok;
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

TEST_F(frmEditTest, DoesNotTellThatARepairOfZone0WasRefused) {
    system.setDword(key("0"), "MinLevel", 0);
    select("2");
    system.registry.watch.failOn("RegSetValueExA", 1, platform::AccessDenied);
    edit("2", [](frmEdit&) {});
    EXPECT_TRUE(system.registry.watch.failed());
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
}

TEST_F(frmEditTest, LeavesAnIconToOthersUntilTheUserChoosesOne) {
    edit("2", [&](frmEdit& form) {
        system.setText(key("2"), "Icon", "shell32.dll#18");
        form.general.cmdGeneral(Apply).click();
        EXPECT_EQ(saved("2", "Icon"), "shell32.dll#18");
    });
}

TEST_F(frmEditTest, RefusesAnIconFileThatAReferenceCannotName) {
    edit("2", [&](frmEdit& form) {
        system.desktop.expectFile("C:\\my#icons\\x.dll");
        system.desktop.expectMessage(
            "The icons of \"C:\\my#icons\\x.dll\" cannot be used: the path contains a \"#\", after which Internet "
            "Explorer expects the number of an icon.",
            Ok);
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
            system.desktop.expectMessage(message, Ok);
            form.general.cmdGeneral(Apply).click();
            EXPECT_TRUE(box.focused());
            EXPECT_EQ(saved("2", "DisplayName") + saved("2", "Description"), name + description);
        };
        expectRefusal(details.txtZoneName,
                      "The name is too long. Internet Explorer reads one of more than 259 characters as empty.");
        typeOver(details.txtZoneName, "Short");
        expectRefusal(details.txtZoneDescription,
                      "The description is too long. Internet Explorer reads one of more than 199 characters as empty.");
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

TEST_F(frmEditTest, DoesNotSaveNamesThatCouldNotBeRead) {
    for (const char* name : {"DisplayName", "Description", "Icon"}) {
        const auto before = system.text(key("2"), name);
        system.setDword(key("2"), name, 7);
        window->RebuildList();
        system.desktop.expectMessage(NamesUnreadable, Ok);
        edit("2", [&](frmEdit& form) {
            for (int times = 0; times < 2; ++times) {
                EXPECT_FALSE(form.general.cmdGeneral(Apply).enabled());
                EXPECT_FALSE(form.general.cmdGeneral(Default).enabled());
                form.pressEnter();
                form.TabStrip1.choose(GeneralTab);  // told once
            }
            EXPECT_EQ(number("2", name), 7u);
            system.setText(key("2"), name, *before);
            form.TabStrip1.choose(GeneralTab);
            EXPECT_TRUE(form.general.cmdGeneral(Default).enabled());
            form.pressEnter();
            EXPECT_EQ(system.text(key("2"), name), before);
        });
    }
}

TEST_F(frmEditTest, LosesNothingWhicheverReadIsRefused) {
    const auto texts = [&] {
        return saved("2", "DisplayName") + "|" + saved("2", "Description") + "|" + saved("2", "Icon");
    };
    const std::string before = texts();
    select("2");
    system.desktop.patient = true;
    int refused = 0;
    for (bool failed = true; failed; ++refused) {
        ASSERT_LT(refused, 50);
        system.registry.watch.failOn("RegQueryValueExA", refused + 1, platform::AccessDenied);
        system.desktop.told.clear();
        edit("2", [&](frmEdit& form) {
            form.pressEnter();
            form.TabStrip1.choose(FlagsPage);
            form.pressEnter();
        });
        failed = system.registry.watch.failed();
        system.registry.watch.reset();
        EXPECT_EQ(texts(), before) << refused;
        EXPECT_EQ(number("2", "Flags"), 71u) << refused;
        EXPECT_LE(system.desktop.told.size(), 2u) << refused;
        select("2");
    }
    EXPECT_GT(refused, 6);
    system.desktop.settle();
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
            system.desktop.expectMessage("Another program has changed this zone. Your changes were not saved.", Ok);
            button->click();
        }
        EXPECT_EQ(saved("5", "DisplayName"), "Other");
        EXPECT_EQ(number("5", "Flags"), 65536u);
        EXPECT_EQ(number("5", "MinLevel"), 65536u);
        EXPECT_EQ(number("5", "CurrentLevel"), 65536u);
    });
    EXPECT_EQ(window->lvwZones.item(6).text, "Other") << "the list has been read again";
}

TEST_F(frmEditTest, KnowsTheZoneByTheNameThatItHasSaved) {
    edit("5", [&](frmEdit& form) {
        EXPECT_EQ(form.lblZone.caption(), saved("5", "DisplayName"));
        typeOver(form.general.details.txtZoneName, "Renamed");
        form.pressEnter();
        EXPECT_EQ(form.lblZone.caption(), "Renamed");
        // The name is the first that is written.
        typeOver(form.general.details.txtZoneName, "Again");
        system.registry.watch.failOn("RegSetValueExA", 2, platform::AccessDenied);
        system.desktop.expectMessage(Refused, Ok);
        form.pressEnter();
        EXPECT_EQ(form.lblZone.caption(), "Again");
        form.TabStrip1.choose(FlagsPage);
        form.flags.cmdFlags(Apply).click();
    });
}

TEST_F(frmEditTest, LeavesTheSummaryOfTheSelectedZoneAlone) {
    edit("4", [&](frmEdit& form) {
        form.pressEnter();
        EXPECT_EQ(window->lblZoneName.caption(), "Local intranet");
        form.TabStrip1.choose(FlagsPage);
        form.pressEnter();
        EXPECT_EQ(window->lblFlags.caption(), "219");
        EXPECT_EQ(window->lblCurrent.caption(), "Medium-Low");
    });
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

TEST_F(frmEditTest, DoesNotSaveFlagsThatAreNoNumber) {
    for (const auto& [zone, hidden] : {std::pair{"2", true}, {"3", false}}) {
        const std::uint32_t before = number(zone, "Flags");
        system.setText(key(zone), "Flags", "219");
        edit(zone, [&, zone = zone, hidden = hidden](frmEdit& form) {
            system.desktop.expectMessage("The zone's flags could not be read, and cannot be saved.", Ok);
            for (int times = 0; times < 2; ++times) {
                form.TabStrip1.choose(FlagsPage);
                EXPECT_FALSE(form.flags.cmdFlags(Apply).enabled());
                EXPECT_FALSE(form.flags.cmdFlags(Default).enabled());
                EXPECT_FALSE(form.flags.chkProperties(0).enabled());
                form.pressEnter();
            }
            EXPECT_EQ(saved(zone, "Flags"), "219");
            system.setDword(key(zone), "Flags", before);
            form.TabStrip1.choose(FlagsPage);
            EXPECT_EQ(shown(form), before);
            EXPECT_TRUE(form.flags.chkProperties(0).enabled());
            EXPECT_EQ(form.flags.chkProperties(5).enabled(), hidden);
            form.pressEnter();
            EXPECT_EQ(number(zone, "Flags"), before);
        });
    }
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
        EXPECT_EQ(window->lblCurrent.caption(), "Medium");
        EXPECT_EQ(level(form, CurrentLevel), "Low|Medium") << "the label waits for the page to be chosen again";
        form.TabStrip1.choose(SecurityPage);
        EXPECT_EQ(level(form, CurrentLevel), "Medium|Medium");

        system.deleteTree(std::string(zones::TemplatesKey) + "\\High");
        box.choose(High);
        system.desktop.expectMessage(
            "The browser has no settings for the level \"High\" on this computer. The zone is unchanged.",
            ui::Answer::Ok);
        form.levels.cmdApply(CurrentLevel).click();
        EXPECT_TRUE(form.levels.cmdApply(CurrentLevel).enabled());
    });
}

TEST_F(frmEditTest, DoesNotSaveLevelsThatCouldNotBeRead) {
    const char* message = "The zone's security levels could not be read, and cannot be saved.";
    system.setText(key("2"), "MinLevel", "65536");
    edit("2", [&](frmEdit& form) {
        system.desktop.expectMessage(message, Ok);
        for (int times = 0; times < 2; ++times) {
            form.TabStrip1.choose(SecurityPage);
            for (const int index : {RecommendedLevel, MinimumLevel, CurrentLevel}) {
                form.levels.cboSetting(index).choose(High);
                EXPECT_FALSE(form.levels.cmdApply(index).enabled()) << index;
            }
        }
        system.setDword(key("2"), "MinLevel", 65536);
        form.TabStrip1.choose(SecurityPage);
        form.levels.cboSetting(MinimumLevel).choose(High);
        EXPECT_TRUE(form.levels.cmdApply(MinimumLevel).enabled());

        system.registry.watch.failOn("RegEnumKeyExA", 1, platform::OutOfMemory);
        system.desktop.expectMessage(message, Ok);
        form.TabStrip1.choose(SecurityPage);
        EXPECT_FALSE(form.levels.cmdApply(MinimumLevel).enabled());
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

TEST_F(frmEditTest, TellsOnceThatATemplateCannotBeRead) {
    editPage("2", SecurityPage, [&](frmEdit& form) {
        form.levels.cboSetting(CurrentLevel).choose(Medium);
        system.registry.watch.failOn("RegEnumValueA", 1, platform::OutOfMemory);
        system.desktop.expectMessage(
            "The browser's settings for the level \"Medium\" could not be read. The zone is unchanged.", Ok);
        form.levels.cmdApply(CurrentLevel).click();
    });
    EXPECT_EQ(number("2", "CurrentLevel"), 65536u);
}

TEST_F(frmEditTest, TellsTheUserThatTheZoneIsGone) {
    edit("5", [&](frmEdit& form) {
        removeZone("5");
        system.desktop.expectMessage(NoZone, Ok);
        form.general.cmdGeneral(Apply).click();
        system.desktop.expectMessage("This zone no longer exists.", Ok);
        form.TabStrip1.choose(FlagsPage);
        form.flags.cmdFlags(Apply).click();
        form.TabStrip1.choose(SecurityPage);
        form.levels.cboSetting(CurrentLevel).choose(Low);
        system.desktop.expectMessage(NoZone, Ok);
        form.levels.cmdApply(CurrentLevel).click();
    });
    EXPECT_FALSE(system.exists(key("5"))) << "nothing has made it again";
}
