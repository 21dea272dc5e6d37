#include "command/ExportedRegistry.h"

#include <algorithm>

#include "backup/RegistryExport.h"
#include "registry/clsRegistry.h"
#include "util/characters.h"
#include "util/numbers.h"

namespace command {

namespace {

using backup::RegistryExport;
using platform::Bytes;
using platform::HKey;
using platform::Result;

constexpr std::size_t Shown = 80;  // characters of a line that cannot be understood
constexpr std::string_view Header4 = "REGEDIT4", Header5 = "Windows Registry Editor Version 5.00";

constexpr char16_t Mark = 0xFEFF;  // of the byte order

// Without marks: where two exports have been put together one stands in the middle.
std::u16string utf16Of(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        if (const auto unit = static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                                    static_cast<unsigned char>(bytes[i + 1]) << 8);
            unit != Mark)
            text.push_back(unit);
    return text;
}

// The file's text in the program's code page.
std::string textOf(std::string_view bytes, platform::Console& console) {
    if (bytes.starts_with("\xFF\xFE")) return console.fromUtf16(utf16Of(bytes));
    if (bytes.size() > 1 && bytes[1] == '\0') return console.fromUtf16(utf16Of(bytes));  // "W" without a mark
    return console.fromBytes(bytes);
}

bool isText(platform::RegType type) {
    return type == platform::RegSz || type == platform::RegExpandSz || type == platform::RegMultiSz;
}

// The data as the registry's single-byte functions give it.
Bytes dataOf(const backup::ExportedValue& value, bool wide, platform::Console& console) {
    if (value.type == platform::RegDword && value.data.empty()) {
        Bytes data;
        for (int shift = 0; shift < 32; shift += 8) data.push_back(static_cast<std::uint8_t>(value.number >> shift));
        return data;
    }
    std::string text = value.text;
    if (!value.data.empty() || value.type != platform::RegSz) {
        const std::string_view stored(reinterpret_cast<const char*>(value.data.data()), value.data.size());
        if (!isText(value.type)) return value.data;
        text = wide ? console.fromUtf16(utf16Of(stored)) : console.fromBytes(stored);
        return Bytes(text.begin(), text.end());
    }
    Bytes data(text.begin(), text.end());
    data.push_back(0);
    return data;
}

// The subtree goes with its key.
void removeKey(simulated::Registry& registry, HKey root, const std::string& path) {
    registry.deletesSubtrees = true;
    registry.simulated::Registry::RegDeleteKeyA(root, path);
}

class Loading {
public:
    Loading(simulated::Registry& registry, platform::Console& console, bool wide)
        : registry_(registry), console_(console), wide_(wide) {}
    ~Loading() { registry_.RegCloseKey(key_); }
    Loading(const Loading&) = delete;
    Loading& operator=(const Loading&) = delete;

    // False for what cannot be understood.
    bool take(const RegistryExport::Item& item) {
        switch (item.kind) {
            case RegistryExport::Kind::Key:
                return enter(item.key);
            case RegistryExport::Kind::DeletedKey:
                return remove(item.key);
            case RegistryExport::Kind::Value:
                return store(item.value);
            case RegistryExport::Kind::DeletedValue:
                if (key_ != 0) registry_.simulated::Registry::RegDeleteValueA(key_, item.value.name);
                return key_ != 0;
            case RegistryExport::Kind::EmptyLine:
                return true;
            case RegistryExport::Kind::Unknown:
                break;
        }
        // A line of blanks is as good as an empty one, and a comment may be indented.
        return std::all_of(item.lines.begin(), item.lines.end(), [](std::string_view line) {
            const std::size_t begin = line.find_first_not_of(" \t");
            return begin == std::string_view::npos || line[begin] == ';';
        });
    }

private:
    // The root's handle and what follows it.
    static std::pair<HKey, std::string> parted(std::string_view path) {
        const std::size_t end = std::min(path.find('\\'), path.size());
        return {clsRegistry::RootHandle(util::upper(path.substr(0, end))),
                std::string(path.substr(std::min(end + 1, path.size())))};
    }
    bool enter(std::string_view path) {
        registry_.RegCloseKey(key_);
        key_ = 0;
        const auto [root, below] = parted(path);
        return root != 0 && registry_.simulated::Registry::RegCreateKeyExA(root, below, platform::KeyAllAccess, key_) ==
                                platform::Success;
    }
    bool remove(std::string_view path) {
        registry_.RegCloseKey(key_);
        key_ = 0;
        const auto [root, below] = parted(path);
        if (root == 0 || below.empty()) return false;
        removeKey(registry_, root, below);
        return true;
    }
    bool store(const backup::ExportedValue& value) {
        const Bytes data = dataOf(value, wide_, console_);
        return key_ != 0 && registry_.simulated::Registry::RegSetValueExA(key_, value.name, value.type, data.data(),
                                                                          static_cast<std::uint32_t>(data.size())) ==
                                platform::Success;
    }

    simulated::Registry& registry_;
    platform::Console& console_;
    bool wide_;
    HKey key_ = 0;
};

}  // namespace

std::string ExportedRegistry::load(std::string_view bytes, platform::Console& console) {
    std::string text = textOf(bytes, console);
    const std::string start = text.substr(0, text.find_first_of("\r\n"));
    if (start != Header4 && start != Header5)
        return "line 1: it is no registry export, which begins with \"" + std::string(Header4) + "\" or \"" +
               std::string(Header5) + "\"";

    RegistryExport source(std::move(text));
    Loading loading(*this, console, start == Header5);
    while (const auto item = source.next())
        if (!loading.take(*item))
            return "line " + util::toDecimal(static_cast<std::uint32_t>(item->line)) +
                   " cannot be understood, mend or delete it: " + std::string(item->lines.front().substr(0, Shown));
    return {};
}

Result ExportedRegistry::RegCreateKeyExA(HKey, const std::string&, platform::AccessMask, HKey& created) {
    created = 0;
    return platform::AccessDenied;
}

Result ExportedRegistry::RegDeleteKeyA(HKey, const std::string&) {
    return platform::AccessDenied;
}

Result ExportedRegistry::RegDeleteValueA(HKey, const std::string&) {
    return platform::AccessDenied;
}

Result ExportedRegistry::RegSetValueExA(HKey, const std::string&, platform::RegType, const std::uint8_t*,
                                        std::uint32_t) {
    return platform::AccessDenied;
}

}  // namespace command
