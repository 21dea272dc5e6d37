#include "registry/clsRegistry.h"

#include <algorithm>
#include <array>

#include "registry/buffers.h"
#include "registry/regTexts.h"
#include "util/characters.h"
#include "util/procedure.h"
#include "util/trace.h"

using namespace platform;

namespace {

struct Root {
    const char* name;
    HKey handle;
};
// In the order in which the top lists them, which is not that of the handles.
constexpr std::array<Root, 6> Roots{{
    {"HKEY_CLASSES_ROOT", HKeyClassesRoot},
    {"HKEY_CURRENT_USER", HKeyCurrentUser},
    {"HKEY_LOCAL_MACHINE", HKeyLocalMachine},
    {"HKEY_USERS", HKeyUsers},
    {"HKEY_DYN_DATA", HKeyDynData},
    {"HKEY_CURRENT_CONFIG", HKeyCurrentConfig},
}};

}  // namespace

clsRegistry::clsRegistry(Platform& platform) : platform_(platform) {
    procedure("clsRegistry.Class_Initialize", [] {});
}

clsRegistry::~clsRegistry() {
    procedure("clsRegistry.Class_Terminate", [&] { Take(0, 0); });
}

const std::string& clsRegistry::CurrentKey() const {
    procedure("clsRegistry.CurrentKey", [] {});
    return currentPath_;
}

void clsRegistry::cD(const std::string& path) {
    procedure("clsRegistry.cD", [&] { CdExt(path, KeyQueryValue); });
}

void clsRegistry::CdExt(const std::string& wanted, AccessMask access) {
    procedure("clsRegistry.CdExt", [&] {
        std::string path = util::upper(util::trimmed(wanted));
        if (path == "\\") {
            Take(0, 0);
            currentPath_.clear();
            return;
        }
        if (path == "..") {
            if (currentPath_.empty()) return RaiseClassError(1);
            return CdExt(currentPath_.substr(0, util::findLast(currentPath_, "\\") + 1), access);
        }
        HKey opened = 0;
        if (path == ".") {
            CheckApiResult(platform_.registry.RegOpenKeyExA(handle_, {}, access, opened));
            return Take(opened, access);
        }
        if (path.size() >= 2 && util::endsWithBackslash(path)) path.pop_back();
        if (currentPath_.empty() && !path.starts_with('\\')) path.insert(0, 1, '\\');

        HKey from = handle_;
        std::string subKey = path;
        if (path.starts_with('\\')) {
            Take(0, 0);
            from = RootHandle(strRoot(path));
            if (!from) RaiseClassError(2);
            subKey = strPath(path);
        } else {
            path = currentPath_ + "\\" + path;
        }
        CheckApiResult(platform_.registry.RegOpenKeyExA(from, subKey, access, opened));
        currentPath_ = path;
        Take(opened, access);
    });
}

Found clsRegistry::goTo(const std::string& path) {
    const std::uint32_t before = failures_;
    // With a backslash at the end the last name is taken as it stands, ".." and trailing blanks among them.
    cD((path.starts_with('\\') ? path : "\\" + path) + "\\");
    if (handle_) return Found::Present;
    return failures_ == before ? Found::Absent : Found::Unreadable;
}

std::string clsRegistry::strRoot(const std::string& path) {
    return procedure("clsRegistry.strRoot", [&] {
        const auto end = path.find('\\', 1);
        return path.substr(1, end == std::string::npos ? end : end - 1);
    });
}

std::string clsRegistry::strPath(const std::string& path) {
    return procedure("clsRegistry.strPath", [&] {
        const auto end = path.find('\\', 1);
        return end == std::string::npos ? std::string() : path.substr(end + 1);
    });
}

HKey clsRegistry::RootHandle(const std::string& name) {
    const auto root = std::find_if(Roots.begin(), Roots.end(), [&](const Root& r) { return name == r.name; });
    return root == Roots.end() ? 0 : root->handle;
}

void clsRegistry::Take(HKey handle, AccessMask access) {
    // Opened once more, Windows 95 may give a key the handle that it has.
    if (handle_ && handle_ != handle) CheckApiResult(platform_.registry.RegCloseKey(handle_));
    handle_ = handle;
    access_ = access;
}

void clsRegistry::Require(AccessMask access) {
    // Rights are added to those there are, so that reading and writing in turn does not open the key each time.
    if ((access_ & access) != access) CdExt(".", access_ | access);
}

std::optional<std::vector<std::string>> clsRegistry::DirKey() {
    return procedure("clsRegistry.DirKey", [&]() -> std::optional<std::vector<std::string>> {
        std::vector<std::string> names;
        if (currentPath_.empty()) {
            for (const Root& root : Roots) names.emplace_back(root.name);
            return names;
        }
        Require(KeyQueryValue | KeyEnumerateSubKeys);
        KeyInfo info;
        CheckApiResult(platform_.registry.RegQueryInfoKeyA(handle_, info));
        std::string name(info.longestSubKey + 1, '\0');
        for (std::uint32_t i = 0; i < info.subKeys; ++i) {
            std::uint32_t length;
            Result code;
            do {
                length = static_cast<std::uint32_t>(name.size());
                code = platform_.registry.RegEnumKeyExA(handle_, i, name.data(), length);
            } while (code == MoreData && Grow(name));
            CheckApiResult(code);
            if (code != Success) break;  // keys were deleted while they were being listed
            names.push_back(name.substr(0, length));
        }
        if (names.empty()) return std::nullopt;
        return names;
    });
}

bool clsRegistry::HasKeys() {
    return procedure("clsRegistry.HasKeys", [&] { return currentPath_.empty() || CountKeys().value_or(0) > 0; });
}

std::optional<std::uint32_t> clsRegistry::CountKeys() {
    Require(KeyQueryValue);
    KeyInfo info;
    const Result code = platform_.registry.RegQueryInfoKeyA(handle_, info);
    CheckApiResult(code);
    if (code != Success) return std::nullopt;
    return info.subKeys;
}

void clsRegistry::MakeKey(const std::string& name) {
    procedure("clsRegistry.MakeKey", [&] {
        Require(KeyCreateSubKey);
        HKey created = 0;
        const Result code = platform_.registry.RegCreateKeyExA(handle_, name, KeyAllAccess, created);
        CheckWrite(code);
        if (code == Success) platform_.registry.RegCloseKey(created);
    });
}

void clsRegistry::DeleteKey(const std::string& name) {
    procedure("clsRegistry.DeleteKey", [&] {
        Require(KeySetValue);
        CheckApiResult(platform_.registry.RegDeleteKeyA(handle_, name));
    });
}

bool clsRegistry::IsValidKey(HKey root, const std::string& subKey) {
    return procedure("clsRegistry.IsValidKey", [&] {
        HKey opened = 0;
        if (platform_.registry.RegOpenKeyA(root, subKey, opened) != Success) return false;
        if (opened != root) platform_.registry.RegCloseKey(opened);
        return true;
    });
}

bool clsRegistry::IsWindowsNT() {
    return procedure("clsRegistry.IsWindowsNT", [&] {
        SystemVersion version;
        return platform_.system.GetVersionExA(version) && version.platformId == PlatformWin32Nt;
    });
}

void clsRegistry::RaiseClassError(int number) {
    const ClassError error = classError(number);
    basErrors::Err = {error.number, error.source, error.description};
    basErrors::ErrLine = "0";
    basErrors::ShowError();
}

void clsRegistry::CheckWrite(Result code) {
    if (code != Success) ++failures_;
    CheckApiResult(code);
}

void clsRegistry::CheckApiResult(Result code) {
    if (code == Success) return basErrors::Err.clear();
    // The handle of a key that is not there is 0, an invalid one.
    if (code != FileNotFound && code != NoMoreItems && code != InvalidHandle) ++failures_;
    basErrors::Err.number = 0x80040400 + code;
    basErrors::Err.source = "TVMRRegistry[API Call]";
    basErrors::Err.description = resultText(code);
    basErrors::ErrLine = "0";
}
