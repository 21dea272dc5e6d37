#include "util/systemText.h"

#include "util/numbers.h"

namespace util {

std::string systemText(platform::Platform& platform, platform::Result code) {
    const std::string text = platform.modules.FormatMessageA(code);
    return text.empty() ? "System error " + toDecimal(code) + "." : text;
}

}  // namespace util
