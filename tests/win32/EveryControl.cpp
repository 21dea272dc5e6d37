#include "EveryControl.h"

#include "support/IconBytes.h"

ui::Picture halvedIcon(int size) {
    icons::ByteWriter out;
    const auto side = static_cast<std::uint32_t>(size);
    out.u32(40).u32(side).u32(2 * side).u16(1).u16(24).fill(24);
    for (int row = size; row-- > 0;) {
        for (int x = 0; x < size; ++x) {
            const bool seen = row < size / 2, left = x < size / 2;
            out.u8(seen && !left ? 255 : 0).u8(0).u8(seen && left ? 255 : 0);
        }
        out.alignTo(4);
    }
    const std::size_t maskRow = (side + 31) / 32 * 4;
    out.fill(maskRow * (side / 2), 0xFF).fill(maskRow * (side - side / 2), 0);
    return {ui::Picture::Kind::Icon, {out.bytes().data(), out.size()}, size, size};
}

ui::Picture plainBitmap() {
    icons::ByteWriter out;
    out.u32(40).u32(4).u32(4).u16(1).u16(24).fill(24).fill(4 * 4 * 3, 0x80);
    return {ui::Picture::Kind::Bitmap, {out.bytes().data(), out.size()}, 4, 4};
}

EveryControl::EveryControl(ui::Desktop& on, Kind kind) : Form(on, kind, "form", "Every control", {6400, 5800}) {
    setDefaultButton(ok);
    setCancelButton(cancel);
    combo.setItems({"a", "b", "c"});
    icons.add({});
    shows.setImages(&icons);
    for (const char* name : {"zero", "one", "two"}) {
        shows.add({name, 1, {}, {}});
        acts.add({name, 0, {}, {}});
    }
    acts.setColumn("Column", 2000);
    tree.add({"group", 0, 0, {}});
    tree.add({"setting", 1, 0, {}});
    tree.add({"off", 2, 0, {}, true, true});
    tree.add({"on", 2, 0, {}, true});

    const auto note = [this](const char* name) { return [this, name] { events.emplace_back(name); }; };
    const auto noteItem = [this](const char* name) {
        return [this, name](int item) { events.push_back(name + std::to_string(item)); };
    };
    check.onClick = note("check");
    combo.onClick = note("combo");
    picture.onClick = note("picture");
    shows.onItemClick = noteItem("shows");
    acts.onItemClick = noteItem("acts");
    tree.onOptionClick = noteItem("tree");
    tabs.onClick = note("tabs");
    onPage.onClick = note("onPage");
    inFrame.onClick = note("inFrame");
    ok.onClick = note("ok");
    cancel.onClick = note("cancel");
    timer.onTimer = note("timer");
    exit.onClick = note("exit");
}

void WindowsTest::press(const ui::Control& control, WPARAM key) {
    SetFocus(windowOf(control));
    pressFocused(key);
}

void WindowsTest::pressFocused(WPARAM key) {
    post(GetFocus(), WM_KEYDOWN, key, 1);
    post(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    desktop.doEvents();
}

void WindowsTest::clickAt(const ui::Control& control, POINT point, UINT press) {
    post(windowOf(control), press, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    post(windowOf(control), WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    desktop.doEvents();
}
