// Reads registry exports: lines to keys and values. What may be done with them is for the caller to decide.
//
// Two ways of writing are read. The registry editor's own ("REGEDIT4", and version 5.00 in UTF-16): a backslash before
// quotes and backslashes in names and texts, line breaks as they are, binary data in hexadecimal. And this program's,
// from its comment line on: names and texts stand between quotes as they are, quotes and line breaks included;
// backslashes are doubled in "Icon" alone. There the end of a text is a quote at the end of a line after which another
// value, another key or the end of the file follows. Several exports may follow one another in a file.
//
// The time taken and the memory used are bounded by a small multiple of the file's size, whatever is in it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Registry.h"

namespace backup {

// The comment by which this program marks its own exports.
inline constexpr std::string_view OwnExportMark = ";This file created by Tavimor.";

struct ExportedValue {
    std::string name;  // "" is the key's default value
    platform::RegType type = platform::RegNone;
    std::string text;          // of RegSz, without terminating zero
    std::uint32_t number = 0;  // of RegDword
    platform::Bytes data;      // of any other type
    bool exact = true;         // false when letters of UTF-16 were replaced by '?'
};

class RegistryExport {
public:
    enum class Kind {
        Key,           // [key]
        DeletedKey,    // [-key]
        Value,         // "name"=...
        DeletedValue,  // "name"=-
        EmptyLine,     // outside a text
        Unknown,       // any other line but comments and headers
    };
    struct Item {
        Kind kind = Kind::Unknown;
        std::string_view key;  // the key, or the one that the line belongs to; "" before the first
        ExportedValue value;   // of Value; of DeletedValue the name
        // The lines that a registry editor sees, which knows nothing of this program's way of writing.
        std::span<const std::string_view> lines;
        std::size_t line = 0;  // the number of the first of them, from 1
        bool own = false;      // stands in an export that this program has written
    };

    explicit RegistryExport(std::string bytes);
    RegistryExport(const RegistryExport&) = delete;
    RegistryExport& operator=(const RegistryExport&) = delete;

    // The next item; nothing at the end of the file. Its key and lines live as long as this reader.
    std::optional<Item> next();

    // What a registry editor takes one line for: Key and DeletedKey, Value and DeletedValue by name, else Unknown.
    static Item asEditorsRead(std::string_view line);

private:
    void splitLines();
    void findClosingLines();
    bool closesText(std::size_t index) const;
    std::optional<ExportedValue> ownValue();
    std::optional<ExportedValue> ownText(std::string_view line);
    Item editorsItem();
    std::optional<Item> editorsText(std::string_view line);

    std::string bytes_;
    std::vector<std::string_view> lines_;   // of bytes_, without their ends
    std::vector<std::size_t> nextFilled_;   // by line: itself or the first after it that is not empty
    std::vector<std::size_t> nextClosing_;  // by line: itself or the first after it that ends a text of this program's
    std::size_t at_ = 0;
    std::string_view key_;
    bool own_ = false;
};

}  // namespace backup
