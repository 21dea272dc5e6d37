// A registry session: one current key, moved about as in a directory tree, and typed values in it.
//
// The current path is absolute and upper case ("\HKEY_CURRENT_USER\SOFTWARE"), "" above the roots. A failing registry
// function is recorded in basErrors::Err and dropped: missing keys and values are ordinary results. Only errors of the
// session's own making (unknown root, no current key, wrong value type) are shown.
//
// After a failed move the current path names the key asked for and the handle is 0; everything then answers as for a
// missing key until the next absolute move. The same holds after an operation for which the key could not be opened
// with the rights it needs.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include "platform/Platform.h"
#include "util/FunctionRef.h"

// Value types as callers see them.
enum class ValueType { String = 0, Binary = 1, Dword = 2 };

// What ValueOf read: the three forms of one value.
struct RegistryValue {
    std::string text;     // strings as they are, binary as "1 A0 FF", a DWORD as eight lower-case hexadecimal digits
    std::string display;  // the same, but a DWORD as plain decimal
    double number = 0;    // of a DWORD
};

// One row of DirValue. `text`: strings with blanks trimmed, binary in hexadecimal, a DWORD as
// "000000db (0,000,000,219)".
struct ListedValue {
    std::string name;
    std::string text;
    ValueType type = ValueType::String;
    std::uint32_t number = 0;  // of a DWORD
    bool plainNumber = false;  // a DWORD of four bytes: the browser accepts no other
};

// How a key or value was found: code that may overwrite it must tell what is missing from what could not be read.
enum class Found { Present, Absent, OtherType, Unreadable };

// A text as it is stored. A value of another type has the text that ValueOf gives for it.
struct TextReading {
    Found found = Found::Absent;
    std::string text;
    bool empty() const { return text.empty(); }
    // Missing values are no failure, unreadable ones and those of another type are.
    bool usable() const { return found == Found::Present || found == Found::Absent; }
};

// A DWORD. `display` is its plain decimal, and for a value of another type the text that ValueOf gives for it.
struct NumberReading {
    Found found = Found::Absent;
    std::uint32_t number = 0;
    std::string display;
    bool present() const { return found == Found::Present; }
    bool usable() const { return found == Found::Present || found == Found::Absent; }
};

// A value on its way into the registry. A DWORD comes as a double; an integer does not compile.
using Variant = std::variant<std::string, platform::Bytes, double>;
static_assert(!std::is_constructible_v<Variant, int>);

class clsRegistry {
public:
    explicit clsRegistry(platform::Platform& platform);
    ~clsRegistry();
    clsRegistry(const clsRegistry&) = delete;
    clsRegistry& operator=(const clsRegistry&) = delete;

    const std::string& CurrentKey() const;
    // "\" is the top, ".." the parent, "." this key again; absolute paths begin with "\" (at the top with or without).
    void cD(const std::string& path);
    // Moves to an absolute path, with or without a leading backslash, in one step. The names of keys are taken as they
    // are, ".." and trailing blanks included. Absent and Unreadable leave the session as a failed cD does.
    Found goTo(const std::string& path);
    // Names of the subkeys in the system's order, at the top the roots; nothing when there are none.
    std::optional<std::vector<std::string>> DirKey();
    // All values in the system's order; nothing when there are none.
    std::optional<std::vector<ListedValue>> DirValue();

    // Nothing for a missing or empty value; `type` is String for a missing one.
    std::optional<RegistryValue> ValueOf(const std::string& name, ValueType& type);
    std::optional<RegistryValue> ValueOf(const std::string& name);
    // Class error 3 for a value of another type than `type` says, or a number that is no DWORD; then nothing is
    // written.
    void ValueOf(const std::string& name, ValueType type, const Variant& value);
    // `type` as a number from outside: class error 4 for one that does not exist.
    void ValueOf(const std::string& name, int type, const Variant& value);

    TextReading readText(const std::string& name);
    NumberReading readNumber(const std::string& name);
    // A number that need not be a DWORD: four bytes of binary, low byte first, or its decimal text count as well.
    NumberReading readNumberOfAnyType(const std::string& name);
    void writeText(const std::string& name, const std::string& text);
    void writeNumber(const std::string& name, std::uint32_t number);

    void MakeKey(const std::string& name);    // with the whole chain; the session stays where it is
    void DeleteKey(const std::string& name);  // one level
    bool IsWindowsNT();
    // Deletes the keys "0", "1" and so on below `zonesPath`, as many as there are keys. Without any it fails and says
    // so.
    void DeleteZone(const std::string& zonesPath);
    // Deletes a zone and moves those above it down by one. After each move `moved` is called with the zone's former
    // number. It ends at the first zone that cannot be read, deleted, made or written, or for which `moved` has failed:
    // the zones from there on stay.
    void DeleteAndRename(const std::string& zonesPath, const std::string& zoneNumber,
                         util::FunctionRef<void(std::uint32_t from)> moved = {});
    // The icon reference of a zone for which no icon was chosen: an icon of the browser's control panel.
    std::string GetIconForOS();
    static constexpr const char* FallbackIconFile = "Inetcpl.cpl";  // in the system folder
    static constexpr const char* FallbackIconResource = "4487";
    void DeleteValue(const std::string& name);
    bool IsValidKey(platform::HKey root, const std::string& subKey);
    // Deletes the keys below `domainsPath` that have no subkeys, whatever values they hold.
    void DeleteEmptyDomains(const std::string& domainsPath);
    // Part 1: the hexadecimal form in a DWORD's text as DirValue gives it; part 2: the decimal form; else "".
    std::string ParseDWord(const std::string& text, int part);

    // The session silently drops the failures of registry functions. A watch tells whether there has been one since it
    // was made. A key or value that does not exist is no failure, except for a write.
    class FailureWatch {
    public:
        explicit FailureWatch(const clsRegistry& registry) : registry_(registry), before_(registry.failures_) {}
        bool failed() const { return registry_.failures_ != before_; }

    private:
        const clsRegistry& registry_;
        std::uint32_t before_;
    };

    // Counts as a failure, for the watches, that a caller has found something unusable.
    void NoteFailure() { ++failures_; }

    // Whether DirKey would list anything, without listing it.
    bool HasKeys();

    // The handle that a root's name stands for, in any case; 0 for an unknown root.
    static platform::HKey RootHandle(const std::string& name);

    // Shows one of the session's own errors: 1 no current key, 2 unknown root, 3 value of the wrong type, 4 unknown
    // type.
    void RaiseClassError(int number);

private:
    friend struct clsRegistryTest;

    // The stored form of a value.
    struct Stored {
        platform::Result code = platform::FileNotFound;
        platform::RegType type = platform::RegNone;
        platform::Bytes data;
    };

    bool MoveDown(const std::string& zonesPath, std::uint32_t from);
    void CdExt(const std::string& path, platform::AccessMask access);
    Stored read(const std::string& name);
    static std::string strRoot(const std::string& path);  // of an absolute path
    static std::string strPath(const std::string& path);  // what follows the root, without backslash
    void CheckApiResult(platform::Result code);
    void CheckWrite(platform::Result code);
    // Opens the key again with `access` added, unless the open handle has it already.
    void Require(platform::AccessMask access);
    // Makes `handle` the open one and closes the one before.
    void Take(platform::HKey handle, platform::AccessMask access);
    std::optional<std::uint32_t> CountKeys();  // nothing when the key cannot be asked

    platform::Platform& platform_;
    std::string currentPath_;
    platform::HKey handle_ = 0;
    platform::AccessMask access_ = 0;  // what handle_ was asked for
    std::uint32_t failures_ = 0;
};
