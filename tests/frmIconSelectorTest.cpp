#include "icons/frmIconSelector.h"

#include <gtest/gtest.h>

#include "app/Program.h"
#include "errors/frmError.h"
#include "support/IconFixture.h"

namespace {

struct frmIconSelectorTest : IconFixture {
    Program program{system.platform()};

    frmIconSelectorTest() {
        program.selection = {"2", "old.dll", "0018"};
        system.system.ticksALook = 1000;  // a slow machine: the progress of each icon is seen
        addIcon("some.dll", "MAIN", {16, 32}, 1);
        addIcon("some.dll", std::uint16_t{7}, {16, 32}, 2);
        addIcon("some.dll", std::uint16_t{4480}, {48}, 3);
    }
    // Runs the dialog on a file of the program folder, as a user who does `script` once the file has been read.
    void use(const std::string& file, const std::function<void(frmIconSelector&)>& script) {
        frmIconSelector selector(program, system.path(file), box);
        system.desktop.expectForm<frmIconSelector>([&](frmIconSelector& shown) {
            shown.tmrLoad.tick();
            script(shown);
            if (shown.loaded()) shown.pressEscape();
        });
        selector.showModal();
        system.desktop.settle();
    }
    // Count text and number of icons listed.
    std::pair<std::string, int> shown(const std::string& file) {
        std::pair<std::string, int> result;
        use(file, [&](frmIconSelector& form) { result = {form.lblIconCount.caption(), form.lvwIcons.count()}; });
        return result;
    }
    void expectOneError(const std::string& description) {
        system.desktop.expectForm<frmError>([description](frmError& error) {
            EXPECT_EQ(error.lblErrDescription.caption(), description);
            error.cmdContinue.click();
        });
    }
};

TEST_F(frmIconSelectorTest, EveryIconOfTheFileIsListed) {
    use("some.dll", [&](frmIconSelector& form) {
        EXPECT_EQ(form.lblIconCount.caption(), "3 icons in: some.dll");
        ASSERT_EQ(form.lvwIcons.count(), 3);
        const char* identifiers[] = {"MAIN", "7", "4480"};
        for (int i = 1; i <= 3; ++i) {
            EXPECT_EQ(form.lvwIcons.item(i).tag, identifiers[i - 1]);
            EXPECT_EQ(form.lvwIcons.item(i).image, i);
        }
        EXPECT_EQ(form.ilsIcons32.picture(2), picture(32, 2));
        EXPECT_EQ(form.ilsIcons16.picture(2), picture(16, 2));
        EXPECT_EQ(form.ilsIcons16.picture(3), picture(48, 3)) << "the only size there is";
        EXPECT_TRUE(form.lvwIcons.focused());
        EXPECT_FALSE(form.Progress.showing());
    });
    EXPECT_EQ(program.selection.iconFile, "old.dll") << "giving up changes nothing";
    EXPECT_TRUE(box.picture().empty());
}

TEST_F(frmIconSelectorTest, OnlyLibrariesProgramsAndControlsAreListed) {
    for (const char* name : {"One.Exe", "one.OCX", "one.cpl", "SHDOCVW.DLL", "twunk_16.exe"})
        addIcon(name, std::uint16_t{1}, {32});
    changeProgram("none.dll", [](simulated::ProgramFile&) {});
    using Shown = std::pair<std::string, int>;
    EXPECT_EQ(shown("One.Exe"), Shown("1 icon in: one.exe", 1));
    EXPECT_EQ(shown("one.OCX"), Shown("1 icon in: one.ocx", 1));
    EXPECT_EQ(shown("one.cpl"), Shown("1 icon in: one.cpl", 0));
    EXPECT_EQ(shown("none.dll"), Shown("No Icons in: none.dll", 0));
    EXPECT_EQ(shown("missing.dll"), Shown("No Icons in: missing.dll", 0));

    system.modules.watch.reset();
    EXPECT_EQ(shown("SHDOCVW.DLL"), Shown("No Icons in: shdocvw.dll", 0));
    EXPECT_EQ(shown("twunk_16.exe"), Shown("No Icons in: twunk_16.exe", 0));
    EXPECT_EQ(system.modules.watch.calls(), 0) << "these two are never opened";
}

TEST_F(frmIconSelectorTest, AClickChoosesTheIconAndTheTimerClosesTheDialog) {
    use("some.dll", [&](frmIconSelector& form) {
        form.lvwIcons.choose(1);
        EXPECT_EQ(program.selection.iconFile, "old.dll") << "the arrow keys only look";
        form.lvwIcons.click(2);
        EXPECT_TRUE(form.loaded()) << "the list is not done with the click";
        form.tmrUnload.tick();
        EXPECT_FALSE(form.loaded());
    });
    EXPECT_EQ(program.selection.zone, "2");
    EXPECT_EQ(program.selection.iconFile, system.path("some.dll"));
    EXPECT_EQ(program.selection.iconResource, "7");
    EXPECT_EQ(box.picture(), picture(32, 2));

    use("some.dll", [&](frmIconSelector& form) {
        form.lvwIcons.choose(1);
        form.lvwIcons.activate();
        form.tmrUnload.tick();
    });
    EXPECT_EQ(program.selection.iconResource, "MAIN") << "Enter chooses the icon under the cursor";
}

TEST_F(frmIconSelectorTest, ProgressIsShownWhileIconsAreLoaded) {
    std::vector<std::string> seen;
    frmIconSelector selector(program, system.path("some.dll"), box);
    system.desktop.onDoEvents = [&] {
        EXPECT_TRUE(selector.Progress.showing());
        EXPECT_FALSE(selector.lvwIcons.showing());
        EXPECT_EQ(selector.Progress.maximum(), 3);
        EXPECT_EQ(selector.Progress.value(), static_cast<int>(seen.size()) + 1);
        seen.push_back(selector.lblInfo.caption());
        selector.ShowFile(system.path("one.exe"));  // comes too early, and is passed over
    };
    selector.load();
    EXPECT_EQ(selector.lblInfo.caption(), "Loading Icon");
    selector.ShowFile(system.path("some.dll"));
    EXPECT_EQ(seen, (std::vector<std::string>{"Loading icon: 1 of 3", "Loading icon: 2 of 3", "Loading icon: 3 of 3"}));
    EXPECT_EQ(selector.lvwIcons.count(), 3);
    EXPECT_EQ(selector.lblIconCount.caption(), "3 icons in: some.dll");
    system.desktop.onDoEvents = nullptr;
    addIcon("one.exe", std::uint16_t{1}, {32});
    selector.ShowFile(system.path("one.exe"));
    EXPECT_EQ(selector.lvwIcons.count(), 1) << "the icons of the file before are gone";
    EXPECT_EQ(selector.ilsIcons32.count() + selector.ilsIcons16.count(), 2);
    selector.unload();
}

TEST_F(frmIconSelectorTest, ProgressThatNobodyCouldFollowIsNotDrawn) {
    frmIconSelector selector(program, system.path("some.dll"), box);
    int drawn = 0;
    system.desktop.onDoEvents = [&] { ++drawn; };
    system.system.ticksALook = 10;
    selector.load();
    selector.ShowFile(system.path("some.dll"));
    EXPECT_EQ(drawn, 1) << "all three are there within forty milliseconds";
    EXPECT_EQ(selector.lvwIcons.count(), 3);
    selector.unload();
}

TEST_F(frmIconSelectorTest, ClosingTheDialogEndsTheLoading) {
    frmIconSelector selector(program, system.path("some.dll"), box);
    int events = 0;
    system.desktop.onDoEvents = [&] {
        if (++events == 2) selector.pressEscape();
    };
    selector.load();
    selector.ShowFile(system.path("some.dll"));
    EXPECT_EQ(events, 2);
    EXPECT_FALSE(selector.loaded());
}

TEST_F(frmIconSelectorTest, DamagedIconsAreOneErrorAndTheOthersAreListed) {
    addIcon("bad.dll", std::uint16_t{1}, {32});
    addDamagedIcon("bad.dll", std::uint16_t{2});
    changeProgram("bad.dll", [](simulated::ProgramFile& file) {
        file.add(platform::RtGroupIcon, std::uint16_t{3}, icons::group({icons::image(32, 4)}, 500));  // no such image
    });
    addIcon("bad.dll", std::uint16_t{4}, {16});
    frmIconSelector selector(program, system.path("bad.dll"), box);
    selector.load();
    expectOneError("Icon image is damaged.");
    selector.ShowFile(system.path("bad.dll"));
    ASSERT_EQ(selector.lvwIcons.count(), 2);
    EXPECT_EQ(selector.lvwIcons.item(2).tag, "4");
    EXPECT_EQ(selector.lvwIcons.item(2).key, "2C");
    EXPECT_EQ(selector.ilsIcons16.count(), 2);
    EXPECT_TRUE(selector.lvwIcons.showing());
    selector.unload();
}

}  // namespace
