// Stored bytes, and the little-endian numbers in them.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace platform {

using Bytes = std::basic_string<std::uint8_t>;
using ByteSpan = std::span<const std::uint8_t>;

inline ByteSpan asBytes(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// What lies past the end reads as 0: a reader that must tell the two apart asks for the size first.
inline std::uint8_t read8(ByteSpan bytes, std::size_t at) {
    return at < bytes.size() ? bytes[at] : std::uint8_t{0};
}
inline std::uint16_t read16(ByteSpan bytes, std::size_t at) {
    return static_cast<std::uint16_t>(read8(bytes, at) | read8(bytes, at + 1) << 8);
}
inline std::uint32_t read32(ByteSpan bytes, std::size_t at) {
    return read16(bytes, at) | static_cast<std::uint32_t>(read16(bytes, at + 2)) << 16;
}

// Fills a buffer from front to back. The buffer has to be as large as everything that is written into it.
class BufferWriter {
public:
    explicit BufferWriter(std::span<std::uint8_t> buffer) : rest_(buffer) {}

    void write8(std::uint8_t number) {
        rest_[0] = number;
        rest_ = rest_.subspan(1);
    }
    void write16(std::uint16_t number) {
        write8(static_cast<std::uint8_t>(number & 0xFF));
        write8(static_cast<std::uint8_t>(number >> 8));
    }
    void write32(std::uint32_t number) {
        write16(static_cast<std::uint16_t>(number & 0xFFFF));
        write16(static_cast<std::uint16_t>(number >> 16));
    }
    void write(ByteSpan bytes) {
        for (const std::uint8_t byte : bytes) write8(byte);
    }

private:
    std::span<std::uint8_t> rest_;
};

}  // namespace platform
