#include "simulated/Desktop.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace simulated {

namespace {

constexpr ui::Twips TwipsPerPixel = 15;
constexpr int LineHeight = 13;  // pixels

// Widths in pixels of the characters from blank to tilde.
constexpr std::uint8_t CharacterWidths[] = {3, 3, 5, 7, 6, 8, 6, 2,  3,  3, 4, 6, 3, 3, 3, 5, 6, 6, 6, 6, 6, 6, 6, 6,
                                            6, 6, 3, 3, 6, 6, 6, 6,  11, 7, 7, 7, 7, 6, 6, 7, 7, 3, 5, 7, 6, 9, 7, 7,
                                            7, 7, 7, 7, 7, 7, 7, 11, 7,  7, 7, 3, 5, 3, 6, 6, 3, 6, 6, 6, 6, 6, 3, 6,
                                            6, 2, 2, 6, 2, 8, 6, 6,  6,  6, 3, 5, 3, 6, 6, 8, 6, 6, 6, 3, 3, 3, 7};

int characterWidth(char c) {
    const auto code = static_cast<unsigned char>(c);
    return code >= 32 && code < 127 ? CharacterWidths[code - 32] : 6;
}

int textWidth(std::string_view text, bool bold) {
    int width = 0;
    for (const char c : text) width += characterWidth(c) + (bold ? 1 : 0);
    return width;
}

}  // namespace

ui::Answer Desktop::messageBox(const std::string&, const std::string&, ui::MessageStyle style) {
    return style == ui::MessageStyle::ExclamationYesNo ? ui::Answer::No : ui::Answer::Ok;
}

std::optional<std::string> Desktop::openFile(const ui::OpenFileRequest&) {
    return std::nullopt;
}

void Desktop::open(ui::Form& form) {
    form.setShown(true);
}

void Desktop::runModal(ui::Form& form, ui::Form*) {
    form.setShown(true);
    form.unload();
}

void Desktop::closed(ui::Form& form) {
    form.setShown(false);
}

ui::FrameSize Desktop::frameSize(ui::Form::Kind kind, bool menu) {
    const int border = kind == ui::Form::Kind::Main ? 4 : 3;
    return {2 * border * TwipsPerPixel, (2 * border + 19 + (menu ? 19 : 0)) * TwipsPerPixel};
}

ui::Size Desktop::textSize(const std::string& text, ui::Twips wrap, bool bold) {
    int widest = 0, lines = 1, line = 0;
    const auto breakLine = [&] {
        widest = std::max(widest, line);
        ++lines;
        line = 0;
    };
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] == '\n') {
            breakLine();
            ++at;
            continue;
        }
        const std::size_t end = std::min(text.find_first_of(" \n", at + 1), text.size());
        const int word = textWidth(std::string_view(text).substr(at, end - at), bold);
        if (wrap > 0 && line > 0 && (line + word) * TwipsPerPixel > wrap) breakLine();
        line += word;
        at = end;
    }
    widest = std::max(widest, line);
    return {widest * TwipsPerPixel, lines * LineHeight * TwipsPerPixel};
}

}  // namespace simulated
