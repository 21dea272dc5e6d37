#include "command/ConsoleDesktop.h"

#include "util/characters.h"

namespace command {

ui::Answer ConsoleDesktop::messageBox(const std::string& text, const std::string&, ui::MessageStyle style) {
    ++messages_;
    if (style == ui::MessageStyle::Exclamation) {
        console_.printError("TavimorCmd: " + text + "\n");
        return ui::Answer::Ok;
    }
    if (yes_ || !console_.canAsk()) {
        console_.printError("TavimorCmd: " + text + (yes_ ? " Yes\n" : " No\n"));
        return yes_ ? ui::Answer::Yes : ui::Answer::No;
    }
    return confirmed(text) ? ui::Answer::Yes : ui::Answer::No;
}

bool ConsoleDesktop::confirmed(const std::string& question) {
    const std::string answer = console_.ask(question + " [y/N] ");
    return util::equalFolded(answer, "y") || util::equalFolded(answer, "yes");
}

}  // namespace command
