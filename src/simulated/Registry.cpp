#include "simulated/Registry.h"

#include <cstring>

namespace simulated {

using namespace platform;

namespace {

constexpr Result BadPathName = 161;  // ERROR_BAD_PATHNAME
constexpr Result NoAccess = 998;     // ERROR_NOACCESS
constexpr std::size_t LongestKey = 255, LongestPath = 260, LongestValue = 16383, LongestText = 32766;
constexpr AccessMask MaximumAllowed = 0x02000000, GenericAll = 0x10000000, GenericWrite = 0x40000000,
                     GenericRead = 0x80000000;

AccessMask granted(AccessMask asked) {
    if (asked & (MaximumAllowed | GenericAll)) return KeyAllAccess;
    if (asked & GenericRead) asked |= KeyQueryValue | KeyEnumerateSubKeys;
    if (asked & GenericWrite) asked |= KeySetValue | KeyCreateSubKey;
    return asked;
}

bool predefined(HKey key) {
    return key >= HKeyClassesRoot;
}
bool isText(RegType type) {
    return type == RegSz || type == RegExpandSz || type == RegMultiSz;
}

// A name goes to the system as a C string.
std::string_view untilZero(const std::string& name) {
    return name.c_str();
}

// The parts of a path; repeated and trailing backslashes do not matter.
std::vector<std::string_view> partsOf(std::string_view path) {
    std::vector<std::string_view> parts;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('\\'), path.size());
        if (end > 0) parts.push_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return parts;
}

// The functions for single-byte text turn a path into wide characters in a buffer of fixed size.
Result checkPath(std::string_view path) {
    if (path.size() > LongestText) return InvalidParameter;
    if (path.size() > LongestPath) return MoreData;
    if (path.starts_with('\\')) return BadPathName;
    for (const std::string_view part : partsOf(path))
        if (part.size() > LongestKey) return InvalidParameter;
    return Success;
}

}  // namespace

struct Registry::Value {
    std::string name;
    RegType type = RegNone;
    Bytes data;
};

struct Registry::Key {
    std::string name;
    std::weak_ptr<Key> parent;
    NamedList<std::shared_ptr<Key>> keys;
    NamedList<Value> values;
    std::string listedAs;  // "": under its name
    bool deleted = false;

    const std::string& listed() const { return listedAs.empty() ? name : listedAs; }
    void markDeleted() {
        deleted = true;
        for (const auto& key : keys.all()) key->markDeleted();
    }
};

Registry::Value& Registry::valueIn(Key& key, std::string_view name) {
    return key.values.findOrAdd(name, [&] { return Value{std::string(name), RegNone, {}}; });
}

struct Registry::Handle {
    std::shared_ptr<Key> key;
    AccessMask access = 0;
};

namespace {

// Hands out a value's data as RegQueryValueExA and RegEnumValueA do: the size always, the bytes when they fit, and a
// zero after text that was stored without one when there is room for it.
Result copyData(RegType storedType, const Bytes& stored, RegType& type, std::uint8_t* data, std::uint32_t& size) {
    const std::uint32_t room = size;
    type = storedType;
    size = static_cast<std::uint32_t>(stored.size());
    if (!data || stored.empty()) return Success;
    if (room < size) return MoreData;
    std::memcpy(data, stored.data(), stored.size());
    if (isText(storedType) && room > size && stored.back() != 0) data[size] = 0;
    return Success;
}

// `length` stays as it was when the name does not fit.
Result copyName(const std::string& stored, char* name, std::uint32_t& length) {
    if (stored.size() >= length) return MoreData;
    std::memcpy(name, stored.c_str(), stored.size() + 1);
    length = static_cast<std::uint32_t>(stored.size());
    return Success;
}

}  // namespace

Registry::Registry() {
    const struct {
        HKey handle;
        const char* name;
    } roots[] = {{HKeyClassesRoot, "HKEY_CLASSES_ROOT"},     {HKeyCurrentUser, "HKEY_CURRENT_USER"},
                 {HKeyLocalMachine, "HKEY_LOCAL_MACHINE"},   {HKeyUsers, "HKEY_USERS"},
                 {HKeyCurrentConfig, "HKEY_CURRENT_CONFIG"}, {HKeyDynData, "HKEY_DYN_DATA"}};
    for (const auto& root : roots) {
        auto key = std::make_shared<Key>();
        key->name = root.name;
        roots_.emplace(root.handle, std::move(key));
    }
}

Registry::~Registry() = default;

void Registry::collect(const Key& key, const std::string& path, Contents& contents) {
    contents[path + "|"] = "";
    for (const Value& value : key.values.all()) {
        std::string& data = contents[path + "|" + value.name];
        data.assign(1, static_cast<char>(value.type));
        data.append(value.data.begin(), value.data.end());
    }
    for (const auto& sub : key.keys.all()) collect(*sub, path + "\\" + sub->name, contents);
}

Registry::Contents Registry::contents() const {
    Contents contents;
    for (const auto& [handle, root] : roots_) collect(*root, root->name, contents);
    return contents;
}

void Registry::setContents(const Contents& contents) {
    for (const auto& [handle, root] : roots_) {
        for (const auto& key : root->keys.all()) key->markDeleted();
        root->keys = {};
        root->values = {};
    }
    std::shared_ptr<Key> key;
    std::string_view last;  // the path of `key`: a key's values stand one after another
    for (const auto& [name, data] : contents) {
        const std::string_view path = std::string_view(name).substr(0, name.find('|'));
        const std::size_t end = std::min(path.find('\\'), path.size());
        if (path != last) {
            for (const auto& [handle, root] : roots_)
                if (root->name == path.substr(0, end))
                    walk(handle, std::string(path.substr(std::min(end + 1, path.size()))), true, key);
            last = path;
        }
        if (data.empty()) continue;
        Value& value = valueIn(*key, std::string_view(name).substr(path.size() + 1));
        value.type = static_cast<unsigned char>(data[0]);
        value.data.assign(data.begin() + 1, data.end());
    }
}

void Registry::listAs(const std::string& path, const std::string& listed) {
    const std::size_t end = path.find('\\');
    for (const auto& [handle, root] : roots_) {
        std::shared_ptr<Key> key;
        if (root->name == path.substr(0, end) && walk(handle, path.substr(end + 1), true, key) == Success)
            key->listedAs = listed;
    }
}

Result Registry::resolve(HKey handle, AccessMask needed, std::shared_ptr<Key>& key) const {
    if (const auto root = roots_.find(handle); root != roots_.end()) {
        key = root->second;
        return Success;
    }
    const auto open = handles_.find(handle);
    if (open == handles_.end()) return InvalidHandle;
    if ((open->second.access & needed) != needed) return AccessDenied;
    if (open->second.key->deleted) return KeyDeleted;
    key = open->second.key;
    return Success;
}

Result Registry::walk(HKey handle, const std::string& subKey, bool create, std::shared_ptr<Key>& key) const {
    // No rights are asked of the handle: the system checks those of the key itself.
    if (const Result code = resolve(handle, 0, key); code != Success) return code;
    if (const Result code = checkPath(untilZero(subKey)); code != Success) return code;
    for (const std::string_view part : partsOf(untilZero(subKey))) {
        const auto make = [&] {
            auto child = std::make_shared<Key>();
            child->name = part;
            child->parent = key;
            return child;
        };
        const std::shared_ptr<Key>* child = create ? &key->keys.findOrAdd(part, make) : key->keys.find(part);
        if (!child) return FileNotFound;
        key = std::shared_ptr<Key>(*child);
    }
    return Success;
}

HKey Registry::give(const std::shared_ptr<Key>& key, AccessMask access) {
    next_ += 4;
    handles_.emplace(next_, Handle{key, granted(access)});
    return next_;
}

Result Registry::RegOpenKeyExA(HKey key, const std::string& subKey, AccessMask access, HKey& opened) {
    opened = 0;
    if (const auto code = watch.before("RegOpenKeyExA")) return *code;
    std::shared_ptr<Key> found;
    if (const Result code = walk(key, subKey, false, found); code != Success) return code;
    const bool same = subKey.empty() && (predefined(key) || repeatsHandles);
    opened = same ? key : give(found, access);
    if (same && !predefined(key)) handles_.at(key).access |= granted(access);
    return Success;
}

// Without a subkey it gives back the very handle it got, whatever that is.
Result Registry::RegOpenKeyA(HKey key, const std::string& subKey, HKey& opened) {
    opened = 0;
    if (const auto code = watch.before("RegOpenKeyA")) return *code;
    const Watch::Pause pause(watch);
    if (!subKey.empty()) return RegOpenKeyExA(key, subKey, MaximumAllowed, opened);
    opened = key;
    return Success;
}

Result Registry::RegCreateKeyExA(HKey key, const std::string& subKey, AccessMask access, HKey& created) {
    created = 0;
    if (const auto code = watch.before("RegCreateKeyExA")) return *code;
    std::shared_ptr<Key> found;
    if (const Result code = walk(key, subKey, true, found); code != Success) return code;
    created = give(found, access);
    return Success;
}

// A close that is made to fail still closes: otherwise the leak would be the test's.
Result Registry::RegCloseKey(HKey key) {
    const Result closed = predefined(key) || handles_.erase(key) ? Success : InvalidHandle;
    return watch.before("RegCloseKey").value_or(closed);
}

Result Registry::RegDeleteKeyA(HKey key, const std::string& subKey) {
    if (const auto code = watch.before("RegDeleteKeyA")) return *code;
    std::shared_ptr<Key> found;
    if (const Result code = walk(key, subKey, false, found); code != Success) return code;
    const std::shared_ptr<Key> parent = found->parent.lock();
    if (!parent) return AccessDenied;
    if (!found->keys.empty() && !deletesSubtrees) return AccessDenied;
    parent->keys.remove(parent->keys.find(found->name));
    found->markDeleted();
    return Success;
}

Result Registry::RegDeleteValueA(HKey key, const std::string& name) {
    if (const auto code = watch.before("RegDeleteValueA")) return *code;
    std::shared_ptr<Key> found;
    if (const Result code = resolve(key, KeySetValue, found); code != Success) return code;
    if (untilZero(name).size() > LongestText) return InvalidParameter;
    const Value* value = found->values.find(untilZero(name));
    if (!value) return FileNotFound;
    found->values.remove(value);
    return Success;
}

Result Registry::RegQueryInfoKeyA(HKey key, KeyInfo& info) {
    if (const auto code = watch.before("RegQueryInfoKeyA")) return *code;
    std::shared_ptr<Key> found;
    if (const Result code = resolve(key, KeyQueryValue, found); code != Success) return code;
    const auto longest = [](std::uint32_t& most, std::size_t length) {
        most = std::max(most, static_cast<std::uint32_t>(length));
    };
    info = {};
    info.subKeys = static_cast<std::uint32_t>(found->keys.size());
    info.values = static_cast<std::uint32_t>(found->values.size());
    for (const auto& sub : found->keys.all()) longest(info.longestSubKey, sub->listed().size());
    for (const Value& value : found->values.all()) {
        longest(info.longestValueName, value.name.size());
        // NT keeps text in two bytes a character, and that is the size it tells.
        longest(info.longestData, value.data.size() * (isText(value.type) ? 2 : 1));
    }
    return Success;
}

Result Registry::RegEnumKeyExA(HKey key, std::uint32_t index, char* name, std::uint32_t& length) {
    if (const auto code = watch.before("RegEnumKeyExA")) return *code;
    std::shared_ptr<Key> found;
    if (const Result code = resolve(key, KeyEnumerateSubKeys, found); code != Success) return code;
    const auto count = static_cast<std::uint32_t>(found->keys.size()), half = count / 2;
    if (index >= count) return NoMoreItems;
    if (shuffles) index = index < half ? 2 * index + 1 : 2 * (index - half);  // 1, 3, 5, 0, 2, 4
    return copyName(found->keys.at(index)->listed(), name, length);
}

Result Registry::RegEnumValueA(HKey key, std::uint32_t index, char* name, std::uint32_t& length, RegType& type,
                               std::uint8_t* data, std::uint32_t& size) {
    if (const auto code = watch.before("RegEnumValueA")) return *code;
    std::shared_ptr<Key> found;
    if (const Result code = resolve(key, KeyQueryValue, found); code != Success) return code;
    if (index >= found->values.size()) return NoMoreItems;
    const Value& value = found->values.at(index);
    const Result dataFits = copyData(value.type, value.data, type, data, size);
    const Result nameFits = copyName(value.name, name, length);
    return nameFits != Success ? nameFits : dataFits;
}

Result Registry::RegQueryValueExA(HKey key, const std::string& name, RegType& type, std::uint8_t* data,
                                  std::uint32_t& size) {
    if (const auto code = watch.before("RegQueryValueExA")) return *code;
    std::shared_ptr<Key> found;
    if (const Result code = resolve(key, KeyQueryValue, found); code != Success) return code;
    if (untilZero(name).size() > LongestText) return InvalidParameter;
    const Value* value = found->values.find(untilZero(name));
    if (value) return copyData(value->type, value->data, type, data, size);
    type = RegNone;
    if (!data) size = 0;
    return FileNotFound;
}

Result Registry::RegSetValueExA(HKey key, const std::string& name, RegType type, const std::uint8_t* data,
                                std::uint32_t size) {
    if (const auto code = watch.before("RegSetValueExA")) return *code;
    std::shared_ptr<Key> found;
    if (const Result code = resolve(key, KeySetValue, found); code != Success) return code;
    if (untilZero(name).size() > LongestValue) return InvalidParameter;
    if (!data && size > 0) return NoAccess;
    Value& value = valueIn(*found, untilZero(name));
    value.type = type;
    value.data.assign(data ? data : reinterpret_cast<const std::uint8_t*>(""), size);
    return Success;
}

}  // namespace simulated
