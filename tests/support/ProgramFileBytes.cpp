#include "support/ProgramFileBytes.h"

#include <array>

#include "support/IconBytes.h"

namespace {

constexpr std::uint32_t SectionStep = 0x1000, FileStep = 0x200;
constexpr std::uint32_t HighBit = 0x80000000;  // of a name: where its text is; of a child: another directory

// The headers of a 32-bit library with one section, which holds its resources.
platform::Bytes headers(std::uint32_t size) {
    icons::ByteWriter out;
    out.u16(0x5A4D).fill(58).u32(0x40);
    out.u32(0x4550).u16(0x14C).u16(size ? 1 : 0).u32(0).u32(0).u32(0).u16(224).u16(0x2102);
    out.u16(0x10B).fill(22).u32(SectionStep);
    out.u32(0x10000000).u32(SectionStep).u32(FileStep).u16(4).u16(0).u32(0).u16(4).u16(0).u32(0);
    out.u32(SectionStep + (size + SectionStep - 1) / SectionStep * SectionStep).u32(FileStep).u32(0).u16(2).u16(0);
    out.u32(0x100000).u32(0x1000).u32(0x100000).u32(0x1000).u32(0).u32(16);
    out.fill(2 * 8).u32(size ? SectionStep : 0).u32(size).fill(13 * 8);
    if (size) {
        out.add({'.', 'r', 's', 'r', 'c', 0, 0, 0}).u32(size).u32(SectionStep);
        out.u32((size + FileStep - 1) / FileStep * FileStep).u32(FileStep).fill(12).u32(0x40000040);
    }
    return out.alignTo(FileStep).bytes();
}

// A section of resources: the directories of types, names and languages with the names and entries below them, then
// what the entries lead to.
class Section {
public:
    explicit Section(const simulated::ProgramFile& program) {
        using Type = simulated::ProgramFile::Type;
        using Resource = simulated::ProgramFile::Resource;
        std::vector<std::pair<std::size_t, const platform::Bytes*>> data;  // and where they are pointed to
        const auto entry = [&](const platform::Bytes* bytes) {
            data.emplace_back(out_.size(), bytes);
            out_.u32(0).u32(static_cast<std::uint32_t>(bytes->size())).u32(0).u32(0);
            return static_cast<std::uint32_t>(out_.size() - 16);
        };
        const auto english = [](const auto&) { return platform::ResourceId(std::uint16_t{0x409}); };
        const auto languages = [&](const Resource& resource) {
            return directory(std::array{&resource.bytes}, english, entry);
        };
        directory(program.types(), std::mem_fn(&Type::id),
                  [&](const Type& type) { return directory(type.resources, std::mem_fn(&Resource::name), languages); });
        for (const auto& [at, bytes] : data) {
            out_.alignTo(4);
            put(at, SectionStep + static_cast<std::uint32_t>(out_.size()));
            out_.add(*bytes);
        }
    }
    const platform::Bytes& bytes() { return out_.bytes(); }

private:
    // Appends it, and then of each entry its name and what is below it. Says where it is.
    template <class Items, class Name, class Below>
    std::uint32_t directory(const Items& items, Name name, Below below) {
        const std::size_t at = out_.size();
        std::uint32_t texts = 0;
        for (const auto& item : items) texts += std::holds_alternative<std::string>(name(item));
        out_.fill(12).u16(texts).u16(static_cast<std::uint32_t>(items.size()) - texts).fill(8 * items.size());
        for (std::size_t entry = at + 16; const auto& item : items) {
            put(entry, nameEntry(name(item)));
            put(entry + 4, below(item));
            entry += 8;
        }
        return static_cast<std::uint32_t>(at) | HighBit;
    }
    std::uint32_t nameEntry(const platform::ResourceId& id) {
        const auto* text = std::get_if<std::string>(&id);
        if (!text) return std::get<std::uint16_t>(id);
        const auto at = static_cast<std::uint32_t>(out_.size());
        out_.u16(static_cast<std::uint32_t>(text->size()));
        for (const char c : *text) out_.u16(static_cast<std::uint8_t>(c));
        return at | HighBit;
    }
    void put(std::size_t at, std::uint32_t number) {
        icons::ByteWriter bytes;
        out_.bytes().replace(at, 4, bytes.u32(number).bytes());
    }

    icons::ByteWriter out_;
};

}  // namespace

platform::Bytes programFileBytes(const simulated::ProgramFile& program) {
    if (program.types().empty()) return headers(0);
    const platform::Bytes section = Section(program).bytes();
    icons::ByteWriter out;
    return out.add(headers(static_cast<std::uint32_t>(section.size()))).add(section).alignTo(FileStep).bytes();
}
