#include "mail/frmOESecurity.h"
#include "mail/identities.h"
#include "support/User.h"

namespace {

const std::string Identities = "HKEY_CURRENT_USER\\Identities";
const std::string First = Identities + "\\{11111111-2222-3333-4444-555555555555}";
const std::string Settings = First + "\\Software\\Microsoft\\Outlook Express\\5.0";

}  // namespace

struct MailIdentities : User {
    MailIdentities() { system.seedZones(); }

    const std::deque<ui::MenuItem>& menu() { return window().mnuEditOESecurity.items(); }
    // Chooses the first identity in the menu.
    void open(const Script<frmOESecurity>& script) {
        desktop.use<frmOESecurity>(script, [&] { window().mnuEditOESecurity.items()[0].click(); });
    }
    // The zone it is in, and whether it is locked there.
    std::string settings() {
        return system.shown(Settings, "Security Zone").value_or("none") +
               (system.dword(Settings, "Security Zone Locked") == 1 ? " locked" : "");
    }
};

TEST_F(MailIdentities, AreMenuItemsInTheRegistrysOrderAndWithoutAnyTheDesignedOneStaysDisabled) {
    EXPECT_EQ(menu()[0].caption(), "(no identities)");
    EXPECT_FALSE(menu()[0].enabled());
    closeWindow();
    int number = 0;
    for (const char* name : {"Tom & \"Jerry\"", "", "-"})
        system.setText(Identities + "\\{" + std::to_string(number++) + "}", "Username", name);
    std::string captions;
    for (const ui::MenuItem& identity : menu()) {
        captions += identity.tag() + identity.caption() + " ";
        EXPECT_TRUE(identity.enabled());
        EXPECT_FALSE(identity.separator());
    }
    EXPECT_EQ(captions, "{0}Tom && \"Jerry\" {1}Missing Name {2}&- ");
}

TEST_F(MailIdentities, ShowTheZoneTheyAreIn) {
    system.setText(First, "Username", "Tom & Jerry");
    expectError("frmMain.mnuOEUser_Click", "no mail settings: Outlook Express has not been used with it yet.");
    window().mnuEditOESecurity.items()[0].click();
    system.makeKey(Settings);
    for (const auto& [zone, name] : {std::pair{"none", "Missing Name"}, {"#33", "Missing Name"}, {"#3", "Internet"}}) {
        if (*zone == '#') system.setDword(Settings, "Security Zone", static_cast<std::uint32_t>(std::atoi(zone + 1)));
        open([&, name = name](frmOESecurity& form) {
            EXPECT_EQ(form.lblIdentity.caption(), "Tom & Jerry");
            EXPECT_TRUE(form.lblIdentity.oneLine());
            EXPECT_EQ(form.lblZone.caption(), std::string(name) + " zone");
            EXPECT_EQ(form.lsvOEZones.selected(), 0);
            EXPECT_EQ(form.lsvOEZones.item(5).text, "Restricted sites");
        });
        EXPECT_EQ(settings(), zone);
    }
    if (!system.inMemory()) return;
    system.registry.watch.failOn("RegOpenKeyExA", 9, platform::AccessDenied);
    expectError("frmMain.mnuOEUser_Click", "The mail settings of this identity cannot be read.");
    window().mnuEditOESecurity.items()[0].click();
}

TEST_F(MailIdentities, AreMovedAndLockedByAClickOrByEnterButNotByLookingAround) {
    system.setDword(Settings, "Security Zone", 3);
    for (const char* odd : {"007", "abc"}) system.makeKey(zoneKey(odd));
    open([&](frmOESecurity& form) {
        form.lsvOEZones.choose(2);
        EXPECT_EQ(settings(), "#3");
        int restricted = 0;
        for (int item = 1; item <= form.lsvOEZones.count(); ++item) {
            const std::string key = form.lsvOEZones.item(item).tag;
            if (key == "4") restricted = item;
            if (key.size() == 1) continue;
            desktop.expectMessage("mail, no number|" + key);
            form.lsvOEZones.click(item);
            EXPECT_TRUE(form.loaded());
            EXPECT_EQ(settings(), "#3");
        }
        form.lsvOEZones.choose(restricted);
        form.lsvOEZones.activate();
        EXPECT_FALSE(form.loaded());
    });
    EXPECT_EQ(settings(), "#4 locked");
    system.deleteTree(zoneKey("007"));
    open([&](frmOESecurity& form) {
        system.setText(zoneKey("1"), "DisplayName", "Other");
        desktop.expectMessage("mail, changed");
        form.lsvOEZones.click(2);
        EXPECT_EQ(settings(), "#4 locked") << "the chosen zone has become another";
        EXPECT_EQ(form.lsvOEZones.item(2).text, "Other");
        system.deleteTree(zoneKey("4"));
        desktop.expectMessage("mail, gone");
        form.lsvOEZones.click(5);
        form.lsvOEZones.click(2);
    });
    EXPECT_EQ(settings(), "#1 locked");
    if (!system.inMemory()) return;
    open([&](frmOESecurity& form) {
        system.registry.watch.failOn("RegQueryValueExA", 1, platform::AccessDenied);
        desktop.expectMessage("unreadable, mail|" + zoneKey("2"));
        form.lsvOEZones.click(3);
        system.registry.watch.failOn("RegSetValueExA", 2, platform::AccessDenied);
        desktop.expectMessage("mail, refused");
        form.lsvOEZones.click(3);
    });
    EXPECT_EQ(settings(), "#2 locked");
}

IN_MEMORY_TEST_F(MailIdentities, ThatCannotBeReadArePassedOver) {
    for (const char* name : {"a", "b", "c"}) system.setText(Identities + "\\" + name, "Username", name);
    std::set<std::string> seen;
    desktop.patient = true;
    for (int refused = 1; refused < 40; ++refused) {
        closeWindow();
        system.registry.watch.failOn("RegOpenKeyExA", refused, platform::FileNotFound);
        std::string all;
        for (const ui::MenuItem& identity : menu()) all += identity.caption();
        seen.insert(all);
        system.registry.watch.reset();
    }
    EXPECT_EQ(seen, (std::set<std::string>{"(no identities)", "abc", "bc", "ac", "ab"}));
}
