#include "support/ProgramFileBytes.h"

#ifdef _WIN32

#include <gtest/gtest.h>

#include <filesystem>

#include "support/IconBytes.h"
#include "win32/Files.h"
#include "win32/WindowsHeaders.h"

namespace {

// The headers of a 32-bit library without a section, to which the system adds its own.
platform::Bytes headers() {
    constexpr std::uint32_t sectionStep = 0x1000, fileStep = 0x200;
    icons::ByteWriter out;
    out.u16(0x5A4D).fill(58).u32(0x40);
    out.u32(0x4550).u16(0x14C).u16(0).u32(0).u32(0).u32(0).u16(224).u16(0x2102);
    out.u16(0x10B).fill(22).u32(sectionStep);
    out.u32(0x10000000).u32(sectionStep).u32(fileStep).u16(4).u16(0).u32(0).u16(4).u16(0).u32(0);
    out.u32(sectionStep).u32(fileStep).u32(0).u16(2).u16(0);
    out.u32(0x100000).u32(0x1000).u32(0x100000).u32(0x1000).u32(0).u32(16);
    return out.alignTo(fileStep).bytes();
}

const char* nameOf(const platform::ResourceId& id) {
    const auto* text = std::get_if<std::string>(&id);
    return text ? text->c_str() : MAKEINTRESOURCEA(std::get<std::uint16_t>(id));
}

}  // namespace

platform::Bytes programFileBytes(const simulated::ProgramFile& program) {
    const std::string path = (std::filesystem::temp_directory_path() / "Tavimor tests.dll").string();
    const platform::Bytes bare = headers();
    win32::Files files;
    std::uint32_t written = 0;
    files.create(path, {reinterpret_cast<const char*>(bare.data()), bare.size()}, written);
    if (!program.types().empty()) {
        constexpr WORD english = 0x409;
        const HANDLE update = BeginUpdateResourceA(path.c_str(), FALSE);
        for (const auto& type : program.types())
            for (const auto& [name, bytes] : type.resources)
                EXPECT_TRUE(UpdateResourceA(update, nameOf(type.id), nameOf(name), english,
                                            const_cast<std::uint8_t*>(bytes.data()), static_cast<DWORD>(bytes.size())));
        EXPECT_TRUE(EndUpdateResourceA(update, FALSE));
    }
    std::string all;
    files.read(path, all);
    files.remove(path);
    return {all.begin(), all.end()};
}

#endif
