// The streams of a system that is no Windows. Texts are UTF-8, which its terminals show.
#pragma once

#include "platform/Console.h"

namespace native {

class Console : public platform::Console {
public:
    bool print(std::string_view text) override;
    void printError(std::string_view text) override;
    // Nothing can be asked: what wants an answer changes a registry, and there is none.
    bool canAsk() override { return false; }
    std::string ask(std::string_view) override { return {}; }
    void pause() override {}
    std::size_t width(std::string_view text) override;
    std::string fromUtf16(std::u16string_view text) override;
    // Bytes that are no UTF-8 are taken for code page 1252.
    std::string fromBytes(std::string_view bytes) override;
};

}  // namespace native
