// After an error dialog the keyboard is where it was: every dialog over which one was closed still answers Esc.
#include "EveryControl.h"
#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "errors/frmError.h"
#include "mail/frmOESecurity.h"
#include "support/EditingFixture.h"
#include "util/Error.h"
#include "util/procedure.h"
#include "util/trace.h"

namespace {

struct KeyboardTest : EditingFixture {
    KeyboardTest() { window->show(); }

    void press(WPARAM key) {
        PostMessageA(GetFocus(), WM_KEYDOWN, key, 1);
        program.platform.desktop.doEvents();
    }
    void escapeAfterAnError(ui::Form& form) {
        SCOPED_TRACE(form.name());
        program.platform.desktop.doEvents();
        EXPECT_EQ(GetActiveWindow(), windowOf(form));
        press(VK_TAB);
        const HWND focus = GetFocus();
        system.desktop.expectForm<frmError>([](frmError& error) { error.cmdContinue.click(); });
        procedure("KeyboardTest", [] { throw util::Error(51, "", "Nothing is wrong."); });
        basErrors::ProcStack.clear();
        EXPECT_EQ(GetActiveWindow(), windowOf(form));
        EXPECT_EQ(GetFocus(), focus);
        press(VK_ESCAPE);
        EXPECT_FALSE(form.loaded());
    }
    template <class F>
    void escape(const std::function<void()>& open) {
        system.desktop.use<F>([this](F& form) { escapeAfterAnError(form); }, open);
    }
};

TEST_F(KeyboardTest, EscClosesEveryDialogAfterAnErrorOverIt) {
    escape<frmAdd>([&] { window->mnuEditAdd.click(); });
    escape<frmBackup>([&] { window->mnuFileBackup.click(); });
    escape<frmRestore>([&] { window->mnuFileRestore.click(); });
    escape<frmOESecurity>([&] { window->mnuEditOESecurity.items()[0].click(); });
    edit("2", [&](frmEdit& form) {
        system.desktop.expectFile(system.path("shell32.dll"));
        escape<frmIconSelector>([&] { form.general.details.picIcon.click(); });
        form.TabStrip1.choose(SecurityPage);
        escape<frmSecurity>([&] { form.levels.cmdSecurity.click(); });
        escapeAfterAnError(form);
    });
    EXPECT_EQ(GetActiveWindow(), windowOf(*window));
    EXPECT_TRUE(IsWindowEnabled(windowOf(*window)));
}

}  // namespace
