// Forms as windows: modal and modeless, their hooks, and what handlers throw.
#include <filesystem>
#include <stdexcept>

#include "EveryControl.h"
#include "platform/SystemError.h"
#include "ui/WindowHook.h"
#include "win32/Callbacks.h"
#include "win32/Screen.h"
#include "win32/System.h"
#include "win32/SystemError.h"

namespace {

using Kind = ui::Form::Kind;

struct DesktopTest : WindowsTest {
    // Asks by a message box or the file dialog, and tells whether that brought an answer.
    bool answered(bool byFile) {
        if (byFile) return desktop.openFile({"Title", "All (*.*)|*.*", "", ""}).has_value();
        return desktop.messageBox("Really?", "Title", ui::MessageStyle::ExclamationYesNo) != ui::Answer{};
    }
};

// What stands over a form by the system's doing; null while there is nothing.
HWND systemDialogOver(const ui::Form& form) {
    const HWND popup = GetLastActivePopup(windowOf(form));
    return popup != windowOf(form) && IsWindowVisible(popup) ? popup : nullptr;
}

HWND openMenu() {
    const HWND menu = FindWindowA("#32768", nullptr);
    return IsWindowVisible(menu) ? menu : nullptr;
}

// Does something when the form stands there complete and its modal loop is about to wait.
template <class Action>
void whenShown(EveryControl& form, Action action) {
    form.timer.onTimer = [&form, action] {
        form.timer.setEnabled(false);
        action();
    };
    form.timer.setEnabled(true);
}

TEST_F(DesktopTest, AModalFormKeepsTheOthersWaitingAndGivesTheFocusBack) {
    EveryControl owner(desktop), dialog(desktop, Kind::Dialog), inner(desktop, Kind::Dialog);
    owner.show();
    const HWND ownerWindow = windowOf(owner);
    int focused = 0;
    owner.combo.onGotFocus = [&] { ++focused; };
    SetFocus(windowOf(owner.combo));
    whenShown(dialog, [&] {
        EXPECT_FALSE(IsWindowEnabled(ownerWindow));
        EXPECT_EQ(GetActiveWindow(), windowOf(dialog));
        dialog.check.setFocus();
        for (ui::Form* below : {static_cast<EveryControl*>(nullptr), &owner}) {
            whenShown(inner, [&] {
                EXPECT_EQ(GetWindow(windowOf(inner), GW_OWNER), below ? ownerWindow : windowOf(dialog))
                    << "no owner is the active form";
                inner.unload();
            });
            inner.showModal(below);
            EXPECT_TRUE(IsWindowEnabled(windowOf(dialog)));
            EXPECT_FALSE(IsWindowEnabled(ownerWindow));
            EXPECT_EQ(GetActiveWindow(), windowOf(dialog));
            EXPECT_EQ(GetFocus(), windowOf(dialog.check));
        }
        dialog.unload();
        EXPECT_EQ(GetActiveWindow(), ownerWindow) << "not another program's window";
    });
    dialog.showModal(&owner);
    EXPECT_TRUE(IsWindowEnabled(ownerWindow));
    EXPECT_FALSE(windowOf(dialog));
    EXPECT_EQ(GetFocus(), windowOf(owner.combo));
    EXPECT_EQ(focused, 1);
}

// A tool that the machine's user closes the session with would cut a backup in two.
TEST_F(DesktopTest, ABusyFormKeepsTheWindowsAndTheSession) {
    EveryControl main(desktop), dialog(desktop, Kind::Dialog);
    main.show();
    dialog.show();
    for (const bool busy : {false, true, false}) {
        dialog.setBusy(busy);
        for (const ui::Form* form : {&main, &dialog}) {
            EXPECT_EQ(SendMessageA(windowOf(*form), WM_QUERYENDSESSION, 0, 0), !busy);
            if (busy) SendMessageA(windowOf(*form), WM_CLOSE, 0, 0);
            EXPECT_TRUE(form->loaded());
        }
        EXPECT_EQ(IsWindowEnabled(windowOf(dialog)), !busy);
    }
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

TEST_F(DesktopTest, OnlyAMainWindowHasAnIconAndAFrameThatIsDragged) {
    constexpr LONG_PTR ByTheUser = WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
    for (const Kind kind : {Kind::Main, Kind::Dialog}) {
        EveryControl form(desktop, kind);
        form.show();
        const LONG_PTR style = GetWindowLongPtrA(windowOf(form), GWL_STYLE);
        const LONG_PTR extended = GetWindowLongPtrA(windowOf(form), GWL_EXSTYLE);
        EXPECT_EQ(style & ByTheUser, kind == Kind::Main ? ByTheUser : 0);
        EXPECT_EQ(extended & WS_EX_DLGMODALFRAME, kind == Kind::Main ? 0 : WS_EX_DLGMODALFRAME);
        EXPECT_TRUE(style & WS_SYSMENU);
        EXPECT_TRUE(extended & WS_EX_CONTROLPARENT);
    }
}

TEST_F(DesktopTest, AMainWindowIsSizedByUserAndProgram) {
    EveryControl form(desktop);
    EXPECT_EQ(form.place().width, 0);
    form.show();
    for (const auto& [which, length] : {std::pair{ICON_SMALL, SM_CXSMICON}, {ICON_BIG, SM_CXICON}}) {
        const LRESULT icon = SendMessageA(windowOf(form), WM_GETICON, static_cast<WPARAM>(which), 0);
        ICONINFO parts = {};
        GetIconInfo(reinterpret_cast<HICON>(icon), &parts);
        BITMAP size = {};
        GetObjectA(parts.hbmMask, sizeof size, &size);
        EXPECT_EQ(size.bmWidth, GetSystemMetrics(length)) << which;
    }
    RECT at = {}, work = {};
    GetWindowRect(windowOf(form), &at);
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_NEAR(at.left - work.left, work.right - at.right, 1);
    const auto expectPlaced = [&] {
        GetWindowRect(windowOf(form), &at);
        const win32::Screen screen;
        EXPECT_EQ(form.place(), (ui::Bounds{screen.twips(at.left), screen.twips(at.top),
                                            screen.twips(at.right - at.left), screen.twips(at.bottom - at.top)}));
    };
    expectPlaced();
    const int width = at.right - at.left, height = at.bottom - at.top;
    const auto resize = [&](int wider, int higher) {
        SetWindowPos(windowOf(form), nullptr, 0, 0, width + wider, height + higher, SWP_NOMOVE | SWP_NOZORDER);
        expectPlaced();
    };
    resize(20, 0);
    EXPECT_EQ(form.client(), (ui::Size{6705, 5800})) << "the height is not rounded";
    resize(-100, 40);
    EXPECT_EQ(form.client(), (ui::Size{6405, 6405})) << "no narrower than designed";
    EXPECT_EQ(form.resizes, 2);
    form.setHeight(form.height() + 600);
    expectPlaced();
    EXPECT_EQ(form.resizes, 3);
    const int dots = win32::Screen().pixelsPerInch();
    EXPECT_EQ(at.bottom - at.top, ui::toPixels(form.height(), dots));

    const LONG restored = at.right - at.left;
    ShowWindow(windowOf(form), SW_SHOWMAXIMIZED);
    EXPECT_GT(form.client().width, 6400);
    form.setHeight(form.smallest().width);
    expectPlaced();
    EXPECT_EQ(at.right - at.left, restored) << "and not as wide as the screen";
    EXPECT_EQ(at.bottom - at.top, ui::toPixels(6400, dots));
    EXPECT_NEAR(form.client().width, 6400, 15);
    const int resizes = form.resizes;
    ShowWindow(windowOf(form), SW_MINIMIZE);
    EXPECT_EQ(form.resizes, resizes);
    EXPECT_GT(form.place().width, 6400);
    EveryControl elsewhere(desktop);
    elsewhere.setPlace(99999, -99999, 7500);
    elsewhere.show();
    GetWindowRect(windowOf(elsewhere), &at);
    EXPECT_EQ(std::pair(at.right, at.top), std::pair(work.right, work.top));
}

TEST_F(DesktopTest, NobodyIsAskedForADisk) {
    const UINT before = SetErrorMode(0);
    const win32::System system;
    EXPECT_EQ(SetErrorMode(before), UINT{SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX});
}

// No lambda: those have the C calling convention on 32 bits.
void CALLBACK endLateMenu(HWND, UINT, UINT_PTR, DWORD) {
    ADD_FAILURE() << "the menu is still open";
    EndMenu();
}

// A menu that is open has a message loop of the system's, which would wait for ever for a window that nobody can see.
TEST_F(DesktopTest, ClosingAWindowEndsItsMenuFirst) {
    for (const char* of : {"window", "text box", "list"}) {
        EveryControl form(desktop);
        form.shows.addCommand(form.ok);
        form.shows.setSelected(1);
        form.show();
        bool inMenuAtTheEnd = false;
        form.onUnload = [&] { inMenuAtTheEnd = openMenu(); };
        int ticks = 0;
        form.timer.onTimer = [&] {
            if (openMenu() && ++ticks == 3) PostMessageA(windowOf(form), WM_CLOSE, 0, 0);
        };
        form.timer.setEnabled(true);
        const UINT_PTR rescue = SetTimer(nullptr, 0, 5000, endLateMenu);
        if (*of == 'w')
            post(windowOf(form), WM_SYSCOMMAND, SC_KEYMENU, 'f');
        else
            post(*of == 't' ? windowOf(form.text) : windowOf(form.shows), WM_CONTEXTMENU, 0, -1);
        desktop.run();
        KillTimer(nullptr, rescue);
        EXPECT_GE(ticks, 3) << of;
        EXPECT_FALSE(inMenuAtTheEnd) << of;
    }
}

TEST_F(DesktopTest, AListOffersItsCommandsWhereTheyAreAllowed) {
    EveryControl form(desktop);
    for (int item = 0; item < 60; ++item) form.shows.add({"Item", 0, {}, {}});
    for (ui::CommandButton* button : {&form.ok, &form.cancel}) form.shows.addCommand(*button);
    form.ok.setEnabled(false);
    form.show();
    desktop.doEvents();
    std::string offered;
    std::vector<WPARAM> keys;
    form.timer.onTimer = [&] {
        const HWND popup = openMenu();
        constexpr UINT MnGetMenu = 0x1E1;
        if (!popup || keys.empty()) return;
        if (offered.empty()) {
            const auto menu = reinterpret_cast<HMENU>(SendMessageA(popup, MnGetMenu, 0, 0));
            RECT at = {}, list = {}, both = {};
            GetWindowRect(popup, &at);
            GetWindowRect(windowOf(form.shows), &list);
            offered = IntersectRect(&both, &at, &list) ? "" : "not at the item: ";
            for (int i = 0; i < GetMenuItemCount(menu); ++i) {
                char text[32] = "";
                GetMenuStringA(menu, static_cast<UINT>(i), text, sizeof text, MF_BYPOSITION);
                const bool grey = (GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & MF_GRAYED) != 0;
                offered += std::string(text) + (grey ? "(grey) " : " ");
            }
        }
        PostMessageA(windowOf(form), WM_KEYDOWN, keys.back(), 1);
        keys.pop_back();
    };
    form.timer.setEnabled(true);
    const struct {
        int selected;
        bool byMouse;
        const char *offered, *event;
    } rows[] = {{0, false, "", ""},
                {1, false, "&OK(grey) Cance&l ", "cancel"},
                {60, false, "&OK(grey) Cance&l ", "cancel"},  // not on the screen until it is asked for
                {60, true, "", ""}};                          // beside the items
    for (const auto& row : rows) {
        SCOPED_TRACE(row.selected);
        form.shows.setSelected(row.selected);
        ask(form.shows, LVM_SCROLL, 0, -10000);
        form.events.clear();
        offered.clear();
        keys = {VK_RETURN, 'L'};
        RECT place = {};
        GetWindowRect(windowOf(form.shows), &place);
        ask(form.shows, WM_CONTEXTMENU, 0, row.byMouse ? MAKELPARAM(place.left + 1, place.top + 1) : -1);
        EXPECT_EQ(offered, row.offered);
        EXPECT_EQ(form.events, row.event[0] ? std::vector<std::string>{row.event} : std::vector<std::string>{});
        if (!row.selected) keys.clear();
    }
}

// As wide as the screen is no menu, and as high as the list no label: the list would scroll past it.
TEST_F(DesktopTest, ShortensWhatWouldNotFit) {
    EveryControl form(desktop);
    const std::string w(259, 'W');
    form.menu().add("pair", std::string(46, 'x') + "&&" + w);
    form.menu().add("long", w);
    for (int item = 4; item < 60; ++item) form.shows.add({"Item", 1, {}, {}});
    form.shows.add({w, 1, {}, {}});
    form.shows.setSelected(60);
    form.show();
    desktop.doEvents();
    char text[300] = "";
    for (const auto& [place, shown] : {std::pair{1u, "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx..."},
                                       {2u, "WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW..."}}) {
        GetMenuStringA(GetMenu(windowOf(form)), place, text, sizeof text, MF_BYPOSITION);
        EXPECT_STREQ(text, shown);
    }
    LVITEMA item = {};
    item.pszText = text;
    item.cchTextMax = sizeof text;
    ask(form.shows, LVM_GETITEMTEXTA, 59, reinterpret_cast<LPARAM>(&item));
    EXPECT_STREQ(text, "WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW...");
    RECT icon = {LVIR_ICON, 0, 0, 0};
    ask(form.shows, LVM_GETITEMRECT, 59, reinterpret_cast<LPARAM>(&icon));
    EXPECT_GT(icon.bottom, 0);
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
}

// What a handler throws comes out of our own call that made the system call it, and of nothing in between.
TEST_F(DesktopTest, ExceptionsPassTheSystemParkedAndNothingIsHandledTwice) {
    EveryControl form(desktop, Kind::Dialog);
    form.show();
    desktop.doEvents();
    const auto fail = [](auto&&...) { throw std::runtime_error("from a handler"); };
    form.ok.onClick = form.combo.onGotFocus = fail;
    form.shows.onItemClick = fail;
    const struct {
        const char* where;
        std::function<void()> act;
    } table[] = {
        {"Enter", [&] { press(form.text, VK_RETURN); }},
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

    // The native control or the dialog manager would do the same thing again.
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

    SetLastError(ERROR_NO_SYSTEM_RESOURCES);
    try {
        win32::throwLastError();
    } catch (const platform::SystemError& error) {
        EXPECT_EQ(error.code(), 1450u);
        EXPECT_EQ(std::string(error.what()).back(), '.');
    }
}

// Otherwise the program would end only when the user has closed the system's dialog as well.
TEST_F(DesktopTest, EndingTheProgramLeavesEveryLoop) {
    for (const bool file : {false, true}) {
        SCOPED_TRACE(file);
        EveryControl main(desktop), error(desktop, Kind::Dialog);
        error.ok.onClick = [] { throw ui::EndProgram(); };
        whenShown(error, [&] { PostMessageA(windowOf(error.ok), BM_CLICK, 0, 0); });
        HWND box = nullptr;
        int ticks = 0;
        main.timer.onTimer = [&] {
            if (box && ++ticks == 20) PostMessageA(box, WM_COMMAND, file ? IDCANCEL : IDNO, 0);
            if (box || !(box = systemDialogOver(main))) return;
            error.showModal(&main);
        };
        main.timer.setEnabled(true);
        main.ok.onClick = [&] {
            answered(file);
            ADD_FAILURE() << "the system's dialog has returned";
        };
        main.show();
        post(windowOf(main.ok), BM_CLICK);
        EXPECT_THROW(desktop.run(), ui::EndProgram);
        EXPECT_LT(ticks, 20);
        EXPECT_TRUE(IsWindowEnabled(windowOf(main)));
        SendMessageA(windowOf(main.check), BM_CLICK, 0, 0);
        EXPECT_TRUE(main.events.empty()) << "on the way out nothing of the forms is called any more";
        PostQuitMessage(0);
        EXPECT_THROW(desktop.doEvents(), ui::EndProgram) << "the system's wish";
        PostQuitMessage(0);
        EXPECT_THROW(desktop.run(), ui::EndProgram);
    }
}

// Somebody outside can close what is disabled. A dialog is still needed by what comes after the question.
TEST_F(DesktopTest, ClosingTheMainWindowClosesASystemDialogAboveIt) {
    for (const bool file : {false, true}) {
        EveryControl main(desktop), dialog(desktop, Kind::Dialog);
        main.show();
        bool dialogStayed = false;
        int ticks = 0;
        main.timer.onTimer = [&] {
            if (!systemDialogOver(dialog)) return;
            if (++ticks == 1) post(windowOf(dialog), WM_CLOSE);
            if (ticks == 3) dialogStayed = dialog.loaded(), dialog.unload(), post(windowOf(main), WM_CLOSE);
        };
        whenShown(dialog, [&] {
            main.timer.setEnabled(true);
            EXPECT_FALSE(answered(file));
        });
        dialog.showModal(&main);
        EXPECT_TRUE(dialogStayed) << file;
        EXPECT_FALSE(main.loaded()) << file;
    }
}

TEST_F(DesktopTest, QuestionsAreAskedByTheSystem) {
    EveryControl form(desktop);
    form.show();
    bool sizable = false;
    const auto answer = [&](WPARAM button) {
        form.timer.onTimer = [&form, &sizable, button] {
            const HWND box = systemDialogOver(form);
            if (!box) return;
            form.timer.setEnabled(false);
            sizable = GetWindowLongPtrA(box, GWL_STYLE) & WS_THICKFRAME;
            RECT place = {}, work = {};
            GetWindowRect(box, &place);
            SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
            EXPECT_LE(place.right, work.right);
            EXPECT_LE(place.bottom, work.bottom);
            PostMessageA(box, WM_COMMAND, button, 0);
        };
        form.timer.setEnabled(true);
    };
    SetWindowPos(windowOf(form), nullptr, GetSystemMetrics(SM_CXSCREEN) - 50, GetSystemMetrics(SM_CYSCREEN) - 50, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER);
    const HWND other =
        CreateWindowA("STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    for (const auto& [button, given] : {std::pair{IDYES, ui::Answer::Yes}, {IDNO, ui::Answer::No}}) {
        SetActiveWindow(other);
        answer(static_cast<WPARAM>(button));
        EXPECT_EQ(desktop.messageBox("Really?", "Title", ui::MessageStyle::ExclamationYesNo), given);
        EXPECT_EQ(GetActiveWindow(), other);
    }
    DestroyWindow(other);
    char file[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, file, sizeof file);
    const auto folder = std::filesystem::current_path();
    for (const auto& [button, chosen] : {std::pair{IDOK, file}, {IDCANCEL, nullptr}}) {
        sizable = false;
        answer(static_cast<WPARAM>(button));
        const auto path = desktop.openFile({"Title", "Programs (*.exe)|*.exe", "exe", file});
        EXPECT_EQ(path.value_or("none"), chosen ? chosen : "none");
        EXPECT_EQ(std::filesystem::current_path(), folder);
        EXPECT_TRUE(sizable);
    }
}

TEST_F(DesktopTest, TextTakesTheSpaceItIsGiven) {
    const ui::Size one = desktop.textSize("R&D zone", 0, false);
    EXPECT_GT(desktop.textSize("R&D zone", 0, true).width, one.width);
    EXPECT_GT(one.width, desktop.textSize("RD zone", 0, false).width);
    EXPECT_EQ(desktop.textSize("R&D zone", one.width - 100, false).height, 2 * one.height);
}

}  // namespace
