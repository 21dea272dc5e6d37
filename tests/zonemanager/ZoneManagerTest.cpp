// What the browser makes of an edited zone: after each edit the system's own zone manager is asked.
#include "support/EditingFixture.h"
#include "win32/WindowsHeaders.h"
// After the system's first header.
#include <urlmon.h>

namespace {

class ZoneManager {
public:
    ZoneManager() { EXPECT_EQ(CoInternetCreateZoneManager(nullptr, &manager_, 0), S_OK); }
    ~ZoneManager() { manager_->Release(); }
    ZoneManager(const ZoneManager&) = delete;
    ZoneManager& operator=(const ZoneManager&) = delete;

    ZONEATTRIBUTES attributes(DWORD zone) const {
        ZONEATTRIBUTES answer = {};
        answer.cbSize = sizeof answer;
        manager_->GetZoneAttributes(zone, &answer);
        return answer;
    }
    // "name|description|icon|"
    std::string texts(DWORD zone) const {
        const ZONEATTRIBUTES answer = attributes(zone);
        std::string texts;
        for (const WCHAR* wide : {answer.szDisplayName, answer.szDescription, answer.szIconPath}) {
            char text[MAX_PATH * 2] = "";
            WideCharToMultiByte(CP_ACP, 0, wide, -1, text, sizeof text, nullptr, nullptr);
            texts += text + std::string("|");
        }
        return texts;
    }
    // Current level, minimum, recommended, flags.
    std::vector<DWORD> numbers(DWORD zone) const {
        const ZONEATTRIBUTES a = attributes(zone);
        return {a.dwTemplateCurrentLevel, a.dwTemplateMinLevel, a.dwTemplateRecommended, a.dwFlags};
    }
    // For running controls and plug-ins.
    DWORD policy(DWORD zone) const {
        DWORD answer = 0xBAD;
        auto* bytes = reinterpret_cast<BYTE*>(&answer);
        manager_->GetZoneActionPolicy(zone, URLACTION_ACTIVEX_RUN, bytes, sizeof answer, URLZONEREG_HKCU);
        return answer;
    }

private:
    IInternetZoneManager* manager_ = nullptr;
};

using Numbers = std::vector<DWORD>;

struct ZoneManagerTest : EditingFixture {
    ZoneManager manager;

    static void typeOver(ui::TextBox& box, const std::string& text) {
        box.selectAll();
        box.type(text);
    }
    static void applyLevel(LevelsPage& page, int index, int level) {
        page.cboSetting(index).choose(level);
        page.cmdApply(index).click();
    }
};

}  // namespace

TEST_F(ZoneManagerTest, AnswersWhatWasEdited) {
    EXPECT_EQ(manager.numbers(2), (Numbers{65536, 65536, 65536, 71}));
    edit("2", [&](frmEdit& form) {
        ZoneDetails& details = form.general.details;
        typeOver(details.txtZoneName, "Us & \"them\"; C:\\x \xE9");
        typeOver(details.txtZoneDescription, "What we trust");
        form.general.cmdGeneral(1).click();
        EXPECT_EQ(manager.texts(2), "Us & \"them\"; C:\\x \xE9|What we trust|inetcpl.cpl#00004480|");
        form.general.cmdGeneral(0).click();
        EXPECT_TRUE(manager.texts(2).starts_with("Trusted sites|This zone contains Web sites that you trust"));

        form.TabStrip1.choose(FlagsPage);
        for (const int box : {2, 7}) form.flags.chkProperties(box).click();
        form.pressEnter();
        EXPECT_EQ(manager.numbers(2), (Numbers{65536, 65536, 65536, 195}));

        form.TabStrip1.choose(SecurityPage);
        applyLevel(form.levels, RecommendedLevel, 1);
        applyLevel(form.levels, MinimumLevel, 2);
        EXPECT_EQ(manager.numbers(2), (Numbers{65536, 66816, 69632, 195}));
        EXPECT_EQ(manager.policy(2), DWORD{URLPOLICY_ALLOW});
        applyLevel(form.levels, CurrentLevel, 0);
        EXPECT_EQ(manager.numbers(2), (Numbers{73728, 66816, 69632, 195}));
        EXPECT_EQ(manager.policy(2), DWORD{URLPOLICY_DISALLOW});

        openSettings(form, [&](frmSecurity& settings) {
            TVMRTreeView& tree = settings.TVMRTreeView1;
            int prompt = 1;
            while (prompt < tree.count() && tree.node(prompt).tag != "1200,1") ++prompt;
            tree.click(prompt);
            EXPECT_EQ(manager.numbers(2), (Numbers{0, 66816, 69632, 195}));
            EXPECT_EQ(manager.policy(2), DWORD{URLPOLICY_QUERY});
        });
    });
}

TEST_F(ZoneManagerTest, KnowsAZoneThatWasAdded) {
    add([&](frmAdd& form) {
        form.details.txtZoneName.type("Added");
        form.details.txtZoneDescription.type("By hand");
        form.pressEnter();
    });
    const std::string icon = program.platform.system.GetSystemDirectoryA() + "\\Inetcpl.cpl#4487";
    EXPECT_EQ(manager.texts(7), "Added|By hand|" + icon + "|");
    EXPECT_EQ(manager.numbers(7), (Numbers{73728, 73728, 73728, 3}));
    EXPECT_EQ(manager.policy(7), DWORD{URLPOLICY_DISALLOW});
}
