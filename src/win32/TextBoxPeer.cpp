#include "ui/TextBox.h"

#include "win32/ControlPeer.h"
#include "win32/PeerFactory.h"

namespace win32 {

namespace {

class TextBoxPeer : public ControlPeer<ui::TextBox> {
public:
    explicit TextBoxPeer(ui::TextBox& box) : ControlPeer(box, {"EDIT", ES_AUTOHSCROLL, WS_EX_CLIENTEDGE}) {}

    void applyText() override { apply(WM_SETTEXT, 0, control_.text().c_str()); }
    void applyMaxLength() override { apply(EM_LIMITTEXT, static_cast<WPARAM>(control_.maxLength())); }
    void applySelection() override {
        const int start = control_.selectionStart(), end = start + control_.selectionLength();
        apply(EM_SETSEL, static_cast<WPARAM>(start), end);
    }

    void command(int code) override {
        if (code != EN_CHANGE) return;
        std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window())) + 1, '\0');
        text.resize(static_cast<std::size_t>(GetWindowTextA(window(), text.data(), static_cast<int>(text.size()))));
        DWORD start = 0, end = 0;
        SendMessageA(window(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        control_.userChangedText(std::move(text), static_cast<int>(start), static_cast<int>(end - start));
    }
};

}  // namespace

std::unique_ptr<ui::Peer> PeerFactory::make(ui::TextBox& box) {
    return std::make_unique<TextBoxPeer>(box);
}

}  // namespace win32
