// What the browser makes of an edited zone: after each edit the system's own zone manager is asked.
#include "support/EditingFixture.h"
#include "win32/WindowsHeaders.h"
// After the system's first header.
#include <urlmon.h>

namespace {

struct ZoneManagerTest : EditingFixture {
    ZoneManagerTest() { EXPECT_EQ(CoInternetCreateZoneManager(nullptr, &manager, 0), S_OK); }
    ~ZoneManagerTest() override { manager->Release(); }

    IInternetZoneManager* manager = nullptr;

    // "name|description|icon"
    std::string texts(DWORD zone) {
        ZONEATTRIBUTES answer = {};
        answer.cbSize = sizeof answer;
        manager->GetZoneAttributes(zone, &answer);
        std::string texts;
        for (const WCHAR* wide : {answer.szDisplayName, answer.szDescription, answer.szIconPath}) {
            char text[MAX_PATH * 2] = "";
            WideCharToMultiByte(CP_ACP, 0, wide, -1, text, sizeof text, nullptr, nullptr);
            texts += (texts.empty() ? "" : "|") + std::string(text);
        }
        return texts;
    }
    // Current level, minimum, recommended, flags, and what is done with controls and plug-ins.
    std::vector<DWORD> numbers(DWORD zone) {
        ZONEATTRIBUTES a = {};
        a.cbSize = sizeof a;
        manager->GetZoneAttributes(zone, &a);
        DWORD policy = 0xBAD;
        auto* bytes = reinterpret_cast<BYTE*>(&policy);
        manager->GetZoneActionPolicy(zone, URLACTION_ACTIVEX_RUN, bytes, sizeof policy, URLZONEREG_HKCU);
        return {a.dwTemplateCurrentLevel, a.dwTemplateMinLevel, a.dwTemplateRecommended, a.dwFlags, policy};
    }
};

}  // namespace

TEST_F(ZoneManagerTest, AnswersWhatWasEdited) {
    using Numbers = std::vector<DWORD>;
    EXPECT_EQ(numbers(2), (Numbers{65536, 65536, 65536, 71, URLPOLICY_ALLOW}));
    edit("2", [&](frmEdit& form) {
        ZoneDetails& details = form.general.details;
        details.txtZoneName.selectAll();
        details.txtZoneName.type("Us & \"them\"; C:\\x \xE9");
        details.txtZoneDescription.selectAll();
        details.txtZoneDescription.type("What we trust");
        form.general.cmdGeneral(1).click();
        EXPECT_EQ(texts(2), "Us & \"them\"; C:\\x \xE9|What we trust|inetcpl.cpl#00004480");

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
        EXPECT_EQ(numbers(2), (Numbers{65536, 66816, 69632, 195, URLPOLICY_ALLOW}));
        choose(CurrentLevel, 0);
        EXPECT_EQ(numbers(2), (Numbers{73728, 66816, 69632, 195, URLPOLICY_DISALLOW}));
        openSettings(form, [&](frmSecurity& settings) {
            TVMRTreeView& tree = settings.TVMRTreeView1;
            int prompt = 1;
            while (prompt < tree.count() && tree.node(prompt).tag != "1200,1") ++prompt;
            tree.click(prompt);
            EXPECT_EQ(numbers(2), (Numbers{0, 66816, 69632, 195, URLPOLICY_QUERY}));
        });
    });
    add([&](frmAdd& form) {
        form.details.txtZoneName.type("Added");
        form.details.txtZoneDescription.type("By hand");
        form.pressEnter();
    });
    EXPECT_EQ(texts(7), "Added|By hand|" + program.platform.system.GetSystemDirectoryA() + "\\Inetcpl.cpl#4487");
    EXPECT_EQ(numbers(7), (Numbers{73728, 73728, 73728, 3, URLPOLICY_DISALLOW}));
}
