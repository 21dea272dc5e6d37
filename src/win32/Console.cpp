#include "win32/Console.h"

#include "win32/WindowsHeaders.h"

namespace win32 {

namespace {

bool isConsole(HANDLE stream) {
    DWORD mode = 0;
    return GetConsoleMode(stream, &mode) != 0;
}

// With the line ends of the system. What was started without a stream need not write.
bool write(DWORD which, std::string_view text) {
    HANDLE stream = GetStdHandle(which);
    if (!stream || stream == INVALID_HANDLE_VALUE) return true;
    std::string bytes;
    for (const char c : text) {
        if (c == '\n' && !bytes.ends_with('\r')) bytes.push_back('\r');
        bytes.push_back(c);
    }
    if (isConsole(stream)) CharToOemBuffA(bytes.data(), bytes.data(), static_cast<DWORD>(bytes.size()));
    DWORD written = 0;
    for (std::size_t at = 0; at < bytes.size(); at += written)
        if (!WriteFile(stream, bytes.data() + at, static_cast<DWORD>(bytes.size() - at), &written, nullptr) ||
            written == 0)
            return false;
    return true;
}

}  // namespace

bool Console::print(std::string_view text) {
    return write(STD_OUTPUT_HANDLE, text);
}

void Console::printError(std::string_view text) {
    write(STD_ERROR_HANDLE, text);
}

bool Console::canAsk() {
    return isConsole(GetStdHandle(STD_INPUT_HANDLE));
}

std::string Console::ask(std::string_view question) {
    printError(question);
    std::string line;
    char c = 0;
    DWORD got = 0;
    while (ReadFile(GetStdHandle(STD_INPUT_HANDLE), &c, 1, &got, nullptr) && got == 1 && c != '\n')
        if (c != '\r') line.push_back(c);
    OemToCharBuffA(line.data(), line.data(), static_cast<DWORD>(line.size()));
    return line;
}

void Console::pause() {
    Sleep(50);
}

std::string Console::fromUtf16(std::u16string_view text) {
    const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
    const int length = static_cast<int>(text.size());
    std::string bytes(
        static_cast<std::size_t>(WideCharToMultiByte(CP_ACP, 0, wide, length, nullptr, 0, nullptr, nullptr)), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide, length, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
}

}  // namespace win32
