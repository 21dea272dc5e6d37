#include "app/frmMain.h"
#include "mail/frmOESecurity.h"
#include "mail/identities.h"
#include "support/BackupFixture.h"

namespace {

const std::string Identities = "HKEY_CURRENT_USER\\Identities";
const std::string First = Identities + "\\{11111111-2222-3333-4444-555555555555}";
const std::string Settings = First + "\\Software\\Microsoft\\Outlook Express\\5.0";

}  // namespace

class MailIdentities : public BackupFixture {
protected:
    frmMain window{program};

    void SetUp() override { system.seedZones(); }
    void TearDown() override { window.unload(); }
    ui::MenuItem& item(int index) { return window.mnuEditOESecurity.items()[static_cast<std::size_t>(index)]; }
    // Chooses the first identity in the menu.
    void open(const std::function<void(frmOESecurity&)>& script) {
        desktop.expectForm<frmOESecurity>(script);
        item(0).click();
    }
};

TEST_F(MailIdentities, AreMenuItemsInTheRegistrysOrderAndWithoutAnyTheDesignedOneStaysDisabled) {
    window.load();
    EXPECT_EQ(item(0).caption(), "(no identities)");
    EXPECT_FALSE(item(0).enabled());
    window.unload();
    const std::pair<const char*, const char*> cases[] = {
        {"Tom & \"Jerry\"", "Tom && \"Jerry\""}, {"", "Missing Name"}, {"-", "&-"}};
    for (const auto& c : cases)
        system.setText(Identities + "\\{" + std::to_string(&c - cases) + "}", "Username", c.first);
    window.load();
    ASSERT_EQ(window.mnuEditOESecurity.items().size(), std::size(cases));
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const ui::MenuItem& identity = item(static_cast<int>(i));
        EXPECT_EQ(identity.tag(), "{" + std::to_string(i) + "}");
        EXPECT_EQ(identity.caption(), cases[i].second);
        EXPECT_TRUE(identity.enabled() && !identity.separator());
    }
}

TEST_F(MailIdentities, ShowTheZoneTheyAreIn) {
    system.makeKey(Settings);
    window.load();
    for (const auto& [zone, name] : {std::pair{-1, "Missing Name"}, {33, "Missing Name"}, {3, "Internet"}}) {
        if (zone >= 0) system.setDword(Settings, "Security Zone", static_cast<std::uint32_t>(zone));
        open([&](frmOESecurity& form) {
            EXPECT_EQ(form.lblZone.caption(), std::string(name) + " zone") << zone;
            EXPECT_EQ(form.lsvOEZones.selected(), 0);
            EXPECT_EQ(form.lsvOEZones.item(5).text, "Restricted sites");
            form.pressEscape();
        });
        EXPECT_EQ(system.dword(Settings, "Security Zone").value_or(99), zone < 0 ? 99u : unsigned(zone));
    }
}

TEST_F(MailIdentities, WithoutMailSettingsAreAnError) {
    system.makeKey(First);
    window.load();
    expectError("frmMain.mnuOEUser_Click", "no mail settings");
    item(0).click();
}

TEST_F(MailIdentities, AreMovedAndLockedByAClickOrByEnterButNotByLookingAround) {
    system.setDword(Settings, "Security Zone", 3);
    system.makeKey(zoneKey("abc"));
    window.load();
    const auto moved = [&](unsigned zone) {
        EXPECT_EQ(system.dword(Settings, "Security Zone"), zone);
        EXPECT_EQ(system.dword(Settings, "Security Zone Locked").has_value(), zone != 3);
    };
    open([&](frmOESecurity& form) {
        form.lsvOEZones.choose(2);
        moved(3);
        expectError("frmOESecurity.lsvOEZones_ItemClick", "abc");
        form.lsvOEZones.click(6);  // a zone without number
        moved(3);
        form.lsvOEZones.choose(5);
        form.lsvOEZones.activate();
        EXPECT_FALSE(form.loaded());
    });
    moved(4);
    open([](frmOESecurity& form) { form.lsvOEZones.click(2); });
    moved(1);
}
