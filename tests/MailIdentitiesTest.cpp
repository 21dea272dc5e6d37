#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "mail/frmOESecurity.h"
#include "mail/identities.h"
#include "support/BackupFixture.h"

namespace {

const std::string Identities = "HKEY_CURRENT_USER\\Identities";
const std::string First = "{11111111-2222-3333-4444-555555555555}", Second = "{AAAAAAAA-BBBB-CCCC-DDDD-EEEEEEEEEEEE}";
const std::string Mail = "\\Software\\Microsoft\\Outlook Express\\5.0";

}  // namespace

class MailIdentities : public BackupFixture {
protected:
    frmMain window{program};

    void SetUp() override { system.seedZones(); }
    void TearDown() override { window.unload(); }
    ui::MenuItem& item(int index) { return window.mnuEditOESecurity.items()[static_cast<std::size_t>(index)]; }
    static std::string settings(const std::string& identity) { return Identities + "\\" + identity + Mail; }
    // Chooses an identity in the menu.
    void open(int index, const std::function<void(frmOESecurity&)>& script) {
        desktop.expectForm<frmOESecurity>(script);
        item(index).click();
    }
};

TEST_F(MailIdentities, LeaveTheDesignedItemDisabledWhenThereAreNone) {
    window.load();
    ASSERT_EQ(window.mnuEditOESecurity.items().size(), 1u);
    EXPECT_EQ(item(0).caption(), "(no identities)");
    EXPECT_FALSE(item(0).enabled());
    item(0).click();
}

TEST_F(MailIdentities, AreMenuItemsInTheRegistrysOrder) {
    const struct {
        const char *key, *name, *caption;  // no name: none stored
    } cases[] = {{"{1}", "Tom & \"Jerry\"", "Tom && \"Jerry\""},
                 {"{2}", nullptr, "Missing Name"},
                 {"{3}", "", "Missing Name"},
                 {"{4}", "-", "&-"},
                 {"{5}", "&&", "&&&&"}};
    for (const auto& c : cases) {
        system.makeKey(Identities + "\\" + c.key);
        if (c.name) system.setText(Identities + "\\" + c.key, "Username", c.name);
    }
    window.load();
    ASSERT_EQ(window.mnuEditOESecurity.items().size(), std::size(cases));
    const auto keys = system.keys(Identities);
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const ui::MenuItem& identity = item(static_cast<int>(i));
        EXPECT_EQ(identity.name(), "mnuOEUser");
        EXPECT_EQ(identity.index(), static_cast<int>(i));
        EXPECT_EQ(identity.tag(), keys[i]);
        EXPECT_EQ(identity.caption(), cases[i].caption);
        EXPECT_TRUE(identity.enabled());
        EXPECT_FALSE(identity.separator());
    }
}

TEST_F(MailIdentities, ShowTheZoneTheyAreIn) {
    const struct {
        const char* what;
        std::function<void()> set;
        const char* zone;
    } cases[] = {{"internet", [&] { system.setDword(settings(First), "Security Zone", 3); }, "Internet zone"},
                 {"no such zone", [&] { system.setDword(settings(First), "Security Zone", 33); }, "Missing Name zone"},
                 {"never set", [&] { system.makeKey(settings(Second)); }, "Missing Name zone"}};
    system.makeKey(Identities + "\\" + First);
    system.makeKey(Identities + "\\" + Second);
    window.load();
    for (const auto& c : cases) {
        c.set();
        const int index = std::string(c.what) == "never set" ? 1 : 0;
        open(index, [&](frmOESecurity& form) {
            EXPECT_EQ(form.lblZone.caption(), c.zone) << c.what;
            EXPECT_EQ(form.lsvOEZones.count(), 5);
            EXPECT_EQ(form.lsvOEZones.selected(), 0);
            EXPECT_EQ(form.ilsZoneIcons.count(), 6);
            EXPECT_EQ(form.lsvOEZones.item(5).text, "Restricted sites");
            EXPECT_EQ(form.IdentityPath, settings(index ? Second : First) + " ");
            form.pressEscape();
        });
    }
    EXPECT_FALSE(system.dword(settings(Second), "Security Zone"));
}

TEST_F(MailIdentities, WithoutMailSettingsAreAnError) {
    system.setText(Identities + "\\" + First, "Username", "New");
    window.load();
    expectError("frmMain.mnuOEUser_Click", "no mail settings");
    item(0).click();
    EXPECT_EQ(desktop.forms().size(), 1u);
}

TEST_F(MailIdentities, AreMovedAndLockedByAClickOrByEnterButNotByLookingAround) {
    system.setDword(settings(First), "Security Zone", 3);
    window.load();
    open(0, [&](frmOESecurity& form) {
        form.lsvOEZones.choose(2);
        EXPECT_EQ(system.dword(settings(First), "Security Zone"), 3u);
        EXPECT_FALSE(system.dword(settings(First), "Security Zone Locked"));
        form.lsvOEZones.choose(5);
        form.lsvOEZones.activate();
        EXPECT_FALSE(form.loaded());
    });
    EXPECT_EQ(system.dword(settings(First), "Security Zone"), 4u);
    EXPECT_EQ(system.dword(settings(First), "Security Zone Locked"), 1u);
    open(0, [](frmOESecurity& form) { form.lsvOEZones.click(2); });
    EXPECT_EQ(system.dword(settings(First), "Security Zone"), 1u);
}

TEST_F(MailIdentities, CannotBeMovedToAZoneWithoutNumber) {
    system.setDword(settings(First), "Security Zone", 3);
    system.makeKey(zoneKey("abc"));
    window.load();
    open(0, [&](frmOESecurity& form) {
        ASSERT_EQ(form.lsvOEZones.count(), 6);
        expectError("frmOESecurity.lsvOEZones_ItemClick", "ABC");
        form.lsvOEZones.click(6);
        form.closeBox();
    });
    EXPECT_EQ(system.dword(settings(First), "Security Zone"), 3u);
}
