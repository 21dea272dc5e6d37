// What a program without windows has of the system: two streams of text, somebody who may answer, and a pause.
#pragma once

#include <string>
#include <string_view>

namespace platform {

class Console {
public:
    virtual ~Console() = default;

    // Text in the program's code page, with "\n" at the end of a line. False when not all of it could be written.
    virtual bool print(std::string_view text) = 0;
    virtual void printError(std::string_view text) = 0;
    // Whether somebody sits there who can be asked.
    virtual bool canAsk() = 0;
    // Shows the question on the error stream and waits for a line, which it gives back without its end.
    virtual std::string ask(std::string_view question) = 0;
    // Waits for a moment, to look again whether another program has ended.
    virtual void pause() = 0;

    // How wide a text stands in a column.
    virtual std::size_t width(std::string_view text) = 0;

    // Texts of files in the code page that the program works with: from UTF-16, and from single bytes of the ANSI code
    // page.
    virtual std::string fromUtf16(std::u16string_view text) = 0;
    virtual std::string fromBytes(std::string_view bytes) = 0;
};

}  // namespace platform
