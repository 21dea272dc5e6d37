#include <map>

#include "app/frmMain.h"
#include "backup/frmBackup.h"
#include "backup/frmRestore.h"
#include "bench/Windows.h"
#include "editing/frmAdd.h"
#include "editing/frmEdit.h"
#include "editing/frmSecurity.h"
#include "errors/frmError.h"
#include "mail/frmOESecurity.h"
#include "zones/Settings.h"
#include "zones/zones.h"

#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

namespace bench {

namespace {

HWND windowOf(const ui::Form& form) {
    return reinterpret_cast<HWND>(win32::Desktop::nativeHandle(form));
}

// A window as it is to be made again, without anything behind it.
struct Bare {
    char kind[64] = "", text[128] = "";
    DWORD style, extended;
    RECT bounds = {};
    std::vector<std::string> items;  // of a list

    explicit Bare(HWND window)
        : style(static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE))),
          extended(static_cast<DWORD>(GetWindowLongA(window, GWL_EXSTYLE))) {
        GetClassNameA(window, kind, sizeof kind);
        GetWindowTextA(window, text, sizeof text);
        GetWindowRect(window, &bounds);
        if (std::string(kind) == WC_LISTVIEWA)
            for (int item = 0; item < static_cast<int>(SendMessageA(window, LVM_GETITEMCOUNT, 0, 0)); ++item) {
                char name[260] = "";
                LVITEMA asked = {};
                asked.pszText = name, asked.cchTextMax = sizeof name;
                SendMessageA(window, LVM_GETITEMTEXTA, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&asked));
                items.emplace_back(name);
            }
        if (style & WS_CHILD) MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&bounds), 2);
    }
    HWND make(HWND parent, DWORD without = 0) const {
        const HWND made = create(parent, without);
        if (!items.empty()) fill(made);
        return made;
    }

private:
    // With an icon for each item, out of a program file.
    void fill(HWND list) const {
        HIMAGELIST icons = ImageList_Create(32, 32, ILC_COLOR24 | ILC_MASK, 8, 8);
        SendMessageA(list, LVM_SETIMAGELIST, LVSIL_NORMAL, reinterpret_cast<LPARAM>(icons));
        for (std::size_t i = 0; i < items.size(); ++i) {
            const HICON icon = ExtractIconA(GetModuleHandleA(nullptr), "shell32.dll", static_cast<UINT>(i));
            LVITEMA item = {};
            item.mask = LVIF_TEXT | LVIF_IMAGE;
            item.iItem = static_cast<int>(i);
            item.iImage = ImageList_AddIcon(icons, icon);
            item.pszText = const_cast<char*>(items[i].c_str());
            SendMessageA(list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
            DestroyIcon(icon);
        }
    }
    HWND create(HWND parent, DWORD without) const {
        return CreateWindowExA(extended, kind, text, style & ~without, bounds.left, bounds.top,
                               bounds.right - bounds.left, bounds.bottom - bounds.top, parent, nullptr,
                               GetModuleHandleA(nullptr), nullptr);
    }
};

// A dialog and its controls.
struct BareDialog {
    explicit BareDialog(HWND window) : dialog(window) {
        for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            controls.emplace_back(child);
    }
    HWND show(HWND owner) const {
        const HWND window = dialog.make(owner, WS_VISIBLE);
        const auto font = reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT));
        for (const Bare& control : controls) SendMessageA(control.make(window), WM_SETFONT, font, FALSE);
        ShowWindow(window, SW_SHOW);
        UpdateWindow(window);
        return window;
    }
    Bare dialog;
    std::vector<Bare> controls;
};

// `least`: what the bare dialog has to read as well.
template <class Make>
void measure(
    Machine& machine, ui::Form& owner, const char* name, Make make, void (*least)() = [] {}) {
    constexpr int Runs = 15;
    std::unique_ptr<BareDialog> bare;
    const auto open = [&](int) {
        std::unique_ptr<ui::Form> form;
        const double time = timeOf([&] {
            form = make();
            form->load();
            form->show();
            machine.settle();
        });
        if (!bare) bare = std::make_unique<BareDialog>(windowOf(*form));
        form->unload();
        machine.settle();
        return time;
    };
    open(0);
    const Compared opened = compare(Runs, open, [&](int) {
        HWND window = nullptr;
        const double time = timeOf([&] {
            least();
            window = bare->show(windowOf(owner));
            machine.settle();
        });
        DestroyWindow(window);
        machine.settle();
        return time;
    });
    std::printf("opening %s: %.4f s, bare %.4f s\n", name, opened.ours, opened.others);
    row(std::string("opening \"") + name + "\", of the time for a bare dialog of its controls", opened.ratio, "",
        Limit::AtMost, 1.5);
}

std::map<HWND, WNDPROC> procedures;
std::map<HWND, int> painted;

LRESULT CALLBACK countPaint(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_PAINT) ++painted[window];
    return CallWindowProcA(procedures[window], window, message, w, l);
}

void resizing(Machine& machine, HWND window) {
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        procedures[child] =
            reinterpret_cast<WNDPROC>(SetWindowLongPtrA(child, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&countPaint)));
    RECT bounds = {};
    GetWindowRect(window, &bounds);
    std::size_t most = 0;
    for (int wider = 10; wider <= 100; wider += 10) {
        painted.clear();
        SetWindowPos(window, nullptr, 0, 0, bounds.right - bounds.left + wider, bounds.bottom - bounds.top,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        machine.settle();
        most = std::max(most, painted.size());
    }
    for (const auto& [child, procedure] : procedures)
        SetWindowLongPtrA(child, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    constexpr int Moved = 6;  // three buttons, name, description, frame
    row("controls painted by a step of making the main window wider", static_cast<double>(most), "", Limit::AtMost,
        Moved + 1);
}

// The bare dialogs read nothing: what tests have left of the browser's settings would be read by ours alone.
void forgetKey(clsRegistry& registry, const std::string& path) {
    registry.goTo(path);
    for (const std::string& key : registry.DirKey().value_or(std::vector<std::string>()))
        forgetKey(registry, path + "\\" + key);
    registry.goTo(path);
    registry.DeleteKey("");
}

// The zone by its place among the zones, and whether the browser describes any settings.
void readZoneAndSettings() {
    HKEY zones = nullptr, zone = nullptr, settings = nullptr;
    char name[256];
    RegOpenKeyA(HKEY_CURRENT_USER, zones::ZonesKey + sizeof "HKEY_CURRENT_USER", &zones);
    for (DWORD index = 0; RegEnumKeyA(zones, index, name, sizeof name) == ERROR_SUCCESS; ++index) {}
    RegOpenKeyA(zones, "1", &zone);
    RegOpenKeyA(HKEY_LOCAL_MACHINE, zones::SettingsKey + sizeof "HKEY_LOCAL_MACHINE", &settings);
    for (HKEY key : {zones, zone, settings}) RegCloseKey(key);
}

}  // namespace

void dialogs(Machine& machine) {
    seedZones(5, 30);
    forms::Context& program = machine.program;
    forgetKey(program.registry, zones::SettingsKey);
    frmMain window(program);
    window.load();
    window.show();
    machine.settle();
    resizing(machine, windowOf(window));
    backup::Restoration restoration(program);
    measure(machine, window, "Edit Zone", [&] { return std::make_unique<frmEdit>(program, "1", "Zone 1"); });
    measure(machine, window, "Add Zone", [&] { return std::make_unique<frmAdd>(program); });
    measure(
        machine, window, "Custom Security", [&] { return std::make_unique<frmSecurity>(program, "1", "Zone 1"); },
        readZoneAndSettings);
    measure(machine, window, "Backup Security Zones", [&] { return std::make_unique<frmBackup>(program); });
    measure(machine, window, "Preview/Restore Backup",
            [&] { return std::make_unique<frmRestore>(program, restoration); });
    measure(machine, window, "OE Security Zone", [&] { return std::make_unique<frmOESecurity>(program); });
    measure(machine, window, "Error", [&] { return std::make_unique<frmError>(program.platform.desktop); });
    window.unload();
    machine.settle();
}

}  // namespace bench
