// What the program may rely on in program files and icons, in memory and on the real system.
#include <gtest/gtest.h>

#include "support/TestSystem.h"

using namespace platform;

namespace {

using Ids = std::vector<ResourceId>;
const ResourceId List = "LIST", First = "FIRST", Named = "NAMED", One = std::uint16_t{1}, Ten = std::uint16_t{10};

class ModulesContract : public testing::Test {
protected:
    TestSystem system;
    Modules& modules = system.platform().modules;
    Module module = 0;  // the sample

    void SetUp() override {
        simulated::ProgramFile program;
        program.add(List, First, {1, 2, 3}).add(RtIcon, One, {4}).add(RtIcon, std::uint16_t{7}, {5});
        program.add(Ten, Named, Bytes(5000, 9));
        program.addString(17, "seventeen").addString(4700, "caf\xE9").addString(33, std::string(300, 's'));
        module = modules.LoadLibraryExA(system.addProgram("sample.dll", program));
        ASSERT_NE(module, 0u);
    }
    void TearDown() override {
        modules.FreeLibrary(module);
        EXPECT_EQ(system.modules.loaded(), 0);
        EXPECT_EQ(system.modules.icons(), 0);
    }
    Bytes bytesOf(const ResourceId& name, const ResourceId& type) {
        const ResourceInfo info = modules.FindResourceA(module, name, type);
        const auto bytes = modules.LockResource(module, info, modules.LoadResource(module, info));
        return {bytes.begin(), bytes.end()};
    }
};

}  // namespace

TEST_F(ModulesContract, ResourcesAreListedByTypeAndNameAndReadWhole) {
    Ids types, names, none;
    EXPECT_EQ(modules.EnumResourceTypesA(module, types), Success);
    EXPECT_EQ(types, (Ids{List, RtIcon, RtString, Ten}));
    EXPECT_EQ(modules.EnumResourceNamesA(module, RtIcon, names), Success);
    EXPECT_EQ(names, (Ids{One, std::uint16_t{7}}));
    EXPECT_EQ(modules.EnumResourceNamesA(module, RtBitmap, none), Result{1813});
    EXPECT_EQ(none, Ids{});
    const std::tuple<ResourceId, ResourceId, Bytes> resources[] = {
        {One, RtIcon, {4}}, {"#0001", "#3", {4}}, {"first", "List", {1, 2, 3}}, {Named, Ten, Bytes(5000, 9)}};
    for (const auto& [name, type, bytes] : resources) EXPECT_EQ(bytesOf(name, type), bytes);
    for (const auto& [type, code] : {std::pair{RtIcon, Result{1814}}, {RtBitmap, Result{1813}}}) {
        EXPECT_EQ(modules.FindResourceA(module, std::uint16_t{2}, type), 0u);
        EXPECT_EQ(modules.lastError(), code);
    }
    const std::pair<std::uint32_t, std::string> strings[] = {
        {17, "seventeen"}, {4700, "caf\xE9"}, {33, std::string(300, 's')}, {18, ""}, {9000, ""}};
    for (const auto& [number, text] : strings) EXPECT_EQ(modules.LoadStringA(module, number), text) << number;
    const Module byName = modules.LoadLibraryExA("SAMPLE.dll");
    EXPECT_NE(byName, 0u);
    modules.FreeLibrary(byName);
}

TEST_F(ModulesContract, WhatIsNoProgramFileIsNotLoadedButOneMayHoldNothing) {
    EXPECT_EQ(modules.LoadLibraryExA(system.path("absent.dll")), 0u);
    EXPECT_EQ(modules.lastError(), FileNotFound);
    const std::string message = modules.FormatMessageA(FileNotFound);
    EXPECT_FALSE(message.empty()) << message;
    EXPECT_FALSE(message.ends_with('\n')) << message;
    EXPECT_EQ(modules.FormatMessageA(0x2BADF00D), "");
    for (const char* bytes : {"", "MZ", "plain text that is longer than a header of a program file has to be"}) {
        system.writeFile("text.dll", bytes);
        EXPECT_EQ(modules.LoadLibraryExA(system.path("text.dll")), 0u) << bytes;
        EXPECT_NE(modules.lastError(), Success);
        EXPECT_EQ(modules.countIcons(system.path("text.dll")), 0u) << bytes;
    }
    const Module empty = modules.LoadLibraryExA(system.addProgram("empty.dll", {}));
    ASSERT_NE(empty, 0u);
    Ids types;
    EXPECT_EQ(modules.EnumResourceTypesA(empty, types), NoSuchResource);
    EXPECT_EQ(modules.FindResourceA(empty, One, RtIcon), 0u);
    EXPECT_EQ(modules.lastError(), NoSuchResource);
    modules.FreeLibrary(empty);
}

TEST_F(ModulesContract, IconsAreCountedAndMadeOfEverySoundImageAndOfNoDamagedOne) {
    system.seedModules();
    const Bytes icon = icons::file({icons::image(16, 4)});
    system.writeFile("one.ico", std::string(icon.begin(), icon.end()));
    for (const auto& [name, count] : {std::pair{"inetcpl.cpl", 3u}, {"one.ico", 1u}, {"absent.exe", 0u}})
        EXPECT_EQ(modules.countIcons(system.path(name)), count) << name;
    for (const auto& [what, bytes, isDrawn] : icons::storedImages()) {
        const IconHandle made = modules.CreateIconFromResource(bytes, 16, 16);
        EXPECT_EQ(made != 0, isDrawn) << what;
        EXPECT_TRUE(isDrawn || modules.lastError() == InvalidParameter) << what;
        modules.DestroyIcon(made);
    }
}
