// What the browser makes of an edited zone: after each edit the system's own zone manager is asked.
#include <cstdio>

#include "support/User.h"
#include "win32/WindowsHeaders.h"
// After the system's first header.
#include <urlmon.h>

namespace {

struct ZoneManagerTest : User {
    ZoneManagerTest() {
        system.seedAll();
        EXPECT_EQ(CoInternetCreateZoneManager(nullptr, &manager, 0), S_OK);
    }
    ~ZoneManagerTest() override { manager->Release(); }

    IInternetZoneManager* manager = nullptr;

    // "name|description|icon|level|minimum|recommended|flags|what is done with controls and plug-ins"
    std::string answer(DWORD zone) {
        ZONEATTRIBUTES a = {};
        a.cbSize = sizeof a;
        manager->GetZoneAttributes(zone, &a);
        DWORD policy = 0xBAD;
        auto* bytes = reinterpret_cast<BYTE*>(&policy);
        manager->GetZoneActionPolicy(zone, URLACTION_ACTIVEX_RUN, bytes, sizeof policy, URLZONEREG_HKCU);
        char text[2000];
        const int length = std::snprintf(text, sizeof text, "%ls|%ls|%ls|%lu|%lu|%lu|%lu|%lu", a.szDisplayName,
                                         a.szDescription, a.szIconPath, a.dwTemplateCurrentLevel, a.dwTemplateMinLevel,
                                         a.dwTemplateRecommended, a.dwFlags, policy);
        return {text, static_cast<std::size_t>(length)};
    }
};

}  // namespace

TEST_F(ZoneManagerTest, AnswersWhatWasEdited) {
    edit("2", [&](frmEdit& form) {
        ZoneDetails& details = form.general.details;
        details.txtZoneName.selectAll();
        details.txtZoneName.type("Us & \"them\"; C:\\x");
        details.txtZoneDescription.selectAll();
        details.txtZoneDescription.type("What we trust");
        form.general.cmdGeneral(1).click();
        const std::string texts = "Us & \"them\"; C:\\x|What we trust|inetcpl.cpl#00004480|";
        EXPECT_EQ(answer(2), texts + "65536|65536|65536|71|0");

        form.TabStrip1.choose(FlagsPage);
        for (const int box : {2, 7}) form.flags.chkProperties(box).click();
        form.pressEnter();
        form.TabStrip1.choose(SecurityPage);
        const auto choose = [&](int index, int level) {
            form.levels.cboSetting(index).choose(level);
            form.levels.cmdApply(index).click();
        };
        choose(RecommendedLevel, 1);
        choose(MinimumLevel, 2);
        EXPECT_EQ(answer(2), texts + "65536|66816|69632|195|0");
        choose(CurrentLevel, 0);
        EXPECT_EQ(answer(2), texts + "73728|66816|69632|195|3");
        openSettings(form, [&](frmSecurity& settings) {
            TVMRTreeView& tree = settings.TVMRTreeView1;
            int prompt = 1;
            while (prompt < tree.count() && tree.node(prompt).tag != "1200,1") ++prompt;
            tree.click(prompt);
            EXPECT_EQ(answer(2), texts + "0|66816|69632|195|1");
        });
    });
    add([&](frmAdd& form) {
        form.details.txtZoneName.type("Added \xE9");
        form.details.txtZoneDescription.type("By hand");
        form.pressEnter();
    });
    const std::string icon = program.platform.system.GetSystemDirectoryA() + "\\Inetcpl.cpl#4487";
    EXPECT_EQ(answer(7), "Added \xE9|By hand|" + icon + "|73728|73728|73728|3|3");
}
