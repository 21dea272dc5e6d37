// What the program may rely on in program files and icons, in memory and on the real system.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/TestSystem.h"

using namespace platform;

namespace {

using Ids = std::vector<ResourceId>;

class ModulesContract : public testing::Test {
protected:
    TestSystem system;
    Modules& modules = system.platform().modules;

    void TearDown() override {
        EXPECT_EQ(system.modules.loaded(), 0);
        EXPECT_EQ(system.modules.icons(), 0);
    }

    simulated::ProgramFile sample() {
        simulated::ProgramFile program;
        program.add(std::string("LIST"), std::string("FIRST"), {1, 2, 3});
        program.add(RtIcon, std::uint16_t{1}, {4});
        program.add(RtIcon, std::uint16_t{7}, {});
        program.add(std::uint16_t{10}, std::string("NAMED"), Bytes(5000, 9));
        program.addString(17, "seventeen").addString(4700, "caf\xE9").addString(33, std::string(300, 's'));
        return program;
    }
    Bytes bytesOf(Module module, const ResourceId& name, const ResourceId& type) {
        const ResourceInfo info = modules.FindResourceA(module, name, type);
        const ResourceData data = modules.LoadResource(module, info);
        const auto bytes = modules.LockResource(module, info, data);
        return {bytes.begin(), bytes.end()};
    }
};

}  // namespace

TEST_F(ModulesContract, ResourcesAreListedByTypeAndName) {
    const std::string path = system.addProgram("sample.dll", sample());
    for (const std::string& file : {path, std::string("SAMPLE.dll")}) {
        const Module module = modules.LoadLibraryExA(file);
        ASSERT_NE(module, 0u) << file;
        Ids types, names, none;
        EXPECT_EQ(modules.EnumResourceTypesA(module, types), Success);
        EXPECT_EQ(types, (Ids{std::string("LIST"), RtIcon, RtString, std::uint16_t{10}}));
        EXPECT_EQ(modules.EnumResourceNamesA(module, RtIcon, names), Success);
        EXPECT_EQ(names, (Ids{std::uint16_t{1}, std::uint16_t{7}}));
        EXPECT_EQ(modules.EnumResourceNamesA(module, RtBitmap, none), Result{1813});
        EXPECT_EQ(none, Ids{});
        modules.FreeLibrary(module);
    }
}

TEST_F(ModulesContract, ResourcesAreFoundByNumberNameAndNumberSign) {
    const Module module = modules.LoadLibraryExA(system.addProgram("sample.dll", sample()));
    EXPECT_EQ(bytesOf(module, std::uint16_t{1}, RtIcon), Bytes{4});
    EXPECT_EQ(bytesOf(module, std::string("#1"), RtIcon), Bytes{4});
    EXPECT_EQ(bytesOf(module, std::string("#0001"), std::string("#3")), Bytes{4});
    EXPECT_EQ(bytesOf(module, std::string("first"), std::string("List")), (Bytes{1, 2, 3}));
    EXPECT_EQ(bytesOf(module, std::string("NAMED"), std::uint16_t{10}), Bytes(5000, 9));

    EXPECT_EQ(modules.FindResourceA(module, std::uint16_t{2}, RtIcon), 0u);
    EXPECT_EQ(modules.lastError(), Result{1814});
    EXPECT_EQ(modules.FindResourceA(module, std::uint16_t{1}, RtBitmap), 0u);
    EXPECT_EQ(modules.lastError(), Result{1813});
    modules.FreeLibrary(module);
}

TEST_F(ModulesContract, StringsAreReadUpToTheirLimit) {
    const Module module = modules.LoadLibraryExA(system.addProgram("sample.dll", sample()));
    EXPECT_EQ(modules.LoadStringA(module, 17), "seventeen");
    EXPECT_EQ(modules.LoadStringA(module, 4700), "caf\xE9");
    EXPECT_EQ(modules.LoadStringA(module, 33), std::string(254, 's'));
    EXPECT_EQ(modules.LoadStringA(module, 18), "");
    EXPECT_EQ(modules.LoadStringA(module, 9000), "");
    modules.FreeLibrary(module);
}

TEST_F(ModulesContract, WhatIsNoProgramFileIsNotLoadedButOneMayHoldNothing) {
    EXPECT_EQ(modules.LoadLibraryExA(system.path("absent.dll")), 0u);
    EXPECT_EQ(modules.lastError(), FileNotFound);
    EXPECT_NE(modules.FormatMessageA(FileNotFound), "");
    EXPECT_FALSE(modules.FormatMessageA(FileNotFound).ends_with('\n'));
    EXPECT_EQ(modules.FormatMessageA(0x2BADF00D), "");
    for (const char* bytes : {"", "MZ", "plain text that is longer than a header of a program file has to be"}) {
        system.writeFile("text.dll", bytes);
        EXPECT_EQ(modules.LoadLibraryExA(system.path("text.dll")), 0u) << bytes;
        EXPECT_NE(modules.lastError(), Success);
        EXPECT_EQ(modules.countIcons(system.path("text.dll")), 0u) << bytes;
    }
    const std::string path = system.addProgram("empty.dll", {});
    const Module module = modules.LoadLibraryExA(path);
    ASSERT_NE(module, 0u);
    Ids types;
    EXPECT_EQ(modules.EnumResourceTypesA(module, types), NoSuchResource);
    EXPECT_EQ(modules.FindResourceA(module, std::uint16_t{1}, RtIcon), 0u);
    EXPECT_EQ(modules.lastError(), NoSuchResource);
    modules.FreeLibrary(module);
    EXPECT_EQ(modules.countIcons(path), 0u);
}

TEST_F(ModulesContract, IconsAreCountedInProgramAndIconFiles) {
    system.seedModules();
    EXPECT_EQ(modules.countIcons(system.path("inetcpl.cpl")), 3u);
    const Bytes icon = icons::file(icons::usualImages());
    system.writeFile("one.ico", {reinterpret_cast<const char*>(icon.data()), icon.size()});
    EXPECT_EQ(modules.countIcons(system.path("one.ico")), 1u);
    EXPECT_EQ(modules.countIcons(system.path("absent.exe")), 0u);
}

TEST_F(ModulesContract, ADamagedImageBecomesNone) {
    const Bytes valid = icons::image(32, 4).bytes;
    for (std::size_t length = 0; length < valid.size(); ++length)
        ASSERT_EQ(modules.CreateIconFromResource({valid.data(), length}, 32, 32), 0u) << length << " bytes";
    const std::pair<std::size_t, std::uint8_t> damages[] = {{0, 12},    {0, 0},  {7, 0x7F}, {7, 0xFF}, {11, 0x7F},
                                                            {11, 0x80}, {14, 3}, {14, 64},  {35, 0xFF}};
    for (const auto& [at, byte] : damages)
        EXPECT_EQ(modules.CreateIconFromResource(Bytes(valid).replace(at, 1, 1, byte), 32, 32), 0u) << at;
}
