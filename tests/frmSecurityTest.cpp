#include "editing/frmSecurity.h"

#include "support/User.h"
#include "ui/TreeView.h"

namespace {

const std::string Settings = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\SO";
const std::string Enabled = "Group\n-Setting\n--(o)Enable[1201,0]\n--( )Disable[1201,3]\n";

struct frmSecurityTest : User {
    frmSecurityTest() { system.seedAll(); }

    // A key below the settings description, with its text.
    std::string describe(const std::string& path, const std::string& text) {
        system.setText(Settings + "\\" + path, "Text", text);
        return Settings + "\\" + path;
    }
    void option(const std::string& path, const std::string& text, const std::string& name, std::uint32_t value) {
        const std::string at = describe(path, text);
        system.setText(at, "ValueName", name);
        system.setDword(at, "CheckedValue", value);
    }
    // One setting of one group, with Enable (0) and Disable (3) for the value 1201.
    void describeOne() {
        system.deleteTree(Settings);
        describe("A", "Group");
        describe("A\\S", "Setting");
        option("A\\S\\1", "Enable", "1201", 0);
        option("A\\S\\2", "Disable", "1201", 3);
        set("2", {{"1201", "#0"}});
    }
    void customise(const std::string& zone, const Script<frmSecurity>& script) {
        editPage(zone, SecurityPage, [&](frmEdit& form) { openSettings(form, script); });
    }
    // The tree as text: one level in for each parent, options as "( )" or "(o)" with their tags.
    std::string tree(const std::string& zone = "2") {
        std::string all;
        customise(zone, [&](frmSecurity& form) { all = treeOf(form); });
        return all;
    }
    static std::string treeOf(frmSecurity& form) {
        std::string all;
        for (int i = 1; i <= form.TVMRTreeView1.count(); ++i) {
            const ui::TreeNode& node = form.TVMRTreeView1.node(i);
            for (int up = node.parent; up; up = form.TVMRTreeView1.node(up).parent) all += "-";
            if (node.option) all += node.selected ? "(o)" : "( )";
            all += node.text + (node.tag.empty() ? "" : "[" + node.tag + "]") + (node.image ? "*" : "") + "\n";
        }
        return all;
    }
};

}  // namespace

TEST_F(frmSecurityTest, ShowsTheBrowsersSettingsWithTheZonesOptions) {
    int groups = 0, settings = 0, options = 0, selected = 0;
    customise("5", [&](frmSecurity& form) {
        const ui::TreeView& tree = form.TVMRTreeView1;
        EXPECT_EQ(tree.visibleNode(), 1);
        form.TVMRTreeView1.click(3);  // which leaves the other settings alone
        for (int i = 1; i <= tree.count(); ++i) {
            const ui::TreeNode& node = tree.node(i);
            ++(node.option ? options : node.parent ? settings : groups);
            if (!node.selected) continue;
            ++selected;
            const std::string name = node.tag.substr(0, node.tag.find(','));
            EXPECT_EQ(name + "," + std::to_string(*system.dword(zoneKey("5"), name)), node.tag);
        }
    });
    EXPECT_EQ((std::vector{groups, settings, options, selected}), (std::vector{7, 22, 68, 22}));
}

TEST_F(frmSecurityTest, SelectsTheOptionWithTheZonesNumberAlone) {
    describeOne();
    const std::string none = "Group\n-Setting\n--( )Enable[1201,0]\n--( )Disable[1201,3]\n";
    system.setText(zoneKey("2"), "1201", "0");
    EXPECT_EQ(tree(), none);
    system.setDword(zoneKey("2"), "1201", 65536);
    EXPECT_EQ(tree(), none);
    const std::string disable = Settings + "\\A\\S\\2";
    const sample::Entry cases[] = {sample::text(disable, "CheckedValue", "65536"),
                                   {disable, "CheckedValue", platform::RegBinary, {0, 0, 1, 0}},
                                   sample::text(disable, "CheckedValue", "0x3"),
                                   {disable, "CheckedValue", platform::RegBinary, {3}}};
    for (const sample::Entry& entry : cases) {
        system.set(entry);
        const std::string shown = &entry - cases < 2 ? "--(o)Disable[1201,65536]\n" : "--Disable\n";
        EXPECT_EQ(tree(), "Group\n-Setting\n--( )Enable[1201,0]\n" + shown);
    }
    describeOne();
    option("A\\T\\1", "Missing", "1299", 0);
    EXPECT_EQ(tree(), Enabled + "-\n--( )Missing[1299,0]\n");
    describeOne();
    system.setDword(zoneKey("6"), "1201", 0);
    system.deleteTree(zoneKey("1"));
    window().RebuildList();
    EXPECT_EQ(tree("6"), none) << "as many zones as its number";
}

TEST_F(frmSecurityTest, ShowsThreeLevelsAndMakesOptionsOfWhatIsComplete) {
    describeOne();
    option("Microsoft VM\\S\\1", "The browser's own Java", "1", 1);
    option("A\\S\\Microsoft VM", "The browser's own Java", "1", 1);
    describe("A\\S\\3", "Deeper group");
    option("A\\S\\3\\1", "Too deep", "1201", 1);
    system.setText(describe("A\\S\\4", "No value"), "ValueName", "1201");
    system.setDword(describe("A\\S\\5", "No name"), "CheckedValue", 1);
    option("A\\S\\6", "Odd name", "12,01", 1);
    option("A\\S\\7", "Text for a number", "1201", 1);
    system.setText(Settings + "\\A\\S\\7", "CheckedValue", "one");
    option("B\\U\\1", "", "1A00", 0x80000000);
    customise("2", [&](frmSecurity& form) {
        EXPECT_EQ(treeOf(form), Enabled +
                                    "--No value\n--No name\n--Odd name\n"
                                    "--Text for a number\n\n-\n--( )[1A00,2147483648]\n");
        for (int i = 5; i <= 8; ++i) form.TVMRTreeView1.click(i);
    });
    EXPECT_EQ(stored("2", "CurrentLevel"), "#65536") << "what is no option cannot be chosen";
}

IN_MEMORY_TEST_F(frmSecurityTest, PassesOverWhatCannotBeEnteredAndShowsTheRest) {
    describeOne();
    describe("B", "Second");
    const std::pair<std::string, std::string> cases[] = {{"A", "Second\n"},
                                                         {"A\\S", "Group\nSecond\n"},
                                                         {"A\\S\\2", "Group\n-Setting\n--(o)Enable[1201,0]\nSecond\n"},
                                                         {"B", Enabled}};
    editPage("2", SecurityPage, [&](frmEdit& form) {
        for (const auto& [key, rest] : cases) {
            system.registry.listAs(Settings + "\\" + key, "?");
            desktop.expectMessage("settings in part");
            openSettings(form, [&](frmSecurity& settings) { EXPECT_EQ(treeOf(settings), rest); });
            system.registry.listAs(Settings + "\\" + key, key.substr(key.size() - 1));
        }
    });
}

TEST_F(frmSecurityTest, StaysAmongTheSettingsWhateverTheirKeysAreCalled) {
    describeOne();
    for (const char* name : {" ", "..", ".", "1 "}) option(std::string("A\\S\\") + name, name, "1200", 1);
    describe("B", "Last");
    const std::string shown = tree();
    EXPECT_TRUE(shown.starts_with("Group\n-Setting\n--")) << shown;
    for (const char* text : {"--(o)Enable[1201,0]\n", "--( )Disable[1201,3]\n", "--( ) [1200,1]\n", "--( )..[1200,1]\n",
                             "--( )1 [1200,1]\n"})
        EXPECT_NE(shown.find(text), std::string::npos) << text << shown;
    EXPECT_TRUE(shown.ends_with("\nLast\n")) << shown;
}

TEST_F(frmSecurityTest, TakesACaptionThatIsNoTextFromAProgramFile) {
    simulated::ProgramFile texts;
    texts.addString(4746, "From the file");
    system.addProgram("texts.dll", texts);
    const std::string error = "** ERROR Retrieving string - frmSecurity.ExtractString **";
    const std::tuple<const char*, const char*, std::string> cases[] = {
        {"Plain", "@texts.dll,-4746", "Plain"},
        {"%4746", "@texts.dll,-4746", "From the file"},
        {"", "@texts.dll,-4746", "From the file"},
        {"%4746", "", error},
        {"", "", ""},
        {"%", "@texts.dll,-1", error},
        {"%", "@missing.dll,-4746", error},
        {"%", "@texts.dll", error},
        {"%", "@texts.dll,-x", error},
        {"%", "@\"a\"b,-1", error},
        {"%", "@", error},
    };
    system.deleteTree(Settings);
    for (const auto& [text, reference, caption] : cases) {
        system.setText(describe("A\\S", text), "PlugUIText", reference);
        EXPECT_EQ(tree(), "\n-" + caption + "\n") << reference;
    }
    EXPECT_EQ(system.modules.loaded(), 0);
}

TEST_F(frmSecurityTest, ShowsAGroupsPictureWhereThereIsOne) {
    describeOne();
    system.setText(describe("B", "File"), "Bitmap", "%windir%\\missing.bmp");
    system.setText(describe("C", "Icon"), "Bitmap", "shell32.dll,18");
    system.setText(describe("D", "Two quotes"), "Bitmap", "\"a\"b,1");
    customise("2", [](frmSecurity& form) { EXPECT_EQ(form.TVMRTreeView1.images(), &form.ilsGroups); });
    EXPECT_EQ(tree(), Enabled + "File\nIcon*\nTwo quotes\n");
}

TEST_F(frmSecurityTest, WritesAClickedOptionAtOnceAndMakesTheZoneCustom) {
    describeOne();
    const std::string disabled = "Group\n-Setting\n--( )Enable[1201,0]\n--(o)Disable[1201,3]\n";
    editPage("2", SecurityPage, [&](frmEdit& form) {
        openSettings(form, [&](frmSecurity& settings) {
            EXPECT_EQ(form.pointer(), ui::Pointer::Hourglass);
            settings.TVMRTreeView1.choose(4);
            EXPECT_EQ(stored("2", "1201"), "#0") << "the arrow keys only look";
            EXPECT_TRUE(settings.TVMRTreeView1.onOption());
            EXPECT_TRUE(settings.lblZone.oneLine());
            settings.TVMRTreeView1.activate();
            EXPECT_EQ(treeOf(settings) + stored("2", "1201") + stored("2", "CurrentLevel"), disabled + "#3#0");
            EXPECT_EQ(form.levels.stored[CurrentLevel].caption(), "Custom");
            EXPECT_EQ(window().lblCurrent.caption(), "Custom");
            system.setText(zoneKey("2"), "DisplayName", "Other");
            desktop.expectMessage("changed, not saved");
            settings.TVMRTreeView1.click(3);
            EXPECT_EQ(treeOf(settings) + stored("2", "1201"), disabled + "#3") << "the zone has become another";
        });
        EXPECT_EQ(form.pointer(), ui::Pointer::Default);
        EXPECT_TRUE(form.levels.cmdApply(CurrentLevel).enabled()) << "back to a level";
    });
    // Also after the main window has moved on.
    edit("4", [&](frmEdit& form) {
        form.general.cmdGeneral(1).click();
        form.TabStrip1.choose(SecurityPage);
        openSettings(form, [&](frmSecurity& settings) { settings.TVMRTreeView1.click(3); });
        EXPECT_EQ(window().selection().zone, "1");
    });
    EXPECT_EQ(stored("4", "1201") + stored("1", "CurrentLevel"), "#0#66816");
}

IN_MEMORY_TEST_F(frmSecurityTest, ShowsWhatIsInForceWhenAWriteIsRefused) {
    describeOne();
    customise("2", [&](frmSecurity& form) {
        const ui::TreeView& tree = form.TVMRTreeView1;
        const auto click = [&](const char* message) {
            desktop.expectMessage(message);
            form.TVMRTreeView1.click(4);
            EXPECT_EQ(tree.current(), 4) << "the tree stays where it is";
            return stored("2", "CurrentLevel") + stored("2", "1201") + (tree.node(3).selected ? " Enable" : "") +
                   (tree.node(4).selected ? " Disable" : "");
        };
        system.registry.watch.failOn("RegSetValueExA", 1, platform::AccessDenied);
        EXPECT_EQ(click("saved in part"), "#65536#3 Disable") << "the level comes first";
        system.setDword(zoneKey("2"), "1201", 0);
        system.registry.watch.failOn("RegSetValueExA", 2, platform::AccessDenied);
        EXPECT_EQ(click("saved in part"), "#0#0 Enable");
        system.deleteValue(zoneKey("2"), "1201");
        system.registry.watch.failOn("RegSetValueExA", 2, platform::AccessDenied);
        EXPECT_EQ(click("saved in part"), "#0none");
        system.deleteTree(zoneKey("2"));
        click("gone, not saved");
    });
    EXPECT_FALSE(system.exists(zoneKey("2")));
}
