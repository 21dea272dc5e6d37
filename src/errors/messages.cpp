#include "errors/messages.h"

#include "platform/Platform.h"
#include "util/application.h"

namespace errors {

void tell(platform::Platform& platform, const std::string& text) {
    platform.desktop.messageBox(text, AppTitle, ui::MessageStyle::Exclamation);
}

ui::Answer ask(platform::Platform& platform, const std::string& question) {
    return platform.desktop.messageBox(question, AppTitle, ui::MessageStyle::ExclamationYesNo);
}

}  // namespace errors
