// Values: reading, listing, writing, deleting.
#include <cmath>

#include "registry/buffers.h"
#include "registry/clsRegistry.h"
#include "registry/regTexts.h"
#include "util/characters.h"
#include "util/clsStrings.h"
#include "util/numbers.h"
#include "util/procedure.h"

using namespace platform;

namespace {

ValueType typeOf(RegType stored) {
    return stored == RegBinary ? ValueType::Binary : stored == RegDword ? ValueType::Dword : ValueType::String;
}

// A key that is not there has the handle 0, an invalid one.
Found foundBy(Result code) {
    if (code == Success) return Found::Present;
    return code == FileNotFound || code == InvalidHandle ? Found::Absent : Found::Unreadable;
}

// Of a DWORD with fewer than four bytes the missing ones count as 0, of a longer one only the first four count.
RegistryValue readValue(ValueType type, std::span<const std::uint8_t> data) {
    switch (type) {
        case ValueType::Binary: {
            const std::string text = binaryText(data);
            return {text, text, 0};
        }
        case ValueType::Dword: {
            const std::uint32_t number = read32(data, 0);
            return {hexadecimalText(number), util::toDecimal(number), static_cast<double>(number)};
        }
        case ValueType::String:
            break;
    }
    const std::string text = storedText(data);
    return {text, text, 0};
}

std::string listedText(ValueType type, std::span<const std::uint8_t> data) {
    switch (type) {
        case ValueType::Binary:
            return binaryText(data);
        case ValueType::Dword:
            return listedDWord(read32(data, 0));
        case ValueType::String:
            break;
    }
    return std::string(util::trimmed(storedText(data)));
}

// The bytes to store, as RegSetValueExA takes them; nothing when `value` is not what `type` asks for.
std::optional<Bytes> dataToStore(ValueType type, const Variant& value) {
    if (type == ValueType::String) {
        const auto* text = std::get_if<std::string>(&value);
        if (!text) return std::nullopt;
        return Bytes(text->begin(), text->end()) + std::uint8_t{0};
    }
    if (type == ValueType::Binary) {
        const auto* bytes = std::get_if<Bytes>(&value);
        if (!bytes) return std::nullopt;
        return *bytes;
    }
    const auto* number = std::get_if<double>(&value);
    if (!number || !(*number >= 0 && *number <= 4294967295.0) || std::floor(*number) != *number) return std::nullopt;
    Bytes bytes(sizeof(std::uint32_t), 0);
    BufferWriter(bytes).write32(static_cast<std::uint32_t>(*number));
    return bytes;
}

constexpr RegType StoredTypes[] = {RegSz, RegBinary, RegDword};

}  // namespace

std::optional<RegistryValue> clsRegistry::ValueOf(const std::string& name) {
    ValueType type;
    return ValueOf(name, type);
}

std::optional<RegistryValue> clsRegistry::ValueOf(const std::string& name, ValueType& type) {
    type = ValueType::String;
    return procedure("clsRegistry.ValueOf [Get]", [&]() -> std::optional<RegistryValue> {
        const Stored stored = read(name);
        if (stored.code != Success) return std::nullopt;
        type = typeOf(stored.type);
        if (stored.data.empty()) return std::nullopt;
        return readValue(type, stored.data);
    });
}

clsRegistry::Stored clsRegistry::read(const std::string& name) {
    if (!currentPath_.empty()) Require(KeyQueryValue);
    // Nearly every value fits; for a larger one the call gives its size, which may have grown again by the next call.
    Stored stored;
    stored.data.resize(256);
    std::uint32_t size;
    do {
        size = static_cast<std::uint32_t>(stored.data.size());
        stored.code = platform_.registry.RegQueryValueExA(handle_, name, stored.type, stored.data.data(), size);
    } while (stored.code == MoreData && Grow(stored.data, size));
    CheckApiResult(stored.code);
    stored.data.resize(stored.code == Success ? size : 0);
    return stored;
}

TextReading clsRegistry::readText(const std::string& name) {
    return procedure("clsRegistry.ValueOf [Get]", [&]() -> TextReading {
        const Stored stored = read(name);
        if (const Found found = foundBy(stored.code); found != Found::Present) return {found, {}};
        const ValueType type = typeOf(stored.type);
        const std::string text = stored.data.empty() ? std::string() : readValue(type, stored.data).text;
        return {type == ValueType::String ? Found::Present : Found::OtherType, text};
    });
}

NumberReading clsRegistry::readNumber(const std::string& name) {
    return procedure("clsRegistry.ValueOf [Get]", [&]() -> NumberReading {
        const Stored stored = read(name);
        if (const Found found = foundBy(stored.code); found != Found::Present) return {found, 0, {}};
        if (stored.data.empty()) return {Found::OtherType, 0, {}};
        const RegistryValue value = readValue(typeOf(stored.type), stored.data);
        // The browser ignores a DWORD that is not four bytes long.
        const bool dword = stored.type == RegDword && stored.data.size() == sizeof(std::uint32_t);
        return {dword ? Found::Present : Found::OtherType, static_cast<std::uint32_t>(value.number), value.display};
    });
}

NumberReading clsRegistry::readNumberOfAnyType(const std::string& name) {
    return procedure("clsRegistry.ValueOf [Get]", [&]() -> NumberReading {
        const Stored stored = read(name);
        if (const Found found = foundBy(stored.code); found != Found::Present) return {found, 0, {}};
        const ValueType type = typeOf(stored.type);
        std::optional<std::uint32_t> number;
        if (type == ValueType::String) number = util::wholeNumber(storedText(stored.data));
        if (type != ValueType::String && stored.data.size() == sizeof(std::uint32_t)) number = read32(stored.data, 0);
        if (!number) return {Found::OtherType, 0, {}};
        return {Found::Present, *number, util::toDecimal(*number)};
    });
}

void clsRegistry::writeText(const std::string& name, const std::string& text) {
    ValueOf(name, ValueType::String, text);
}

void clsRegistry::writeNumber(const std::string& name, std::uint32_t number) {
    ValueOf(name, ValueType::Dword, static_cast<double>(number));
}

std::optional<std::vector<ListedValue>> clsRegistry::DirValue() {
    return procedure("clsRegistry.DirValue", [&]() -> std::optional<std::vector<ListedValue>> {
        if (!currentPath_.empty()) Require(KeyQueryValue);
        KeyInfo info;
        CheckApiResult(platform_.registry.RegQueryInfoKeyA(handle_, info));
        std::string name(info.longestValueName + 1, '\0');
        Bytes data(std::max(info.longestData, 1u), 0);
        std::vector<ListedValue> values;
        values.reserve(info.values);
        for (std::uint32_t i = 0; i < info.values; ++i) {
            std::uint32_t length, size;
            RegType stored = RegNone;
            Result code;
            do {
                length = static_cast<std::uint32_t>(name.size());
                size = static_cast<std::uint32_t>(data.size());
                code = platform_.registry.RegEnumValueA(handle_, i, name.data(), length, stored, data.data(), size);
            } while (code == MoreData && Grow(name) && Grow(data, size));
            CheckApiResult(code);
            if (code != Success) break;  // values were deleted while they were being listed
            const ValueType type = typeOf(stored);
            const std::span<const std::uint8_t> listed(data.data(), size);
            const std::uint32_t number = type == ValueType::Dword ? read32(listed, 0) : 0;
            const bool plain = type == ValueType::Dword && size == sizeof number;
            values.push_back({name.substr(0, length), listedText(type, listed), type, number, plain});
        }
        if (values.empty()) return std::nullopt;
        return values;
    });
}

void clsRegistry::ValueOf(const std::string& name, ValueType type, const Variant& value) {
    ValueOf(name, static_cast<int>(type), value);
}

void clsRegistry::ValueOf(const std::string& name, int type, const Variant& value) {
    procedure("clsRegistry.ValueOf [Let]", [&] {
        if (type < 0 || type > static_cast<int>(ValueType::Dword)) return RaiseClassError(4);
        const auto data = dataToStore(static_cast<ValueType>(type), value);
        if (!data) return RaiseClassError(3);
        Require(KeySetValue);
        CheckWrite(platform_.registry.RegSetValueExA(handle_, name, StoredTypes[type], data->data(),
                                                     static_cast<std::uint32_t>(data->size())));
    });
}

void clsRegistry::DeleteValue(const std::string& name) {
    procedure("clsRegistry.DeleteValue", [&] {
        Require(KeySetValue);
        CheckApiResult(platform_.registry.RegDeleteValueA(handle_, name));
    });
}

std::string clsRegistry::ParseDWord(const std::string& text, int part) {
    return procedure("clsRegistry.ParseDWord", [&] {
        if (part != 1 && part != 2) return std::string();
        clsStrings forms;
        forms.Initialise(text, "(");
        std::string form = forms.ElementAsString(part);
        if (!form.empty()) form.pop_back();
        return form;
    });
}
