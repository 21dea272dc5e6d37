// What the browser makes of an edited zone: after each edit, made with mouse and keyboard in the dialogs' windows, the
// system's own zone manager is asked.
#include "support/EditingFixture.h"
#include "win32/EveryControl.h"
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

class ZoneManagerTest : public EditingFixture {
protected:
    ZoneManager manager;

    void post(HWND at, UINT message, WPARAM w = 0, LPARAM l = 0) {
        PostMessageA(at, message, w, l);
        program.platform.desktop.doEvents();
    }
    void clickAt(const ui::Control& control, LONG x, LONG y) {
        ASSERT_TRUE(IsWindowVisible(windowOf(control))) << control.name();
        post(windowOf(control), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        post(windowOf(control), WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    }
    void click(const ui::Control& control) { clickAt(control, 6, 6); }
    void press(const ui::Control& control, WPARAM key) { post(windowOf(control), WM_KEYDOWN, key, 1); }
    // The box's whole text is selected when it gets the focus.
    void typeOver(ui::TextBox& box, const std::string& text) {
        SetFocus(windowOf(box));
        for (const char c : text) post(windowOf(box), WM_CHAR, static_cast<unsigned char>(c), 1);
    }
    void chooseTab(const ui::TabStrip& strip, int tab) {
        RECT place = {};
        ask(strip, TCM_GETITEMRECT, static_cast<WPARAM>(tab - 1), reinterpret_cast<LPARAM>(&place));
        clickAt(strip, (place.left + place.right) / 2, (place.top + place.bottom) / 2);
        EXPECT_EQ(strip.selected(), tab);
    }
    void applyLevel(LevelsPage& page, int index, const char* level) {
        const ui::ComboBox& box = page.cboSetting(index);
        SetFocus(windowOf(box));
        press(box, VK_HOME);
        for (int i = 1; i < static_cast<int>(box.items().size()) && box.text() != level; ++i) press(box, VK_DOWN);
        EXPECT_EQ(box.text(), level);
        click(page.cmdApply(index));
    }
    void clickNode(TVMRTreeView& tree, int number) {
        tree.ensureVisible(number);
        program.platform.desktop.doEvents();
        LRESULT item = ask(tree, TVM_GETNEXTITEM, TVGN_ROOT);
        for (int i = 1; i < number; ++i) item = ask(tree, TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, item);
        RECT label = {};
        *reinterpret_cast<LRESULT*>(&label) = item;
        ask(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&label));
        clickAt(tree, label.left + 3, (label.top + label.bottom) / 2);
    }
};

}  // namespace

TEST_F(ZoneManagerTest, AnswersWhatWasEdited) {
    EXPECT_EQ(manager.numbers(2), (Numbers{65536, 65536, 65536, 71}));
    edit("2", [&](frmEdit& form) {
        ZoneDetails& details = form.general.details;
        typeOver(details.txtZoneName, "Us & \"them\"; C:\\x \xE9");
        typeOver(details.txtZoneDescription, "What we trust");
        click(form.general.cmdGeneral(1));
        EXPECT_EQ(manager.texts(2), "Us & \"them\"; C:\\x \xE9|What we trust|inetcpl.cpl#00004480|");
        click(form.general.cmdGeneral(0));
        EXPECT_TRUE(manager.texts(2).starts_with("Trusted sites|This zone contains Web sites that you trust"));

        chooseTab(form.TabStrip1, FlagsPage);
        click(form.flags.chkProperties(2));
        click(form.flags.chkProperties(7));
        press(form.flags.chkProperties(7), VK_RETURN);
        EXPECT_EQ(manager.numbers(2), (Numbers{65536, 65536, 65536, 195}));

        chooseTab(form.TabStrip1, SecurityPage);
        applyLevel(form.levels, RecommendedLevel, "Medium");
        applyLevel(form.levels, MinimumLevel, "Medium-Low");
        EXPECT_EQ(manager.numbers(2), (Numbers{65536, 66816, 69632, 195}));
        EXPECT_EQ(manager.policy(2), DWORD{URLPOLICY_ALLOW});
        applyLevel(form.levels, CurrentLevel, "High");
        EXPECT_EQ(manager.numbers(2), (Numbers{73728, 66816, 69632, 195}));
        EXPECT_EQ(manager.policy(2), DWORD{URLPOLICY_DISALLOW});

        system.desktop.expectForm<frmSecurity>([&](frmSecurity& settings) {
            TVMRTreeView& tree = settings.TVMRTreeView1;
            int prompt = 1;
            while (prompt < tree.count() && tree.node(prompt).tag != "1200,1") ++prompt;
            clickNode(tree, prompt);
            EXPECT_EQ(manager.numbers(2), (Numbers{0, 66816, 69632, 195}));
            EXPECT_EQ(manager.policy(2), DWORD{URLPOLICY_QUERY});
            press(tree, VK_UP);
            press(tree, VK_SPACE);
            EXPECT_EQ(manager.policy(2), std::stoul(tree.node(prompt - 1).tag.substr(5)));
            press(tree, VK_ESCAPE);
            EXPECT_FALSE(settings.loaded());
        });
        click(form.levels.cmdSecurity);
        click(form.cmdClose);
        EXPECT_FALSE(form.loaded());
    });
}

TEST_F(ZoneManagerTest, KnowsAZoneThatWasAdded) {
    add([&](frmAdd& form) {
        typeOver(form.details.txtZoneName, "Added");
        typeOver(form.details.txtZoneDescription, "By hand");
        press(form.details.txtZoneDescription, VK_RETURN);
        EXPECT_FALSE(form.loaded());
    });
    const std::string icon = program.platform.system.GetSystemDirectoryA() + "\\Inetcpl.cpl#4487";
    EXPECT_EQ(manager.texts(7), "Added|By hand|" + icon + "|");
    EXPECT_EQ(manager.numbers(7), (Numbers{73728, 73728, 73728, 3}));
    EXPECT_EQ(manager.policy(7), DWORD{URLPOLICY_DISALLOW});
}
