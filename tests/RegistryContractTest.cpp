// What the program may rely on in a registry. Both the one in memory and the system's own are held to it: whatever
// passes here natively and fails as a Windows program is a mistake of the one in memory.
#include <gtest/gtest.h>

#include <array>

#include "support/TestSystem.h"

using namespace platform;

namespace {

constexpr const char* Path = "HKEY_CURRENT_USER\\Software\\Tavimor Tests";
constexpr const char* SubKey = "Software\\Tavimor Tests";
constexpr HKey NoSuchHandle = 0x7654320;

class RegistryContract : public testing::Test {
protected:
    TestSystem system;
    Registry& registry = system.platform().registry;

    void SetUp() override { system.makeKey(Path); }
    void TearDown() override { EXPECT_EQ(system.registry.openHandles(), 0u) << "a test left handles open"; }

    HKey open(AccessMask access, const std::string& subKey = SubKey) {
        HKey key = 0;
        EXPECT_EQ(registry.RegOpenKeyExA(HKeyCurrentUser, subKey, access, key), Success);
        return key;
    }

    // One call of every function, by name.
    struct Call {
        const char* name;
        Result code;
    };
    std::vector<Call> callAll(HKey key) {
        HKey other = 0;
        KeyInfo info;
        char name[300];
        std::uint32_t nameLength = sizeof name, valueLength = sizeof name, size = 0, querySize = 0;
        RegType type = 0;
        const std::uint8_t byte = 1;
        const auto closed = [&](Result code) {
            if (code == Success) registry.RegCloseKey(other);
            return code;
        };
        return {
            {"RegOpenKeyExA", closed(registry.RegOpenKeyExA(key, "absent", KeyQueryValue, other))},
            {"RegOpenKeyExA itself", closed(registry.RegOpenKeyExA(key, "", KeyQueryValue, other))},
            {"RegOpenKeyA", closed(registry.RegOpenKeyA(key, "absent", other))},
            {"RegDeleteKeyA", registry.RegDeleteKeyA(key, "absent")},
            {"RegDeleteValueA", registry.RegDeleteValueA(key, "absent")},
            {"RegQueryInfoKeyA", registry.RegQueryInfoKeyA(key, info)},
            {"RegEnumKeyExA", registry.RegEnumKeyExA(key, 9999, name, nameLength)},
            {"RegEnumValueA", registry.RegEnumValueA(key, 9999, name, valueLength, type, nullptr, size)},
            {"RegQueryValueExA", registry.RegQueryValueExA(key, "absent", type, nullptr, querySize)},
            {"RegSetValueExA", registry.RegSetValueExA(key, "made", RegBinary, &byte, 1)},
            {"RegCreateKeyExA", closed(registry.RegCreateKeyExA(key, "made", KeyQueryValue, other))},
        };
    }
    void expectCalls(HKey key, const std::array<Result, 11>& codes) {
        const std::vector<Call> calls = callAll(key);
        for (std::size_t i = 0; i < codes.size(); ++i) EXPECT_EQ(calls[i].code, codes[i]) << calls[i].name;
    }
};

}  // namespace

TEST_F(RegistryContract, EveryFunctionTellsThatSomethingIsMissing) {
    const HKey key = open(KeyAllAccess);
    expectCalls(key, {FileNotFound, Success, FileNotFound, FileNotFound, FileNotFound, Success, NoMoreItems,
                      NoMoreItems, FileNotFound, Success, Success});
    registry.RegCloseKey(key);
}

TEST_F(RegistryContract, EveryFunctionRefusesAHandleThatIsNone) {
    const HKey closed = open(KeyAllAccess);
    EXPECT_EQ(registry.RegCloseKey(closed), Success);
    EXPECT_EQ(registry.RegCloseKey(closed), InvalidHandle);  // at once, before the number belongs to something else
    EXPECT_EQ(registry.RegCloseKey(0), InvalidHandle);
    EXPECT_EQ(registry.RegCloseKey(NoSuchHandle), InvalidHandle);
    for (const HKey key : {closed, HKey{0}, NoSuchHandle}) {
        SCOPED_TRACE(key);
        std::array<Result, 11> refused;
        refused.fill(InvalidHandle);
        expectCalls(key, refused);
    }
}

TEST_F(RegistryContract, EveryFunctionButCloseTellsThatTheKeyOfItsHandleIsDeleted) {
    system.makeKey(std::string(Path) + "\\Gone");
    const HKey key = open(KeyAllAccess, std::string(SubKey) + "\\Gone");
    ASSERT_EQ(registry.RegDeleteKeyA(HKeyCurrentUser, std::string(SubKey) + "\\Gone"), Success);
    std::array<Result, 11> deleted;
    deleted.fill(KeyDeleted);
    expectCalls(key, deleted);
    EXPECT_EQ(registry.RegCloseKey(key), Success);
}

// Opening, making and deleting keys ask no right of the handle: the system looks at the key's own protection.
TEST_F(RegistryContract, AHandleWithoutTheRightIsRefused) {
    constexpr Result No = AccessDenied, Missing = FileNotFound, End = NoMoreItems;
    const struct {
        AccessMask access;
        Result deleteValue, enumKey, enumValue, queryValue, setValue;
    } rows[] = {
        {KeyQueryValue, No, No, End, Missing, No},
        {KeySetValue, Missing, No, No, No, Success},
        {KeyCreateSubKey, No, No, No, No, No},
        {KeyEnumerateSubKeys, No, End, No, No, No},
        {KeyQueryValue | KeyEnumerateSubKeys, No, End, End, Missing, No},
        {KeyAllAccess, Missing, End, End, Missing, Success},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.access);
        const HKey key = open(row.access);
        const std::vector<Call> calls = callAll(key);
        registry.RegCloseKey(key);
        EXPECT_EQ(calls[0].code, Missing);
        EXPECT_EQ(calls[3].code, Missing);
        EXPECT_EQ(calls[4].code, row.deleteValue);
        EXPECT_EQ(calls[6].code, row.enumKey);
        EXPECT_EQ(calls[7].code, row.enumValue);
        EXPECT_EQ(calls[8].code, row.queryValue);
        EXPECT_EQ(calls[9].code, row.setValue);
        EXPECT_EQ(calls[10].code, Success);
    }
}

TEST_F(RegistryContract, PathsMayEndInABackslashButNotBeginWithOne) {
    const HKey key = open(KeyAllAccess);
    constexpr Result BadPathName = 161;
    const struct {
        const char* path;
        Result code;
    } rows[] = {
        {"A\\B\\C", Success}, {"A\\B\\", Success}, {"a\\\\b", Success}, {"\\A", BadPathName}, {"\\", BadPathName}};
    for (const auto& row : rows) {
        HKey made = 0, opened = 0;
        EXPECT_EQ(registry.RegCreateKeyExA(key, row.path, KeyQueryValue, made), row.code) << row.path;
        EXPECT_EQ(registry.RegOpenKeyExA(key, row.path, KeyQueryValue, opened), row.code) << row.path;
        if (made) registry.RegCloseKey(made);
        if (opened) registry.RegCloseKey(opened);
    }
    EXPECT_EQ(system.keys(Path), std::vector<std::string>{"A"}) << "kept as it was made first";
    registry.RegCloseKey(key);
}

TEST_F(RegistryContract, AKeyWithSubkeysIsNotDeleted) {
    system.setText(std::string(Path) + "\\Parent\\Child", "x", "y");
    const HKey key = open(KeySetValue);
    EXPECT_EQ(registry.RegDeleteKeyA(key, "Parent"), AccessDenied);
    EXPECT_EQ(system.text(std::string(Path) + "\\Parent\\Child", "x"), "y");
    EXPECT_EQ(registry.RegDeleteKeyA(key, "PARENT\\CHILD"), Success);
    EXPECT_EQ(registry.RegDeleteKeyA(key, "Parent"), Success);
    EXPECT_EQ(registry.RegDeleteKeyA(key, "Parent"), FileNotFound);
    EXPECT_EQ(registry.RegDeleteKeyA(key, ""), Success) << "the key itself";
    EXPECT_FALSE(system.exists(Path));
    registry.RegCloseKey(key);
}

TEST_F(RegistryContract, NamesThatAreTooLongAreRefused) {
    const HKey key = open(KeyAllAccess);
    HKey made = 0;
    RegType type = 0;
    std::uint32_t size = 0;
    const std::string name(65535, 'n');
    EXPECT_EQ(registry.RegSetValueExA(key, name, RegBinary, nullptr, 0), InvalidParameter);
    EXPECT_EQ(registry.RegQueryValueExA(key, name, type, nullptr, size), InvalidParameter);
    EXPECT_EQ(registry.RegDeleteValueA(key, name), InvalidParameter);
    // A path of several keys may have no more than 260 characters in all: longer ones are walked in steps.
    const std::string keys = std::string(130, 'a') + "\\" + std::string(129, 'b');
    EXPECT_EQ(registry.RegOpenKeyExA(key, keys, KeyQueryValue, made), FileNotFound);
    const std::pair<std::string, Result> rows[] = {
        {name, InvalidParameter}, {keys + "b", MoreData}, {std::string(257, 'n'), InvalidParameter}};
    for (const auto& [path, code] : rows) {
        EXPECT_EQ(registry.RegCreateKeyExA(key, path, KeyQueryValue, made), code) << path.size();
        EXPECT_EQ(registry.RegOpenKeyExA(key, path, KeyQueryValue, made), code) << path.size();
        EXPECT_EQ(registry.RegDeleteKeyA(key, path), code) << path.size();
    }
    registry.RegCloseKey(key);
}

TEST_F(RegistryContract, DataOfAnySizeAndTypeComesBackWhole) {
    const HKey key = open(KeyAllAccess);
    for (const std::uint32_t size : {0u, 1u, 65535u})
        for (const RegType type :
             std::initializer_list<RegType>{RegNone, RegSz, RegBinary, RegDword, RegMultiSz, 1234}) {
            SCOPED_TRACE(testing::Message() << size << " bytes of type " << type);
            const Bytes data(size, 0xE9);  // not ASCII, and text without a terminating zero
            ASSERT_EQ(registry.RegSetValueExA(key, "v", type, data.data(), size), Success);
            RegType found = 99;
            std::uint32_t told = size + 4;
            Bytes read(told, 0x55);
            EXPECT_EQ(registry.RegQueryValueExA(key, "V", found, read.data(), told), Success);
            EXPECT_EQ(found, type);
            EXPECT_EQ(told, size);
            EXPECT_EQ(read.substr(0, size), data);
            if (size > 0) {
                told = size - 1;
                EXPECT_EQ(registry.RegQueryValueExA(key, "v", found, read.data(), told), MoreData);
                EXPECT_EQ(told, size);
            }
            KeyInfo info;
            EXPECT_EQ(registry.RegQueryInfoKeyA(key, info), Success);
            EXPECT_GE(info.longestData, size);
            EXPECT_LE(info.longestData, 2 * size) << "text may be counted at two bytes a character";
        }
    registry.RegCloseKey(key);
}

TEST_F(RegistryContract, TextWithoutATerminatingZeroGetsOneWhenThereIsRoom) {
    const HKey key = open(KeyAllAccess);
    const auto* abc = reinterpret_cast<const std::uint8_t*>("abcd");
    for (const RegType type : {RegSz, RegExpandSz, RegMultiSz, RegBinary}) {
        ASSERT_EQ(registry.RegSetValueExA(key, "t", type, abc, 3), Success);
        for (const bool enumerate : {false, true}) {
            Bytes read(5, 0x55);
            std::uint32_t size = 5, length = 10;
            char name[10];
            RegType found = 0;
            EXPECT_EQ(enumerate ? registry.RegEnumValueA(key, 0, name, length, found, read.data(), size)
                                : registry.RegQueryValueExA(key, "t", found, read.data(), size),
                      Success);
            EXPECT_EQ(size, 3u);
            const std::uint8_t behind = type == RegBinary ? 0x55 : 0;
            EXPECT_EQ(read, (Bytes{'a', 'b', 'c', behind, 0x55})) << type << " " << enumerate;
        }
    }
    // "abc" as C writes it has a zero behind it, which is not part of what was asked to be stored.
    ASSERT_EQ(registry.RegSetValueExA(key, "t", RegSz, reinterpret_cast<const std::uint8_t*>("abc"), 3), Success);
    EXPECT_EQ(system.value(Path, "t")->data.size(), 3u);
    registry.RegCloseKey(key);
}

TEST_F(RegistryContract, AMissingValueTellsNoSizeAndAMissingKeyNoHandle) {
    RegType type = 99;
    std::uint32_t size = 10;
    HKey key = 77;
    EXPECT_EQ(registry.RegQueryValueExA(HKeyCurrentUser, "absent", type, nullptr, size), FileNotFound);
    EXPECT_EQ(size, 0u);
    EXPECT_EQ(registry.RegOpenKeyExA(HKeyCurrentUser, "Software\\Nothing here", KeyQueryValue, key), FileNotFound);
    EXPECT_EQ(key, 0u);
}

TEST_F(RegistryContract, KeysAndValuesAreListedInTextOrder) {
    const std::vector<std::string> made{"b", "A", "a1", "10", "2", "_", "Z", "aa", "[x", "0"};
    for (const std::string& name : made) {
        system.makeKey(std::string(Path) + "\\" + name);
        system.setText(Path, name, "");
    }
    const std::vector<std::string> expected{"0", "10", "2", "[x", "_", "A", "a1", "aa", "b", "Z"};
    EXPECT_EQ(system.keys(Path), expected);
    EXPECT_EQ(system.values(Path), expected);
}

TEST_F(RegistryContract, ANameThatDoesNotFitIsNotGiven) {
    system.makeKey(std::string(Path) + "\\four");
    system.setText(Path, "four", "12345");
    const HKey key = open(KeyQueryValue | KeyEnumerateSubKeys);
    char name[10] = "";
    for (const std::uint32_t room : {0u, 4u, 5u}) {
        std::uint32_t length = room;
        EXPECT_EQ(registry.RegEnumKeyExA(key, 0, name, length), room == 5 ? Success : MoreData) << room;
        EXPECT_EQ(length, room == 5 ? 4 : room);

        RegType type = 0;
        std::uint8_t data[6];
        std::uint32_t size = sizeof data;
        length = room;
        EXPECT_EQ(registry.RegEnumValueA(key, 0, name, length, type, data, size), room == 5 ? Success : MoreData);
    }
    EXPECT_STREQ(name, "four");
    registry.RegCloseKey(key);
}

// Not part of the contract: what Windows 95 and 98 do otherwise than the systems above.
TEST(SimulatedRegistry, Windows98DeletesSubtreesAndListsInTheOrderOfCreation) {
    TestSystem system(TestSystem::On::Simulation);
    system.simulation()->registry.deletesSubtrees = true;
    system.simulation()->registry.order = simulated::Order::Creation;
    for (const char* name : {"2", "10", "1\\below"}) system.makeKey(std::string(Path) + "\\" + name);
    EXPECT_EQ(system.keys(Path), (std::vector<std::string>{"2", "10", "1"}));

    HKey below = 0;
    ASSERT_EQ(system.registry.RegOpenKeyExA(HKeyCurrentUser, std::string(SubKey) + "\\1\\below", KeyQueryValue, below),
              Success);
    EXPECT_EQ(system.registry.RegDeleteKeyA(HKeyCurrentUser, SubKey), Success);
    EXPECT_FALSE(system.exists(Path));
    KeyInfo info;
    EXPECT_EQ(system.registry.RegQueryInfoKeyA(below, info), KeyDeleted);
    EXPECT_EQ(system.registry.RegCloseKey(below), Success);
}
