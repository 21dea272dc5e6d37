#include "platform/ResourceTree.h"

#include <gtest/gtest.h>

#include "platform/StringTable.h"
#include "support/IconBytes.h"
#include "support/ProgramFileBytes.h"

namespace {

using platform::Bytes;
using platform::Mapping;

constexpr std::size_t Directories = 0x200;  // where the only section begins in the file

bool canBeWalked(const Bytes& file, Mapping mapping = Mapping::Flat) {
    // A copy of just that size, so that reading past its end is seen.
    const std::vector<std::uint8_t> exact(file.begin(), file.end());
    return platform::resourcesCanBeWalked(exact, mapping);
}

struct ResourceTree : testing::Test {
    Bytes valid = [] {
        simulated::ProgramFile program;
        icons::addTo(program, std::uint16_t{1}, {icons::image(16, 1)}, 1);
        program.add(std::string("TYPE"), std::string("NAME"), Bytes(20, 1)).addString(17, "seventeen");
        return programFileBytes(program);
    }();
    // As it is laid out to run: the section at 0x1000.
    Bytes loaded = valid.substr(0, Directories) + Bytes(0x1000 - Directories, 0xFF) + valid.substr(Directories);
};

TEST_F(ResourceTree, IsFoundInTheFileAndWhereItRuns) {
    EXPECT_TRUE(canBeWalked(valid));
    EXPECT_TRUE(canBeWalked(loaded, Mapping::Loaded));
    EXPECT_FALSE(canBeWalked(valid, Mapping::Loaded));
    EXPECT_FALSE(canBeWalked(loaded)) << "where the file has its section there is nothing";
    EXPECT_TRUE(canBeWalked(programFileBytes({}))) << "without resources";
}

TEST_F(ResourceTree, NeedsItsHeadersDirectoriesAndNamesInsideTheFile) {
    // The text of the last name ends before the last resource begins.
    std::size_t shortest = valid.size();
    for (std::size_t length = 0; length < valid.size(); ++length)
        if (canBeWalked(valid.substr(0, length))) shortest = std::min(shortest, length);
    EXPECT_GT(shortest, Directories + 300);
    for (std::size_t length = shortest; length < valid.size(); ++length)
        ASSERT_TRUE(canBeWalked(valid.substr(0, length))) << length;
    const std::pair<std::size_t, std::uint8_t> damages[] = {
        {0, 'N'},                  // the first mark
        {0x3F, 0x7F},              // where the headers are
        {Directories + 15, 0x10},  // the number of types
        {Directories + 19, 0x81},  // where a type's name is
        {Directories + 23, 0},     // a type that leads to data
        {Directories + 22, 0x7F},  // a type whose names are outside
    };
    for (const auto& [at, byte] : damages) EXPECT_FALSE(canBeWalked(Bytes(valid).replace(at, 1, 1, byte))) << at;
    for (std::size_t at = 0; at < Directories + 300; ++at)
        for (const std::uint8_t byte : Bytes{0, 0x7F, 0x80, 0xFF})
            for (const Mapping mapping : {Mapping::Flat, Mapping::Loaded})
                (void)canBeWalked(Bytes(valid).replace(at, 1, 1, byte), mapping);
}

TEST(StringTable, AStringIsReadFromItsBlockOrNotAtAll) {
    icons::ByteWriter out;
    out.u16(1).u16('a').u16(0).u16(3).u16('b').u16('c').u16(0x20AC).fill(2 * 12).u16(1).u16('z');
    const Bytes block = out.bytes();
    const auto stringAt = [](const Bytes& bytes, std::uint32_t number) -> std::optional<Bytes> {
        const auto characters = platform::stringInBlock({bytes.data(), bytes.size()}, number);
        if (!characters) return std::nullopt;
        return Bytes(characters->begin(), characters->end());
    };
    EXPECT_EQ(stringAt(block, 16), (Bytes{'a', 0}));
    EXPECT_EQ(stringAt(block, 33), Bytes());
    EXPECT_EQ(stringAt(block, 18), (Bytes{'b', 0, 'c', 0, 0xAC, 0x20}));
    EXPECT_EQ(stringAt(block, 31), (Bytes{'z', 0}));
    for (std::size_t length = 0; length < block.size(); ++length)
        EXPECT_FALSE(stringAt(block.substr(0, length), 31)) << length;
    EXPECT_EQ(platform::stringBlockOf(17), 2);
    EXPECT_EQ(platform::stringBlockOf(15), 1);
}

}  // namespace
