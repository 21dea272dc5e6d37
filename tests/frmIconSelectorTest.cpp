#include "icons/frmIconSelector.h"

#include "app/Application.h"
#include "errors/frmError.h"
#include "icons/FileKind.h"
#include "support/IconFixture.h"

namespace {

struct frmIconSelectorTest : IconFixture {
    app::Application program{system.platform()};
    std::string chosen = "none";
    frmIconSelector::Chosen choose = [this](const icons::IconReference& icon) { chosen = icon.text(); };

    frmIconSelectorTest() {
        addIcon("some.dll", "MAIN", {16, 32}, 1);
        addIcon("some.dll", std::uint16_t{7}, {16, 32}, 2);
        addIcon("some.dll", std::uint16_t{4480}, {48}, 3);
    }
    // Runs the dialog on a file of the program folder, as a user who does `script` once the file has been read; when
    // that fails, which `onError` is told, some can be read all the same.
    void use(const std::string& file, const std::function<void(frmIconSelector&)>& script,
             const std::function<void(frmIconSelector&, frmError&)>& onError = {}) {
        frmIconSelector selector(program.platform, system.path(file), box, choose);
        const auto read = [&](frmIconSelector& shown) {
            if (onError)
                system.desktop.expectForm<frmError>([&](frmError& error) {
                    onError(shown, error);
                    error.cmdContinue.click();
                });
            shown.tmrLoad.tick();
            script(shown);
        };
        system.desktop.use<frmIconSelector>(read, [&] { selector.showModal(); });
    }
    static std::string identifiers(const frmIconSelector& form) {
        std::string all;
        for (int i = 1; i <= form.lvwIcons.count(); ++i)
            all += std::to_string(form.lvwIcons.item(i).image) + ":" + form.lvwIcons.item(i).tag + " ";
        return all;
    }
};

TEST_F(frmIconSelectorTest, EveryIconOfTheFileIsListedInBothSizes) {
    use("some.dll", [&](frmIconSelector& form) {
        EXPECT_EQ(form.lblIconCount.caption(), "3 icons in: some.dll");
        EXPECT_EQ(identifiers(form), "1:MAIN 2:7 3:4480 ");
        EXPECT_EQ(form.lvwIcons.largeImages()->picture(2), picture(32, 2));
        EXPECT_EQ(form.lvwIcons.smallImages()->picture(2), picture(16, 2));
        EXPECT_EQ(form.lvwIcons.smallImages()->picture(3), picture(48, 3)) << "the only size there is";
        EXPECT_TRUE(form.lvwIcons.focused());
        EXPECT_FALSE(form.Progress.showing());
    });
    EXPECT_EQ(chosen, "none") << "giving up changes nothing";
    EXPECT_TRUE(box.picture().empty());
}

TEST_F(frmIconSelectorTest, OnlyLibrariesProgramsAndControlsAreListed) {
    for (const char* name : {"One.Exe", "one.OCX", "one.cpl", "SHDOCVW.DLL", "twunk_16.exe"})
        addIcon(name, std::uint16_t{1}, {32});
    changeProgram("none.dll", [](simulated::ProgramFile&) {});
    const std::tuple<const char*, const char*, int> cases[] = {{"One.Exe", "1 icon in: one.exe", 1},
                                                               {"one.OCX", "1 icon in: one.ocx", 1},
                                                               {"one.cpl", "1 icon in: one.cpl", 0},
                                                               {"none.dll", "No Icons in: none.dll", 0},
                                                               {"missing.dll", "No Icons in: missing.dll", 0},
                                                               // These two are never opened.
                                                               {"SHDOCVW.DLL", "No Icons in: shdocvw.dll", 0},
                                                               {"twunk_16.exe", "No Icons in: twunk_16.exe", 0}};
    for (const auto& [file, caption, count] : cases)
        use(file, [&, caption = caption, count = count](frmIconSelector& form) {
            EXPECT_EQ(form.lblIconCount.caption(), caption);
            EXPECT_EQ(form.lvwIcons.count(), count) << caption;
        });
}

TEST_F(frmIconSelectorTest, AClickChoosesTheIconAndTheTimerClosesTheDialog) {
    use("some.dll", [&](frmIconSelector& form) {
        form.lvwIcons.choose(1);
        EXPECT_EQ(chosen, "none") << "the arrow keys only look";
        form.lvwIcons.click(2);
        EXPECT_TRUE(form.loaded()) << "the list is not done with the click";
        form.tmrUnload.tick();
        EXPECT_FALSE(form.loaded());
    });
    EXPECT_EQ(chosen, system.path("some.dll") + "#7");
    EXPECT_EQ(box.picture(), picture(32, 2));
}

TEST_F(frmIconSelectorTest, ProgressIsShownOnASlowMachineUntilTheUserClosesTheDialog) {
    std::string seen;
    frmIconSelector selector(program.platform, system.path("some.dll"), box, choose);
    system.desktop.onDoEvents = [&] {
        EXPECT_TRUE(selector.Progress.showing());
        EXPECT_FALSE(selector.lvwIcons.showing());
        seen += selector.lblInfo.caption() + " " + std::to_string(selector.Progress.value()) + "\n";
        selector.ShowFile(system.path("one.exe"));  // comes too early, and is passed over
        if (selector.Progress.value() == 2) selector.pressEscape();
    };
    system.system.ticksALook = 10;
    selector.load();
    selector.ShowFile(system.path("some.dll"));
    EXPECT_EQ(seen, "Loading icon: 1 of 3 1\n") << "all three are there before anybody could follow";
    EXPECT_EQ(selector.lvwIcons.count(), 3);
    addIcon("one.exe", std::uint16_t{1}, {32});
    selector.ShowFile(system.path("one.exe"));
    const int counts[] = {selector.lvwIcons.count(), selector.ilsIcons32.count(), selector.ilsIcons16.count()};
    for (const int count : counts) EXPECT_EQ(count, 1) << "the icons of the file before are gone";

    seen.clear();
    system.system.ticksALook = 1000;
    selector.ShowFile(system.path("some.dll"));
    EXPECT_EQ(seen, "Loading icon: 1 of 3 1\nLoading icon: 2 of 3 2\n");
    EXPECT_FALSE(selector.loaded());
}

TEST_F(frmIconSelectorTest, DamagedIconsAreOneErrorAndTheOthersAreListed) {
    addIcon("bad.dll", std::uint16_t{1}, {32});
    addDamagedIcon("bad.dll", std::uint16_t{2});
    changeProgram("bad.dll", [](simulated::ProgramFile& file) {
        file.add(platform::RtGroupIcon, std::uint16_t{3}, icons::group({icons::image(32, 4)}, 500));  // no such image
    });
    addIcon("bad.dll", std::uint16_t{4}, {16});
    use(
        "bad.dll",
        [](frmIconSelector& form) {
            EXPECT_EQ(identifiers(form), "1:1 2:4 ");
            EXPECT_TRUE(form.lvwIcons.showing());
        },
        [](frmIconSelector& form, frmError& error) {
            EXPECT_EQ(form.lvwIcons.count(), 2) << "they are there before the error is shown";
            EXPECT_EQ(error.lblErrDescription.caption(), "Icon image is damaged.");
        });
}

TEST_F(frmIconSelectorTest, AZoneCannotUseTheIconsOf16BitProgramsAndIconFiles) {
    writeFile("one.ico", icons::file({icons::image(32, 4)}));
    addIcon("old.dll", std::uint16_t{1}, {32});
    // Where its real header is, a 16-bit program has another mark.
    icons::ByteWriter old;
    old.u16(0x5A4D).fill(58).u32(0x50).fill(16).u16(0x454E).fill(62);
    const auto looksOld = [&](const std::string& name) {
        return icons::kindOf(system.platform().files, system.path(name));
    };
    EXPECT_EQ(looksOld("old.dll"), icons::FileKind::Other);
    EXPECT_EQ(looksOld("one.ico"), icons::FileKind::IconFile);
    EXPECT_EQ(looksOld("none.ico"), icons::FileKind::Other);
    for (std::size_t length = 0; length <= old.size(); ++length) {
        writeFile("old.dll", old.bytes().substr(0, length));
        EXPECT_EQ(looksOld("old.dll"), length >= 0x52 ? icons::FileKind::Program16 : icons::FileKind::Other) << length;
    }
    use("one.ico", [&](frmIconSelector& form) {
        EXPECT_EQ(form.lblIconCount.caption(), "1 icon in: one.ico");
        EXPECT_TRUE(form.lblUnusable.showing());
        EXPECT_FALSE(form.lvwIcons.showing());
        form.ShowFile(system.path("some.dll"));
        EXPECT_FALSE(form.lblUnusable.showing());
        EXPECT_TRUE(form.lvwIcons.showing());
    });
}

}  // namespace
