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
        EXPECT_TRUE(identity.enabled());
        EXPECT_FALSE(identity.separator());
    }
}

TEST_F(MailIdentities, ShowTheZoneTheyAreIn) {
    system.makeKey(Settings);
    system.setText(First, "Username", "Tom & Jerry");
    window.load();
    for (const auto& [zone, name] : {std::pair{-1, "Missing Name"}, {33, "Missing Name"}, {3, "Internet"}}) {
        if (zone >= 0) system.setDword(Settings, "Security Zone", static_cast<std::uint32_t>(zone));
        open([&, zone = zone, name = name](frmOESecurity& form) {
            EXPECT_EQ(form.lblIdentity.caption(), "Tom & Jerry");
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
    for (const char* odd : {"007", "abc"}) system.makeKey(zoneKey(odd));
    window.load();
    const auto moved = [&](unsigned zone) {
        EXPECT_EQ(system.dword(Settings, "Security Zone"), zone);
        EXPECT_EQ(system.dword(Settings, "Security Zone Locked").value_or(99), zone == 3 ? 99u : 1u);
    };
    open([&](frmOESecurity& form) {
        form.lsvOEZones.choose(2);
        moved(3);
        for (int item = 1; item <= form.lsvOEZones.count(); ++item) {
            const std::string key = form.lsvOEZones.item(item).tag;
            if (key.size() == 1) continue;
            desktop.expectMessage("mail, no number|" + key);
            form.lsvOEZones.click(item);
            EXPECT_TRUE(form.loaded());
            moved(3);
        }
        for (int item = 1; item <= form.lsvOEZones.count(); ++item)
            if (form.lsvOEZones.item(item).tag == "4") form.lsvOEZones.choose(item);
        form.lsvOEZones.activate();
        EXPECT_FALSE(form.loaded());
    });
    moved(4);
    system.deleteTree(zoneKey("007"));
    open([](frmOESecurity& form) { form.lsvOEZones.click(2); });
    moved(1);
}

IN_MEMORY_TEST_F(MailIdentities, ThatCannotBeReadArePassedOver) {
    for (const char* name : {"a", "b", "c"}) system.setText(Identities + "\\" + name, "Username", name);
    std::set<std::string> seen;
    for (int refused = 1; refused < 40; ++refused) {
        desktop.patient = true;
        system.registry.watch.failOn("RegOpenKeyExA", refused, platform::FileNotFound);
        frmMain other(program);
        other.load();
        system.registry.watch.reset();
        std::string all;
        for (const ui::MenuItem& identity : other.mnuEditOESecurity.items()) all += identity.caption();
        seen.insert(all);
        other.unload();
    }
    EXPECT_EQ(seen, (std::set<std::string>{"(no identities)", "abc", "bc", "ac", "ab"}));
}

TEST_F(MailIdentities, StayWhereTheyAreWhenTheChosenZoneHasBecomeAnother) {
    system.setDword(Settings, "Security Zone", 3);
    window.load();
    open([&](frmOESecurity& form) {
        system.setText(zoneKey("4"), "DisplayName", "Other");
        desktop.expectMessage("mail, changed");
        form.lsvOEZones.click(5);
        EXPECT_EQ(system.dword(Settings, "Security Zone"), 3u);
        EXPECT_EQ(form.lsvOEZones.item(5).text, "Other");
        form.lsvOEZones.click(5);
    });
    EXPECT_EQ(system.dword(Settings, "Security Zone"), 4u);
}
