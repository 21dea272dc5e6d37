#include "util/systemText.h"

#include "util/numbers.h"

namespace util {

std::string systemText(platform::Platform& platform, platform::Result code, const std::string& subject) {
    return systemText(platform.modules.FormatMessageA(code), code, subject);
}

std::string systemText(const std::string& text, platform::Result code, const std::string& subject) {
    if (text.empty()) return "System error " + toDecimal(code) + ".";
    std::string filled;
    std::size_t rest = 0;
    for (auto at = text.find("%1"); at != std::string::npos; at = text.find("%1", rest)) {
        filled.append(text, rest, at - rest).append(subject);
        rest = at + 2;
    }
    return filled.append(text, rest);
}

}  // namespace util
