// The system trusts program files; the program must live through damaged ones all the same.
#include <gtest/gtest.h>

#include "support/ProgramFileBytes.h"
#include "support/TestSystem.h"

using namespace platform;

namespace {

struct DamagedPrograms : testing::Test {
    TestSystem system;
    Modules& modules = system.platform().modules;
    Bytes valid = [] {
        simulated::ProgramFile program;
        icons::addTo(program, std::uint16_t{1}, {icons::image(16, 1)}, 1);
        program.add(std::string("TYPE"), std::string("NAME"), Bytes(20, 1)).addString(17, "seventeen");
        return programFileBytes(program);
    }();
    static constexpr std::size_t Directories = 0x200;  // where the only section begins

    // Reads all that there is in the file. How many resources there were does not matter.
    std::size_t readAll(const Bytes& file) {
        system.writeFile("damaged.dll", {reinterpret_cast<const char*>(file.data()), file.size()});
        (void)modules.countIcons(system.path("damaged.dll"));
        const Module module = modules.LoadLibraryExA(system.path("damaged.dll"));
        if (!module) return 0;
        std::size_t sum = 0;
        std::vector<ResourceId> types;
        modules.EnumResourceTypesA(module, types);
        for (const ResourceId& type : types) {
            std::vector<ResourceId> names;
            modules.EnumResourceNamesA(module, type, names);
            for (const ResourceId& name : names)
                if (const ResourceInfo info = modules.FindResourceA(module, name, type))
                    for (const auto byte : modules.LockResource(module, info, modules.LoadResource(module, info)))
                        sum += byte;
        }
        sum += modules.LoadStringA(module, 17).size();
        modules.FreeLibrary(module);
        return sum;
    }
};

}  // namespace

TEST_F(DamagedPrograms, AFileMayEndAnywhereAndAnyByteOfHeadersAndDirectoriesMayBeWrong) {
    ASSERT_GT(readAll(valid), 0u);
    EXPECT_EQ(readAll(valid.substr(0, Directories)), 0u);
    for (std::size_t length = 0; length < valid.size(); length += 7) readAll(valid.substr(0, length));
    constexpr std::size_t HeadersEnd = 0x40 + 24 + 224 + 40;
    const auto damage = [&](std::size_t at, std::uint8_t byte) { readAll(Bytes(valid).replace(at, 1, 1, byte)); };
    for (std::size_t at = 0; at < HeadersEnd; ++at) damage(at, 0), damage(at, 0xFF);
    for (std::size_t at = Directories; at < Directories + 300; ++at) damage(at, 0x80), damage(at, 0xFF);
}

TEST_F(DamagedPrograms, DirectoriesThatLeadToEachOtherAreNotWalkedForEver) {
    // Every entry of a large root directory leads to one types' directory, and all of its entries to one below.
    Bytes looping = valid;
    looping.resize(0x200 + 0x20000);
    icons::ByteWriter sizes;
    sizes.u32(0x20000);
    looping.replace(0x40 + 24 + 224 + 16, 4, sizes.bytes());
    const auto directory = [&](std::size_t offset, std::uint32_t child) {
        icons::ByteWriter out;
        out.fill(12).u16(0).u16(2000);
        for (std::uint32_t id = 1; id <= 2000; ++id) out.u32(id).u32(child);
        looping.replace(0x200 + offset, out.size(), out.bytes());
    };
    directory(0, 0x80005000);
    directory(0x5000, 0x8000A000);
    directory(0xA000, 0x0000F000);
    EXPECT_EQ(readAll(looping), 0u);
    EXPECT_EQ(modules.lastError(), BadExeFormat);
}
