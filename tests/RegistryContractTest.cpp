// What the program may rely on in a registry. Both the one in memory and the system's own are held to it: whatever
// passes here natively and fails as a Windows program is a mistake of the one in memory.
#include <gtest/gtest.h>

#include "support/TestSystem.h"

using namespace platform;

namespace {

const std::string Path = "HKEY_CURRENT_USER\\Software\\Tavimor Tests";
const std::string SubKey = "Software\\Tavimor Tests";

class RegistryContract : public testing::Test {
protected:
    TestSystem system;
    Registry& registry = system.platform().registry;
    HKey key = 0;  // of the tests' own key, with every right

    void SetUp() override {
        system.makeKey(Path);
        key = open(KeyAllAccess);
    }
    void TearDown() override {
        registry.RegCloseKey(key);
        EXPECT_EQ(system.registry.openHandles(), 0u) << "a test left handles open";
    }
    HKey open(AccessMask access, const std::string& below = "") {
        HKey opened = 0;
        EXPECT_EQ(registry.RegOpenKeyExA(HKeyCurrentUser, SubKey + below, access, opened), Success);
        return opened;
    }
    struct Read {
        Result code;
        RegType type;
        std::uint32_t size;
        Bytes data;  // the whole room
        friend bool operator==(const Read&, const Read&) = default;
    };
    // A value by its name, or the one that is listed first.
    Read read(std::uint32_t room, const char* name = nullptr) {
        Read read{0, 99, room, Bytes(room, 0x55)};
        char listed[10];
        std::uint32_t length = sizeof listed;
        read.code = name ? registry.RegQueryValueExA(key, name, read.type, read.data.data(), read.size)
                         : registry.RegEnumValueA(key, 0, listed, length, read.type, read.data.data(), read.size);
        return read;
    }
    // What each function answers that is asked for something missing, or to make something.
    using Codes = std::vector<Result>;
    Codes callAll(HKey at) {
        HKey other = 0;
        KeyInfo info;
        char name[300];
        std::uint32_t nameLength = sizeof name, valueLength = sizeof name, size = 0;
        RegType type = 0;
        const std::uint8_t byte = 1;
        const auto closed = [&](Result code) {
            if (code == Success) registry.RegCloseKey(other);
            return code;
        };
        return {closed(registry.RegOpenKeyExA(at, "absent", KeyQueryValue, other)),
                closed(registry.RegOpenKeyExA(at, "", KeyQueryValue, other)),
                closed(registry.RegOpenKeyA(at, "absent", other)),
                registry.RegDeleteKeyA(at, "absent"),
                closed(registry.RegCreateKeyExA(at, "made", KeyQueryValue, other)),
                registry.RegQueryInfoKeyA(at, info),
                registry.RegDeleteValueA(at, "absent"),
                registry.RegEnumKeyExA(at, 9999, name, nameLength),
                registry.RegEnumValueA(at, 9999, name, valueLength, type, nullptr, size),
                registry.RegQueryValueExA(at, "absent", type, nullptr, size),
                registry.RegSetValueExA(at, "made", RegBinary, &byte, 1)};
    }
};

}  // namespace

TEST_F(RegistryContract, EveryFunctionRefusesAHandleThatIsNoneOrOfADeletedKey) {
    const HKey closed = open(KeyAllAccess);
    EXPECT_EQ(registry.RegCloseKey(closed), Success);
    EXPECT_EQ(registry.RegCloseKey(closed), InvalidHandle);  // at once, before the number belongs to something else
    for (const HKey none : {closed, HKey{0}, HKey{0x7654320}})
        EXPECT_EQ(callAll(none), Codes(11, InvalidHandle)) << none;

    system.makeKey(Path + "\\Gone");
    const HKey gone = open(KeyAllAccess, "\\Gone");
    ASSERT_EQ(registry.RegDeleteKeyA(HKeyCurrentUser, SubKey + "\\Gone"), Success);
    EXPECT_EQ(callAll(gone), Codes(11, KeyDeleted));
    EXPECT_EQ(registry.RegCloseKey(gone), Success);
}

// Opening, making and deleting keys ask no right of the handle: the system looks at the key's own protection. What
// information about a key wants differs between systems.
TEST_F(RegistryContract, AHandleWithoutTheRightIsRefusedAndOthersTellThatSomethingIsMissing) {
    constexpr Result No = AccessDenied, Missing = FileNotFound, End = NoMoreItems;
    const std::pair<AccessMask, Codes> rows[] = {
        {KeyQueryValue, {No, No, End, Missing, No}},
        {KeySetValue, {Missing, No, No, No, Success}},
        {KeyCreateSubKey, {No, No, No, No, No}},
        {KeyEnumerateSubKeys, {No, End, No, No, No}},
        {KeyQueryValue | KeyEnumerateSubKeys, {No, End, End, Missing, No}},
        {KeyAllAccess, {Missing, End, End, Missing, Success}},
    };
    for (const auto& [access, expected] : rows) {
        const HKey opened = open(access);
        const Codes codes = callAll(opened);
        registry.RegCloseKey(opened);
        EXPECT_EQ(Codes(codes.begin(), codes.begin() + 5), (Codes{Missing, Success, Missing, Missing, Success}));
        EXPECT_EQ(Codes(codes.begin() + 6, codes.end()), expected) << access;
    }
}

TEST_F(RegistryContract, PathsMayEndInABackslashButNotBeginWithOne) {
    constexpr Result BadPathName = 161;
    const std::pair<const char*, Result> rows[] = {
        {"A\\B\\C", Success}, {"A\\B\\", Success}, {"a\\\\b", Success}, {"\\A", BadPathName}, {"\\", BadPathName}};
    for (const auto& [path, code] : rows) {
        HKey made = 0, opened = 0;
        EXPECT_EQ(registry.RegCreateKeyExA(key, path, KeyQueryValue, made), code) << path;
        EXPECT_EQ(registry.RegOpenKeyExA(key, path, KeyQueryValue, opened), code) << path;
        if (made) registry.RegCloseKey(made);
        if (opened) registry.RegCloseKey(opened);
    }
    EXPECT_EQ(system.keys(Path), std::vector<std::string>{"A"}) << "kept as it was made first";
}

TEST_F(RegistryContract, AKeyWithSubkeysIsNotDeleted) {
    system.makeKey(Path + "\\Parent\\Child");
    EXPECT_EQ(registry.RegDeleteKeyA(key, "Parent"), AccessDenied);
    EXPECT_EQ(registry.RegDeleteKeyA(key, "PARENT\\CHILD"), Success);
    EXPECT_EQ(registry.RegDeleteKeyA(key, "Parent"), Success);
    EXPECT_EQ(registry.RegDeleteKeyA(key, ""), Success) << "the key itself";
    EXPECT_FALSE(system.exists(Path));
}

TEST_F(RegistryContract, NamesThatAreTooLongAreRefused) {
    HKey made = 0;
    const std::string name(65535, 'n');
    EXPECT_EQ(registry.RegSetValueExA(key, name, RegBinary, nullptr, 0), InvalidParameter);
    EXPECT_EQ(read(0, name.c_str()).code, InvalidParameter);
    EXPECT_EQ(registry.RegDeleteValueA(key, name), InvalidParameter);
    // A path of several keys may have no more than 260 characters in all: longer ones are walked in steps.
    const std::string keys = std::string(130, 'a') + "\\" + std::string(129, 'b');
    const std::pair<std::string, Result> rows[] = {{name, InvalidParameter},
                                                   {keys, FileNotFound},
                                                   {keys + "b", MoreData},
                                                   {name.substr(0, 257), InvalidParameter}};
    for (const auto& [path, code] : rows) {
        EXPECT_EQ(registry.RegOpenKeyExA(key, path, KeyQueryValue, made), code) << path.size();
        EXPECT_EQ(registry.RegDeleteKeyA(key, path), code) << path.size();
        if (code == FileNotFound) continue;
        EXPECT_EQ(registry.RegCreateKeyExA(key, path, KeyQueryValue, made), code) << path.size();
    }
}

TEST_F(RegistryContract, DataOfAnySizeAndTypeComesBackWhole) {
    for (const std::uint32_t size : {0u, 1u, 65535u})
        for (const RegType type : std::vector<RegType>{RegNone, RegSz, RegBinary, RegMultiSz, 1234}) {
            SCOPED_TRACE(testing::Message() << size << " bytes of type " << type);
            const Bytes data(size, 0xE9);  // not ASCII, and text without a terminating zero
            ASSERT_EQ(registry.RegSetValueExA(key, "v", type, data.data(), size), Success);
            const Read all = read(size + 4, "V"), part = read(size ? size - 1 : 0, "v");
            EXPECT_EQ(all.code, Success);
            EXPECT_EQ(all.type, type);
            EXPECT_TRUE(all.data.substr(0, all.size) == data);
            EXPECT_EQ(part.code, size ? MoreData : Success);
            EXPECT_EQ(part.size, size);
            KeyInfo info;
            EXPECT_EQ(registry.RegQueryInfoKeyA(key, info), Success);
            EXPECT_TRUE(info.longestData == size || info.longestData == 2 * size) << "text at two bytes a character";
        }
}

TEST_F(RegistryContract, TextWithoutATerminatingZeroGetsOneWhenThereIsRoom) {
    for (const RegType type : {RegSz, RegExpandSz, RegMultiSz, RegBinary}) {
        system.set({Path, "t", type, {'a', 'b', 'c'}});
        const Bytes room{'a', 'b', 'c', static_cast<std::uint8_t>(type == RegBinary ? 0x55 : 0), 0x55};
        for (const Read& text : {read(5, "t"), read(5)}) EXPECT_EQ(text, (Read{Success, type, 3, room})) << type;
    }
}

TEST_F(RegistryContract, KeysAndValuesAreListedInTextOrder) {
    for (const char* name : {"b", "A", "a1", "10", "2", "_", "Z", "aa", "[x", "0"})
        system.setText(Path + "\\" + name, name, ""), system.setText(Path, name, "");
    const std::vector<std::string> expected{"0", "10", "2", "[x", "_", "A", "a1", "aa", "b", "Z"};
    EXPECT_EQ(system.keys(Path), expected);
    EXPECT_EQ(system.values(Path), expected);
}

TEST_F(RegistryContract, WhatDoesNotFitOrIsMissingIsNotGiven) {
    system.setText(Path + "\\four", "", "");
    system.setText(Path, "four", "");
    char name[10] = "";
    RegType type = 0;
    for (const std::uint32_t room : {0u, 4u, 5u}) {
        const Result expected = room == 5 ? Success : MoreData;
        std::uint32_t keyLength = room, length = room, none = 0;
        EXPECT_EQ(registry.RegEnumKeyExA(key, 0, name, keyLength), expected) << room;
        EXPECT_EQ(keyLength, room == 5 ? 4 : room);
        EXPECT_EQ(registry.RegEnumValueA(key, 0, name, length, type, nullptr, none), expected) << room;
    }
    EXPECT_STREQ(name, "four");
    // What is missing has neither size nor handle.
    HKey none = 77;
    std::uint32_t size = 10;
    EXPECT_EQ(registry.RegQueryValueExA(key, "absent", type, nullptr, size), FileNotFound);
    EXPECT_EQ(size, 0u);
    EXPECT_EQ(registry.RegOpenKeyExA(key, "absent", KeyQueryValue, none), FileNotFound);
    EXPECT_EQ(none, 0u);
}
