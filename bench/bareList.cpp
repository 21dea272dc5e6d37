// The least that a program with the main window's controls does before the user sees them: what the start of Tavimor is
// measured by. The same windows, five icons and a menu, and nothing behind them.
#include <windows.h>

#include <commctrl.h>

#include <initializer_list>

namespace {

HFONT font;

LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcA(window, message, w, l);
}

HWND add(HWND window, const char* kind, const char* text, DWORD style, const RECT& at, DWORD extended = 0) {
    const HWND control =
        CreateWindowExA(extended, kind, text, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | style, at.left, at.top,
                        at.right, at.bottom, window, nullptr, GetModuleHandleA(nullptr), nullptr);
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return control;
}

void addZones(HWND list) {
    const HIMAGELIST icons = ImageList_Create(32, 32, ILC_COLOR32 | ILC_MASK, 8, 8);
    SendMessageA(list, LVM_SETIMAGELIST, LVSIL_NORMAL, reinterpret_cast<LPARAM>(icons));
    const HMODULE shell = LoadLibraryExA("shell32.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    for (int zone = 0; zone < 5; ++zone) {
        const auto icon =
            static_cast<HICON>(LoadImageA(shell, MAKEINTRESOURCEA(1 + zone), IMAGE_ICON, 32, 32, LR_DEFAULTCOLOR));
        char name[] = "Zone 0";
        name[5] = static_cast<char>('0' + zone);
        LVITEMA item = {};
        item.mask = LVIF_TEXT | LVIF_IMAGE;
        item.iItem = zone;
        item.pszText = name;
        item.iImage = ImageList_ReplaceIcon(icons, -1, icon);
        SendMessageA(list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
        DestroyIcon(icon);
    }
}

HMENU makeMenu() {
    const HMENU menu = CreateMenu();
    for (const char* name : {"&File", "&Edit", "&View", "&Help"}) {
        const HMENU below = CreatePopupMenu();
        for (const char* item : {"One...", "Two...", "Three"}) AppendMenuA(below, MF_STRING, 1, item);
        AppendMenuA(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(below), name);
    }
    return menu;
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    InitCommonControls();
    font = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    WNDCLASSA own = {};
    own.lpfnWndProc = windowProc;
    own.hInstance = instance;
    own.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    own.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_3DFACE + 1);
    own.lpszClassName = "BareList";
    RegisterClassA(&own);
    const HWND window = CreateWindowA("BareList", "Bare list", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                                      CW_USEDEFAULT, 470, 465, nullptr, makeMenu(), instance, nullptr);
    addZones(add(window, WC_LISTVIEWA, "", LVS_ICON | LVS_AUTOARRANGE, {8, 8, 440, 154}, WS_EX_CLIENTEDGE));
    add(window, "STATIC", "Zone 1", 0, {48, 170, 400, 15});
    add(window, "STATIC", "A zone for measuring", 0, {48, 186, 400, 41});
    int left = 190;
    for (const char* caption : {"Edit Zone", "Add Zone", "Delete Zone"}) {
        add(window, "BUTTON", caption, BS_PUSHBUTTON, {left, 249, 81, 25});
        left += 89;
    }
    add(window, "BUTTON", "At a glance", BS_GROUPBOX, {8, 282, 440, 70}, WS_EX_TRANSPARENT);
    for (int place = 0; place < 4; ++place) {
        const LONG column = 18 + place % 2 * 206, row = 302 + place / 2 * 24;
        add(window, "STATIC", "Recommended Level:", 0, {column, row, 90, 15});
        add(window, "STATIC", "Medium", 0, {column + 94, row, 90, 15});
    }
    ShowWindow(window, SW_SHOWNORMAL);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
