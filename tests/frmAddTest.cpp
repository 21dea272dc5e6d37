#include "editing/frmAdd.h"

#include "support/EditingFixture.h"

namespace {

const std::string Template =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\TemplatePolicies\\High";

struct frmAddTest : EditingFixture {
    static void fill(frmAdd& form) {
        form.details.txtZoneName.type("New & \"quoted\"");
        form.details.txtZoneDescription.type("A zone; C:\\x");
    }
};

}  // namespace

TEST_F(frmAddTest, MakesASafeZoneUnderTheNextNumberAndCloses) {
    add([&](frmAdd& form) {
        EXPECT_FALSE(form.details.picIcon.picture().empty());
        fill(form);
        form.pressEnter();
        EXPECT_FALSE(form.loaded());
    });
    const std::string zone = key("7"), high = Template;
    EXPECT_EQ(system.text(zone, "DisplayName"), "New & \"quoted\"");
    EXPECT_EQ(system.text(zone, "Description"), "A zone; C:\\x");
    EXPECT_EQ(system.text(zone, "Icon"), program.platform.system.GetSystemDirectoryA() + "\\Inetcpl.cpl#4487");
    EXPECT_EQ(system.text(zone, ""), "");
    EXPECT_EQ(system.dword(zone, "Flags"), 3u);
    EXPECT_EQ(system.dword(zone, "MinLevel"), 73728u);
    EXPECT_EQ(system.dword(zone, "1200"), system.dword(high, "1200"));
    EXPECT_EQ(system.values(zone).size(), system.values(high).size() - 1 + 5);  // no TemplateIndex, but its own
    EXPECT_EQ(window->lvwZones.item(8).text, "New & \"quoted\"");
}

TEST_F(frmAddTest, NeverWritesOverAZoneThatIsThereAlready) {
    removeZone("3");  // a gap: the count of the zones is the number of one
    const auto before = system.text(key("6"), "DisplayName");
    add([&](frmAdd& form) {
        fill(form);
        system.desktop.expectMessage("not added, numbers|6");
        form.cmdGeneral.click();
        EXPECT_TRUE(form.loaded());
    });
    EXPECT_EQ(system.keys(zones::ZonesKey), (std::vector<std::string>{"0", "1", "2", "4", "5", "6"}));
    EXPECT_EQ(system.text(key("6"), "DisplayName"), before);
}

TEST_F(frmAddTest, TakesTheNextNumberAlsoWhenAnotherProgramHasAddedAZoneMeanwhile) {
    add([&](frmAdd& form) {
        fill(form);
        system.setText(key("7"), "DisplayName", "Another's");
        form.cmdGeneral.click();
    });
    EXPECT_EQ(system.text(key("7"), "DisplayName"), "Another's");
    EXPECT_EQ(system.text(key("8"), "DisplayName"), "New & \"quoted\"");
}

IN_MEMORY_TEST_F(frmAddTest, StaysOpenWhenTheZoneCannotBeMade) {
    add([&](frmAdd& form) {
        fill(form);
        system.registry.watch.failOn("RegCreateKeyExA", 1, platform::AccessDenied);
        system.desktop.expectMessage("not added");
        form.cmdGeneral.click();
        ASSERT_TRUE(form.loaded());
        form.cmdGeneral.click();
    });
    EXPECT_TRUE(system.exists(key("7")));
}

IN_MEMORY_TEST_F(frmAddTest, DoesNotTakeAZoneThatCannotBeReadForNone) {
    removeZone("3");
    const auto before = system.text(key("6"), "DisplayName");
    add([&](frmAdd& form) {
        fill(form);
        for (int call = 1;; ++call) {  // the last is refused none
            system.registry.watch.reset();
            system.registry.watch.failOn("RegOpenKeyExA", call, platform::AccessDenied);
            system.desktop.patient = true;
            form.cmdGeneral.click();
            if (!system.registry.watch.failed() || HasFailure()) break;
            system.desktop.settle();
            EXPECT_EQ(system.text(key("6"), "DisplayName"), before) << call;
        }
    });
    EXPECT_EQ(system.text(key("6"), "DisplayName"), before);
}

TEST_F(frmAddTest, TellsThatTheTemplateIsMissingAndMakesTheZoneAllTheSame) {
    system.deleteTree(Template);
    add([&](frmAdd& form) {
        fill(form);
        system.desktop.expectMessage("no template, added");
        form.cmdGeneral.click();
    });
    EXPECT_EQ(system.dword(key("7"), "RecommendedLevel"), 73728u);
    EXPECT_FALSE(system.exists(Template));
}
