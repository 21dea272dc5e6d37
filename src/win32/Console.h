// The standard streams, in the code page that whoever reads them expects.
#pragma once

#include "platform/Console.h"

namespace win32 {

// A console shows the OEM code page; files and other programs are given the ANSI one.
class Console : public platform::Console {
public:
    bool print(std::string_view text) override;
    void printError(std::string_view text) override;
    bool canAsk() override;
    std::string ask(std::string_view question) override;
    void pause() override;
    std::size_t width(std::string_view text) override { return text.size(); }
    std::string fromUtf16(std::u16string_view text) override;
    std::string fromBytes(std::string_view bytes) override { return std::string(bytes); }
};

}  // namespace win32
