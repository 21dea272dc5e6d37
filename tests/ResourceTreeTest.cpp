#include "platform/ResourceTree.h"

#include <gtest/gtest.h>

#include "platform/StringTable.h"
#include "support/IconBytes.h"
#include "support/ProgramFileBytes.h"

namespace {

using platform::Bytes, platform::Mapping;

constexpr std::size_t Directories = 0x200;  // where the only section begins in the file

bool canBeWalked(const Bytes& file, Mapping mapping = Mapping::Flat) {
    // A copy of just that size, so that reading past its end is seen.
    return platform::resourcesCanBeWalked(std::vector<std::uint8_t>(file.begin(), file.end()), mapping);
}

TEST(ResourceTree, NeedsItsHeadersDirectoriesAndNamesInsideTheFileOrWhereItRuns) {
    simulated::ProgramFile program;
    icons::addTo(program, std::uint16_t{1}, {icons::image(16, 1)}, 1);
    program.add(std::string("TYPE"), std::string("NAME"), Bytes(20, 1)).addString(17, "seventeen");
    const Bytes valid = programFileBytes(program);
    // As it is laid out to run: the section at 0x1000.
    const Bytes loaded = valid.substr(0, Directories) + Bytes(0x1000 - Directories, 0xFF) + valid.substr(Directories);
    EXPECT_TRUE(canBeWalked(valid));
    EXPECT_TRUE(canBeWalked(loaded, Mapping::Loaded));
    EXPECT_FALSE(canBeWalked(valid, Mapping::Loaded));
    EXPECT_FALSE(canBeWalked(loaded)) << "where the file has its section there is nothing";
    EXPECT_TRUE(canBeWalked(programFileBytes({}))) << "without resources";

    // The last entry ends before the first resource begins.
    constexpr std::size_t End = Directories + 324;
    for (std::size_t length = 0; length < valid.size(); ++length)
        ASSERT_EQ(canBeWalked(valid.substr(0, length)), length >= End) << length;
    const std::pair<std::size_t, std::uint8_t> damages[] = {
        {0, 'N'},                  // the first mark
        {0x3F, 0x7F},              // where the headers are
        {Directories + 15, 0x10},  // the number of types
        {Directories + 19, 0x81},  // where a type's name is
        {Directories + 23, 0},     // a type that leads to data
        {Directories + 22, 0x7F},  // a type whose names are outside
    };
    for (const auto& [at, byte] : damages) EXPECT_FALSE(canBeWalked(icons::patched(valid, at, {byte}))) << at;
}

TEST(StringTable, AStringIsReadFromItsBlockOrNotAtAll) {
    icons::ByteWriter out;
    out.u16(1).u16('a').u16(0).u16(3).u16('b').u16('c').u16(0x20AC).fill(2 * 12).u16(1).u16('z');
    const Bytes block = out.bytes();
    const auto stringAt = [](const Bytes& bytes, std::uint32_t number) -> std::optional<Bytes> {
        const auto characters = platform::stringInBlock(bytes, number);
        return characters ? std::optional(Bytes(characters->begin(), characters->end())) : std::nullopt;
    };
    const std::pair<std::uint32_t, Bytes> cases[] = {
        {16, {'a', 0}}, {33, {}}, {18, {'b', 0, 'c', 0, 0xAC, 0x20}}, {31, {'z', 0}}};
    for (const auto& [number, characters] : cases) EXPECT_EQ(stringAt(block, number), characters) << number;
    for (std::size_t length = 0; length < block.size(); ++length)
        EXPECT_FALSE(stringAt(block.substr(0, length), 31)) << length;
    EXPECT_EQ(platform::stringBlockOf(17), 2);
    EXPECT_EQ(platform::stringBlockOf(15), 1);
}

}  // namespace
