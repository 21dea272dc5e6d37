// The least that a program with a list view does before the user sees it: what the start of Tavimor is measured by.
#include <windows.h>

#include <commctrl.h>

namespace {

LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcA(window, message, w, l);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    InitCommonControls();
    WNDCLASSA own = {};
    own.lpfnWndProc = windowProc;
    own.hInstance = instance;
    own.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    own.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_3DFACE + 1);
    own.lpszClassName = "BareList";
    RegisterClassA(&own);
    const HWND window = CreateWindowA("BareList", "Bare list", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, 470,
                                      400, nullptr, nullptr, instance, nullptr);
    CreateWindowExA(WS_EX_CLIENTEDGE, WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | LVS_ICON, 8, 8, 440, 340, window,
                    nullptr, instance, nullptr);
    ShowWindow(window, SW_SHOWNORMAL);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
