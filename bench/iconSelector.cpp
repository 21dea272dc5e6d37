#include "bench/Windows.h"

#include <windows.h>

#include <commctrl.h>

#include "icons/frmIconSelector.h"

namespace bench {

namespace {

const char* const IconImage = MAKEINTRESOURCEA(3);
const char* const IconGroup = MAKEINTRESOURCEA(14);

std::span<const BYTE> resource(HMODULE module, const char* name, const char* type) {
    const HRSRC found = FindResourceA(module, name, type);
    if (!found) return {};
    return {static_cast<const BYTE*>(LockResource(LoadResource(module, found))), SizeofResource(module, found)};
}

struct Lists {
    HIMAGELIST large = ImageList_Create(32, 32, ILC_COLOR32 | ILC_MASK, 8, 16);
    HIMAGELIST small = ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 8, 16);
};

// The group's image of that size, into a list like those that the dialog shows.
void load(HMODULE module, std::span<const BYTE> group, int size, HIMAGELIST list) {
    const int number = LookupIconIdFromDirectoryEx(const_cast<BYTE*>(group.data()), TRUE, size, size, 0);
    const auto image = resource(module, MAKEINTRESOURCEA(number), IconImage);
    const HICON icon = CreateIconFromResourceEx(const_cast<BYTE*>(image.data()), static_cast<DWORD>(image.size()), TRUE,
                                                0x00030000, size, size, 0);
    ImageList_ReplaceIcon(list, -1, icon);
    DestroyIcon(icon);
}

BOOL CALLBACK loadGroup(HMODULE module, LPCSTR type, LPSTR name, LONG_PTR to) {
    const auto& lists = *reinterpret_cast<const Lists*>(to);
    const auto group = resource(module, name, type);
    load(module, group, 32, lists.large);
    load(module, group, 16, lists.small);
    return TRUE;
}

// The same icons by the shortest way; gives how many there are.
int loadBare(const std::string& file) {
    const HMODULE module = LoadLibraryExA(file.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    const Lists lists;
    EnumResourceNamesA(module, IconGroup, loadGroup, reinterpret_cast<LONG_PTR>(&lists));
    const int count = ImageList_GetImageCount(lists.large);
    ImageList_Destroy(lists.large);
    ImageList_Destroy(lists.small);
    FreeLibrary(module);
    return count;
}

}  // namespace

void iconSelector(Machine& machine) {
    constexpr int Runs = 15;
    const std::string file = machine.platform.system.GetSystemDirectoryA() + "\\shell32.dll";
    ui::Form owner(machine.native.desktop, ui::Form::Kind::Main, "owner", "", {6000, 6000});
    ui::Image target(owner, "target", {0, 0, 480, 480});
    owner.load();
    owner.show();
    int ours = 0, bare = 0;
    const auto select = [&](int) {
        frmIconSelector selector(machine.program.platform, "", target, nullptr);
        selector.load();
        selector.show();
        while (selector.tmrLoad.enabled()) machine.settle();
        const double time = timeOf([&] {
            selector.ShowFile(file);
            machine.settle();
        });
        ours = selector.lvwIcons.count();
        selector.unload();
        machine.settle();
        return time;
    };
    const Compared loaded = compare(Runs, select, [&](int) { return timeOf([&] { bare = loadBare(file); }); });
    std::printf("loading icons: %d in %.3f s, bare %d in %.3f s\n", ours, loaded.ours, bare, loaded.others);
    if (ours != bare || ours == 0) fail("the icons of shell32.dll are not all there");
    row("loading the icons of shell32.dll, of a bare enumeration's time", loaded.ratio, "", Limit::AtMost, 1.5);
    owner.unload();
}

}  // namespace bench
