// What holds of every dialog. After an error over it the keyboard is where it was, and Esc still closes it. And
// everything that the program takes from the system it gives back: after forty openings there are as many handles,
// and as much memory, as after ten.
#include <array>

#include "EveryControl.h"
#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "errors/frmError.h"
#include "mail/frmOESecurity.h"
#include "support/User.h"
#include "win32/DelayLoaded.h"

// clang-format off
#include <psapi.h>
// clang-format on

namespace {

// Handles are numbers in steps; asks for each whether it is one.
template <class Handle, class Is>
int count(std::uintptr_t first, std::uintptr_t last, std::uintptr_t step, Is is) {
    int found = 0;
    for (std::uintptr_t number = first; number <= last; number += step)
        if (is(reinterpret_cast<Handle>(number))) ++found;
    return found;
}

BOOL CALLBACK countWindow(HWND, LPARAM sum) {
    ++*reinterpret_cast<int*>(sum);
    return TRUE;
}
BOOL CALLBACK countTree(HWND window, LPARAM sum) {
    EnumChildWindows(window, countWindow, sum);
    return countWindow(window, sum);
}

// Drawing objects, windows, menus and kernel objects. Wine does not count them for us, but takes the lower half of a
// handle for the handle.
std::array<int, 4> handles() {
    int windows = 0;
    EnumThreadWindows(GetCurrentThreadId(), countTree, reinterpret_cast<LPARAM>(&windows));
    DWORD flags;
    return {count<HGDIOBJ>(1, 0xFFFF, 1, [](HGDIOBJ object) { return GetObjectType(object) != 0; }), windows,
            count<HMENU>(2, 0xFFFE, 2, [](HMENU menu) { return IsMenu(menu); }),
            count<HANDLE>(4, 0x4000, 4, [&](HANDLE handle) { return GetHandleInformation(handle, &flags); })};
}

long long kilobytes() {
    PROCESS_MEMORY_COUNTERS memory = {};
    win32::delayLoaded<decltype(&GetProcessMemoryInfo)>("psapi.dll", "GetProcessMemoryInfo")(GetCurrentProcess(),
                                                                                             &memory, sizeof memory);
    return static_cast<long long>(memory.WorkingSetSize / 1024);
}

struct EveryDialog : User {
    EveryDialog() {
        system.seedAll();
        window().show();
    }

    ScriptedDesktop& user = system.desktop;

    void seeError() {
        user.use<frmError>([](frmError&) {},
                           [] { procedure("EveryDialog", [] { throw util::Error(51, "", "Nothing is wrong."); }); });
        basErrors::ProcStack.clear();
    }
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
        seeError();
        EXPECT_EQ(GetActiveWindow(), windowOf(form));
        EXPECT_EQ(GetFocus(), focus);
        press(VK_ESCAPE);
        EXPECT_FALSE(form.loaded());
    }
    template <class F>
    void escape(const std::function<void()>& open) {
        user.use<F>([this](F& form) { escapeAfterAnError(form); }, open);
    }
    void expectNothingKept(const char* name, int times, const std::function<void()>& action) {
        SCOPED_TRACE(name);
        const auto repeat = [&](int count) {
            for (int i = 0; i < count; ++i) {
                action();
                program.platform.desktop.doEvents();
            }
        };
        repeat(10);
        const auto before = handles();
        const long long memory = kilobytes();
        repeat(times - 10);
        EXPECT_EQ(handles(), before);
        for (const int kind : before) EXPECT_GT(kind, 0);
        EXPECT_GT(memory, 0);
        EXPECT_LT(kilobytes(), memory + 512);
    }
};

TEST_F(EveryDialog, IsClosedByEscAfterAnErrorOverIt) {
    escape<frmAdd>([&] { window().mnuEditAdd.click(); });
    escape<frmBackup>([&] { window().mnuFileBackup.click(); });
    escape<frmRestore>([&] { window().mnuFileRestore.click(); });
    escape<frmOESecurity>([&] { window().mnuEditOESecurity.items()[0].click(); });
    edit("2", [&](frmEdit& form) {
        user.expectFile(system.path("shell32.dll"));
        escape<frmIconSelector>([&] { form.general.details.picIcon.click(); });
        form.TabStrip1.choose(SecurityPage);
        escape<frmSecurity>([&] { form.levels.cmdSecurity.click(); });
        escapeAfterAnError(form);
    });
    EXPECT_EQ(GetActiveWindow(), windowOf(window()));
    EXPECT_TRUE(IsWindowEnabled(windowOf(window())));
}

TEST_F(EveryDialog, GivesBackWhatItTakes) {
    int turn = 0;
    expectNothingKept("clicks on zones", 200, [&] { window().lvwZones.click(1 + turn++ % window().lvwZones.count()); });
    expectNothingKept("add", 40, [&] { add([](frmAdd&) {}); });
    expectNothingKept("errors", 40, [&] { seeError(); });
    expectNothingKept("backups", 40, [&] {
        system.system.now.second = (system.system.now.second + 1) % 60;
        user.use<frmBackup>([](frmBackup& form) { form.cmdBackup.click(); }, [&] { window().mnuFileBackup.click(); });
    });
    expectNothingKept("mail", 40, [&] {
        user.use<frmOESecurity>([](frmOESecurity&) {}, [&] { window().mnuEditOESecurity.items()[0].click(); });
    });
    expectNothingKept("restore", 40, [&] {
        user.use<frmRestore>([](frmRestore& form) { form.ListView1.click(1); },
                             [&] { window().mnuFileRestore.click(); });
    });
    expectNothingKept("edit", 40, [&] { edit("2", [&](frmEdit& form) { form.TabStrip1.choose(2 + turn++ % 2); }); });
    edit("2", [&](frmEdit& form) {
        const std::string file = system.path("shell32.dll");
        chooseIcon(form, file, 1);
        expectNothingKept("icons", 40, [&] { chooseIcon(form, file, 1, file); });
        form.TabStrip1.choose(SecurityPage);
        expectNothingKept("settings", 40, [&] { openSettings(form, [](frmSecurity&) {}); });
    });
}

}  // namespace
