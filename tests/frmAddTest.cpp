#include "editing/frmAdd.h"

#include "support/User.h"

namespace {

const std::string High =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\TemplatePolicies\\High";

struct frmAddTest : User {
    frmAddTest() { system.seedAll(); }

    // Fills the dialog in and has it add the zone, after `before`; closes it when it stays.
    void addNew(const std::function<void()>& before) {
        add([&](frmAdd& form) {
            EXPECT_FALSE(form.details.picIcon.picture().empty());
            desktop.expectFile(std::nullopt, program.platform.system.GetWindowsDirectoryA() + "\\");
            form.details.picIcon.click();
            form.details.txtZoneName.type("New & \"quoted\"");
            form.details.txtZoneDescription.type("A zone; C:\\x");
            before();
            form.pressEnter();
            open_ = form.loaded();
        });
    }
    bool open_ = false;
};

}  // namespace

TEST_F(frmAddTest, MakesASafeZoneUnderTheNextNumberAndCloses) {
    TestSystem::Tree expected{{"|", ""},
                              {"|CurrentLevel", "#73728"},
                              {"|Description", "A zone; C:\\x"},
                              {"|DisplayName", "New & \"quoted\""},
                              {"|Flags", "#3"},
                              {"|Icon", program.platform.system.GetSystemDirectoryA() + "\\Inetcpl.cpl#4487"},
                              {"|MinLevel", "#73728"},
                              {"|RecommendedLevel", "#73728"}};
    expected.merge(system.tree(High));
    EXPECT_TRUE(expected.erase("|TemplateIndex"));
    // Another program may have added one meanwhile.
    addNew([&] { addZone("7"); });
    EXPECT_EQ(system.tree(zoneKey("8")), expected);
    EXPECT_EQ(stored("7", "DisplayName"), "Zone 7");
    EXPECT_EQ(window().lvwZones.item(9).text, "New & \"quoted\"");
    EXPECT_FALSE(open_);
    system.deleteTree(High);
    addNew([&] { desktop.expectMessage("no template, added"); });
    EXPECT_EQ(stored("9", "RecommendedLevel"), "#73728");
    EXPECT_FALSE(system.exists(High));
}

TEST_F(frmAddTest, NeverWritesOverAZoneThatIsThereAlready) {
    system.deleteTree(zoneKey("3"));  // a gap: the count of the zones is the number of one
    const auto before = system.tree(zones::ZonesKey);
    addNew([&] { desktop.expectMessage("not added, numbers|6"); });
    EXPECT_TRUE(open_);
    EXPECT_EQ(system.tree(zones::ZonesKey), before);
    if (!system.inMemory()) return;
    // Nor when the zones' key (1) or the new zone's (2) cannot be read.
    for (const int call : {1, 2}) {
        addNew([&] {
            desktop.expectMessage("not added, unreadable");
            system.registry.watch.failOn("RegOpenKeyExA", call, platform::AccessDenied);
        });
        EXPECT_EQ(system.tree(zones::ZonesKey), before) << call;
        EXPECT_TRUE(open_) << call;
    }
    addZone("3");
    const auto states = beforeEachWrite(zoneKey("7"), [&] { addNew([] {}); });
    EXPECT_EQ(states.at(3), (Texts{"Description", "DisplayName", "Icon"})) << "which are written first";
}
