// Everything that the program takes from the system it gives back: after a hundred openings of each dialog there are as
// many handles, and as much memory, as after ten.
#include <cstdio>

#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "errors/frmError.h"
#include "mail/frmOESecurity.h"
#include "support/EditingFixture.h"
#include "util/Error.h"
#include "util/procedure.h"
#include "util/trace.h"
#include "win32/WindowsHeaders.h"

// clang-format off
#include <psapi.h>
// clang-format on

namespace {

template <class Function>
Function* find(const char* library, const char* name) {
    const HMODULE module = LoadLibraryA(library);
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(module ? GetProcAddress(module, name) : nullptr));
}

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

struct Taken {
    int gdi = 0, user = 0, kernel = 0;
    long long kilobytes = 0;

    Taken() {
        countGui();
        kernel = count<HANDLE>(4, 0x4000, 4, [](HANDLE handle) {
            DWORD flags;
            return GetHandleInformation(handle, &flags);
        });
        PROCESS_MEMORY_COUNTERS memory = {};
        memory.cb = sizeof memory;
        if (const auto ask =
                find<BOOL WINAPI(HANDLE, PROCESS_MEMORY_COUNTERS*, DWORD)>("psapi.dll", "GetProcessMemoryInfo"))
            ask(GetCurrentProcess(), &memory, sizeof memory);
        kilobytes = static_cast<long long>(memory.WorkingSetSize / 1024);
    }

private:
    // Wine does not count for us, but takes the lower half of a handle for the handle.
    void countGui() {
        if (const auto ask = find<DWORD WINAPI(HANDLE, DWORD)>("user32.dll", "GetGuiResources")) {
            gdi = static_cast<int>(ask(GetCurrentProcess(), 0));
            user = static_cast<int>(ask(GetCurrentProcess(), 1));
        }
        if (gdi == 0) gdi = count<HGDIOBJ>(1, 0xFFFF, 1, [](HGDIOBJ object) { return GetObjectType(object) != 0; });
        if (user > 0) return;
        EnumThreadWindows(GetCurrentThreadId(), countTree, reinterpret_cast<LPARAM>(&user));
        user += count<HMENU>(2, 0xFFFE, 2, [](HMENU menu) { return IsMenu(menu); });
    }
};

struct LeakTest : EditingFixture {
    LeakTest() { window->show(); }

    ScriptedDesktop& user = system.desktop;

    void backUp() {
        system.system.now.second = (system.system.now.second + 1) % 60;
        user.use<frmBackup>([](frmBackup& form) { form.cmdBackup.click(); }, [&] { window->mnuFileBackup.click(); });
    }
    void seeError() {
        user.use<frmError>([](frmError&) {},
                           [] { procedure("LeakTest", [] { throw util::Error(51, "", "Nothing is wrong."); }); });
        basErrors::ProcStack.clear();
    }
    void expectNothingKept(const char* name, int times, const std::function<void()>& action) {
        SCOPED_TRACE(name);
        const auto repeat = [&](int count) {
            for (int i = 0; i < count; ++i) {
                action();
                program.platform.desktop.doEvents();
            }
            return Taken();
        };
        const Taken before = repeat(10), after = repeat(times - 10);
        std::printf("%-16s %4d times: %d GDI, %d USER, %d kernel handles, %+lld KB\n", name, times, after.gdi,
                    after.user, after.kernel, after.kilobytes - before.kilobytes);
        EXPECT_GT(after.gdi, 0);
        EXPECT_GT(after.user, 0);
        EXPECT_EQ(after.gdi, before.gdi);
        EXPECT_EQ(after.user, before.user);
        EXPECT_EQ(after.kernel, before.kernel);
        EXPECT_GT(after.kilobytes, 0);
        EXPECT_LT(after.kilobytes, before.kilobytes + 512);
    }
};

TEST_F(LeakTest, WhatIsTakenIsGivenBack) {
    int turn = 0;
    expectNothingKept("clicks on zones", 1000, [&] { window->lvwZones.click(1 + turn++ % window->lvwZones.count()); });
    expectNothingKept("add", 100, [&] { add([](frmAdd&) {}); });
    expectNothingKept("errors", 100, [&] { seeError(); });
    expectNothingKept("backups", 100, [&] { backUp(); });
    expectNothingKept("mail", 100, [&] {
        user.use<frmOESecurity>([](frmOESecurity&) {}, [&] { window->mnuEditOESecurity.items()[0].click(); });
    });
    expectNothingKept("restore", 100, [&] {
        user.use<frmRestore>([](frmRestore& form) { form.ListView1.click(1); },
                             [&] { window->mnuFileRestore.click(); });
    });
    expectNothingKept("edit", 100, [&] { edit("2", [&](frmEdit& form) { form.TabStrip1.choose(2 + turn++ % 2); }); });
    edit("2", [&](frmEdit& form) {
        expectNothingKept("icons", 100, [&] { chooseIcon(form, system.path("shell32.dll"), 1); });
        form.TabStrip1.choose(SecurityPage);
        expectNothingKept("settings", 100, [&] { openSettings(form, [](frmSecurity&) {}); });
    });
}

}  // namespace
