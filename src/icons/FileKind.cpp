#include "icons/FileKind.h"

#include "platform/bytes.h"

namespace icons {

namespace {

constexpr std::uint16_t DosMark = 0x5A4D, Windows16Mark = 0x454E;  // "MZ", "NE"
constexpr std::size_t DosHeaderSize = 0x40, WindowsHeaderOffset = 0x3C;
constexpr std::uint32_t FarthestHeader = 0x100000;  // DOS programs that come first are small
constexpr std::uint32_t IconMark = 0x00010000;      // reserved: 0, type: icon

}  // namespace

FileKind kindOf(platform::Files& files, const std::string& path) {
    std::string file;
    if (files.read(path, file, DosHeaderSize) != platform::Success || file.size() < sizeof IconMark)
        return FileKind::Other;
    const platform::ByteSpan start = platform::asBytes(file);
    if (platform::read32(start, 0) == IconMark) return FileKind::IconFile;
    const std::uint32_t header = platform::read32(start, WindowsHeaderOffset);
    if (platform::read16(start, 0) != DosMark || header > FarthestHeader) return FileKind::Other;
    if (files.read(path, file, header + sizeof Windows16Mark) != platform::Success) return FileKind::Other;
    const bool is16Bit = platform::read16(platform::asBytes(file), header) == Windows16Mark;
    return is16Bit ? FileKind::Program16 : FileKind::Other;
}

}  // namespace icons
