// Forms as windows: modal and modeless, their hooks, and what handlers throw.
#include <stdexcept>

#include "EveryControl.h"
#include "platform/SystemError.h"
#include "ui/WindowHook.h"
#include "win32/Callbacks.h"
#include "win32/SystemError.h"

namespace {

using Kind = ui::Form::Kind;

struct DesktopTest : WindowsTest {};

// Does something when the form stands there complete and its modal loop is about to wait.
template <class Action>
void whenShown(EveryControl& form, Action action) {
    form.timer.onTimer = [&form, action] {
        form.timer.setEnabled(false);
        action();
    };
    form.timer.setEnabled(true);
}

TEST_F(DesktopTest, AModalFormKeepsTheOthersWaiting) {
    EveryControl owner(desktop);
    owner.show();
    const HWND ownerWindow = windowOf(owner);
    EveryControl dialog(desktop, Kind::Dialog), inner(desktop, Kind::Dialog);
    whenShown(dialog, [&] {
        EXPECT_FALSE(IsWindowEnabled(ownerWindow));
        EXPECT_EQ(GetActiveWindow(), windowOf(dialog));
        whenShown(inner, [&] {
            EXPECT_EQ(GetWindow(windowOf(inner), GW_OWNER), windowOf(dialog)) << "no owner is the active form";
            inner.unload();
        });
        inner.showModal();
        EXPECT_TRUE(IsWindowEnabled(windowOf(dialog)) && !IsWindowEnabled(ownerWindow));
        dialog.unload();
        EXPECT_EQ(GetActiveWindow(), ownerWindow) << "not another program's window";
    });
    dialog.showModal(&owner);
    EXPECT_TRUE(IsWindowEnabled(ownerWindow) && !windowOf(dialog));
    owner.unload();
}

TEST_F(DesktopTest, AFormCanBeShownAgainEvenInTheHandlerThatUnloadedIt) {
    EveryControl form(desktop, Kind::Dialog);
    int rounds = 0;
    form.ok.onClick = [&] {
        form.unload();
        if (++rounds == 1) form.show();
        if (form.loaded()) PostMessageA(windowOf(form.ok), BM_CLICK, 0, 0);
    };
    whenShown(form, [&] { PostMessageA(windowOf(form.ok), BM_CLICK, 0, 0); });
    form.showModal();
    EXPECT_EQ(rounds, 2);
    EXPECT_EQ(windowOf(form), nullptr);
}

TEST_F(DesktopTest, AMainWindowIsSizedByUserAndProgram) {
    EveryControl form(desktop);
    form.show();
    RECT at = {}, work = {};
    GetWindowRect(windowOf(form), &at);
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_NEAR(at.left - work.left, work.right - at.right, 1);
    const int width = at.right - at.left, height = at.bottom - at.top;
    SetWindowPos(windowOf(form), nullptr, 0, 0, width - 100, height + 40, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(form.resizes, 1);
    EXPECT_EQ(form.client().width, 6400) << "no narrower than designed";
    form.setHeight(form.height() + 600);
    EXPECT_EQ(form.resizes, 2);
    GetWindowRect(windowOf(form), &at);
    EXPECT_EQ(at.bottom - at.top, ui::toPixels(form.height(), GetDeviceCaps(GetDC(nullptr), LOGPIXELSY)));
    form.unload();
}

TEST_F(DesktopTest, AHookStandsBeforeTheWindowProcedure) {
    EveryControl form(desktop);
    form.show();
    const auto procedure = [&] { return GetWindowLongPtrA(windowOf(form), GWLP_WNDPROC); };
    const LONG_PTR before = procedure();
    constexpr UINT Question = WM_APP + 7;
    form.setHook([&](const ui::WindowMessage& message) -> std::optional<std::intptr_t> {
        if (message.message == Question) return static_cast<std::intptr_t>(message.wParam + message.lParam);
        if (message.message == ui::WmNotify && message.notification == ui::LvnBeginDrag) return 1;
        return std::nullopt;
    });
    EXPECT_EQ(SendMessageA(windowOf(form), Question, 40, 2), 42);
    NMHDR drag = {windowOf(form.shows), 0, static_cast<UINT>(ui::LvnBeginDrag)};
    EXPECT_EQ(SendMessageA(windowOf(form), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&drag)), 1);
    SetWindowTextA(windowOf(form), "passed on");
    EXPECT_EQ(textOf(windowOf(form)), "passed on");
    form.setHook([&](const ui::WindowMessage&) -> std::optional<std::intptr_t> {
        form.setHook({});  // from inside
        return std::nullopt;
    });
    SendMessageA(windowOf(form), Question, 1, 1);
    EXPECT_EQ(procedure(), before);
    form.unload();
}

// What a handler throws comes out of our own call that made the system call it, and of nothing in between.
TEST_F(DesktopTest, ExceptionsPassTheSystemParked) {
    EveryControl form(desktop);
    form.show();
    desktop.doEvents();
    const auto fail = [](auto&&...) { throw std::runtime_error("from a handler"); };
    form.ok.onClick = form.combo.onGotFocus = form.text.onChange = fail;
    form.shows.onItemClick = fail;
    const struct {
        const char* where;
        std::function<void()> act;
    } table[] = {
        {"Enter", [&] { press(form.text, VK_RETURN); }},
        {"typing", [&] { post(windowOf(form.text), WM_CHAR, 'x', 1), desktop.doEvents(); }},
        {"a notification", [&] { press(form.shows, VK_RIGHT); }},
        {"the focus", [&] { press(form.check, VK_TAB); }},
        {"a message sent", [&] { win32::send(windowOf(form.ok), BM_CLICK); }},
        {"the hook",
         [&] {
             form.setHook([](const ui::WindowMessage& message) -> std::optional<std::intptr_t> {
                 if (message.message == WM_SETTEXT) throw std::runtime_error("from the hook");
                 return std::nullopt;
             });
             form.setCaption("thrown at");
         }},
    };
    for (const auto& row : table) EXPECT_THROW(row.act(), std::runtime_error) << row.where;
    EXPECT_NO_THROW(desktop.doEvents()) << "each was thrown once";
    form.unload();
}

// Otherwise the native control or the dialog manager would do the same thing again.
TEST_F(DesktopTest, AMessageWhoseHandlerThrowsIsNotHandledTwice) {
    EveryControl form(desktop, Kind::Dialog);
    form.show();
    const auto fail = [](auto&&...) { throw std::runtime_error("from a handler"); };
    int reports = 0;
    form.setHook([&](const ui::WindowMessage& message) -> std::optional<std::intptr_t> {
        if (message.notification == static_cast<int>(NM_RETURN)) ++reports;
        return std::nullopt;
    });
    form.acts.setSelected(1);
    form.acts.onItemClick = fail;
    EXPECT_THROW(press(form.acts, VK_RETURN), std::runtime_error);
    EXPECT_EQ(reports, 0) << "by the native list, which would have had the key as well";

    form.setHook([&](const ui::WindowMessage& message) -> std::optional<std::intptr_t> {
        if (message.message == WM_CLOSE) fail();
        return std::nullopt;
    });
    post(windowOf(form), WM_CLOSE);
    EXPECT_THROW(desktop.doEvents(), std::runtime_error);
    EXPECT_TRUE(form.loaded()) << "the form would have been closed";
    form.setHook({});
    form.onUnload = fail;
    post(windowOf(form), WM_CLOSE);
    EXPECT_THROW(desktop.doEvents(), std::runtime_error);
    form.onUnload = nullptr;
    desktop.doEvents();
    EXPECT_EQ(form.events, std::vector<std::string>()) << "the dialog manager would have pressed Cancel";
}

// What a hook of the system forbids to be created.
LRESULT CALLBACK refuseWindows(int code, WPARAM, LPARAM) {
    return code == HCBT_CREATEWND;
}

TEST_F(DesktopTest, AWindowThatCannotBeMadeIsTheSystemsError) {
    EveryControl form(desktop);
    const HHOOK hook = SetWindowsHookExA(WH_CBT, refuseWindows, nullptr, GetCurrentThreadId());
    EXPECT_THROW(form.show(), platform::SystemError);
    UnhookWindowsHookEx(hook);
    EXPECT_FALSE(form.attached());
    form.unload();

    SetLastError(ERROR_NO_SYSTEM_RESOURCES);
    try {
        win32::throwLastError();
    } catch (const platform::SystemError& error) {
        EXPECT_EQ(error.code(), 1450u);
        EXPECT_STRNE(error.what(), "");
    }
}

// Otherwise the program would end only when the user has closed that dialog as well.
TEST_F(DesktopTest, EndingTheProgramClosesASystemDialogBelow) {
    EveryControl main(desktop);
    main.show();
    bool closedByTest = false;
    for (const bool file : {false, true}) {
        EveryControl error(desktop, Kind::Dialog);
        error.ok.onClick = [] { throw ui::EndProgram(); };
        whenShown(error, [&] { PostMessageA(windowOf(error.ok), BM_CLICK, 0, 0); });
        HWND box = nullptr;
        int ticks = 0;
        main.timer.onTimer = [&] {
            if (!box) {
                const HWND popup = GetLastActivePopup(windowOf(main));
                if (popup == windowOf(main) || !IsWindowVisible(popup)) return;
                box = popup;
                error.showModal(&main);
            } else if (++ticks == 20) {
                closedByTest = true;
                PostMessageA(box, WM_COMMAND, file ? IDCANCEL : IDNO, 0);
            }
        };
        main.timer.setEnabled(true);
        const auto ask = [&] {
            if (file)
                desktop.openFile({"Title", "All (*.*)|*.*", "", ""});
            else
                desktop.messageBox("Really?", "Title", ui::MessageStyle::ExclamationYesNo);
        };
        EXPECT_THROW(ask(), ui::EndProgram) << file;
        EXPECT_FALSE(closedByTest) << file;
        main.timer.setEnabled(false);
        error.unload();
    }
    main.unload();
}

TEST_F(DesktopTest, AfterAModalFormTheWindowActiveBeforeIsActiveAgain) {
    EveryControl main(desktop);
    main.show();
    EveryControl dialog(desktop, Kind::Dialog), error(desktop, Kind::Dialog);
    whenShown(dialog, [&] {
        dialog.check.setFocus();
        whenShown(error, [&] { error.unload(); });
        error.showModal(&main);
        EXPECT_EQ(GetActiveWindow(), windowOf(dialog));
        EXPECT_EQ(GetFocus(), windowOf(dialog.check));
        dialog.unload();
    });
    dialog.showModal(&main);
    EXPECT_EQ(GetActiveWindow(), windowOf(main));
    main.unload();
}

TEST_F(DesktopTest, EndingTheProgramLeavesEveryLoop) {
    EveryControl main(desktop);
    EveryControl dialog(desktop, Kind::Dialog);
    dialog.ok.onClick = [] { throw ui::EndProgram(); };
    whenShown(dialog, [&] { PostMessageA(windowOf(dialog.ok), BM_CLICK, 0, 0); });
    main.ok.onClick = [&] {
        dialog.showModal(&main);
        ADD_FAILURE() << "the dialog has returned";
    };
    main.show();
    post(windowOf(main.ok), BM_CLICK);
    EXPECT_THROW(desktop.run(), ui::EndProgram);
    EXPECT_TRUE(IsWindowEnabled(windowOf(main)));
    SendMessageA(windowOf(main.check), BM_CLICK, 0, 0);
    EXPECT_TRUE(main.events.empty()) << "on the way out nothing of the forms is called any more";
    dialog.unload();
    main.unload();
}

TEST_F(DesktopTest, QuestionsAreAskedByTheSystem) {
    EveryControl form(desktop);
    form.show();
    const auto answer = [&](WPARAM button) {
        form.timer.onTimer = [&form, button] {
            const HWND box = GetLastActivePopup(windowOf(form));
            if (box == windowOf(form) || !IsWindowVisible(box)) return;
            form.timer.setEnabled(false);
            PostMessageA(box, WM_COMMAND, button, 0);
        };
        form.timer.setEnabled(true);
    };
    for (const auto& [button, given] : {std::pair{IDYES, ui::Answer::Yes}, {IDNO, ui::Answer::No}}) {
        answer(static_cast<WPARAM>(button));
        EXPECT_EQ(desktop.messageBox("Really?", "Title", ui::MessageStyle::ExclamationYesNo), given);
    }
    char file[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, file, sizeof file);
    for (const auto& [button, chosen] : {std::pair{IDOK, file}, {IDCANCEL, nullptr}}) {
        answer(static_cast<WPARAM>(button));
        const auto path = desktop.openFile({"Title", "Programs (*.exe)|*.exe", "exe", file});
        EXPECT_EQ(path.value_or("none"), chosen ? chosen : "none");
    }
    form.unload();
}

TEST_F(DesktopTest, TextTakesTheSpaceItIsGiven) {
    const ui::Size one = desktop.textSize("R&D zone", 0, false);
    EXPECT_GT(desktop.textSize("R&D zone", 0, true).width, one.width);
    EXPECT_GT(one.width, desktop.textSize("RD zone", 0, false).width);
    EXPECT_EQ(desktop.textSize("R&D zone", one.width - 100, false).height, 2 * one.height);
}

}  // namespace
