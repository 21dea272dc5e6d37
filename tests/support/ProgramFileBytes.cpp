#include "support/ProgramFileBytes.h"

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

// A section of resources: the directories of types, names and languages, then what their entries lead to.
class Section {
public:
    explicit Section(const simulated::ProgramFile& program) {
        std::uint32_t resources = 0;
        for (const auto& type : program.types()) resources += count(type.resources);
        const std::uint32_t types = count(program.types());
        namesDirectory_ = 16 + 8 * types;
        languageDirectory_ = namesDirectory_ + 16 * types + 8 * resources;
        dataEntry_ = languageDirectory_ + 24 * resources;
        tail_ = dataEntry_ + 16 * resources;

        directory(
            program.types(), [](const auto& type) -> const auto& { return type.id; },
            [&](const auto& type) {
                const std::uint32_t at = namesDirectory_;
                namesDirectory_ += 16 + 8 * count(type.resources);
                return at | HighBit;
            });
        for (const auto& type : program.types())
            directory(
                type.resources, [](const auto& resource) -> const auto& { return resource.name; },
                [&](const auto&) {
                    const std::uint32_t at = languageDirectory_;
                    languageDirectory_ += 24;
                    return at | HighBit;
                });
        for (std::uint32_t i = 0; i < resources; ++i) {
            constexpr std::uint32_t english = 0x409;
            directories_.fill(12).u16(0).u16(1).u32(english).u32(dataEntry_ + 16 * i);
        }
        for (const auto& type : program.types())
            for (const auto& resource : type.resources) {
                place(4);
                entries_.u32(SectionStep + tail_ + count(data_.bytes())).u32(count(resource.bytes)).u32(0).u32(0);
                data_.add(resource.bytes);
            }
    }
    platform::Bytes bytes() { return directories_.bytes() + entries_.bytes() + data_.bytes(); }

private:
    template <class T>
    static std::uint32_t count(const T& items) {
        return static_cast<std::uint32_t>(items.size());
    }
    // So that the next byte of the tail is at a multiple of `step` in the file.
    void place(std::uint32_t step) { data_.fill((step - (tail_ + count(data_.bytes())) % step) % step); }

    template <class Items, class Name, class Child>
    void directory(const Items& items, Name name, Child child) {
        std::uint32_t texts = 0;
        for (const auto& item : items) texts += std::holds_alternative<std::string>(name(item));
        directories_.fill(12).u16(texts).u16(count(items) - texts);
        for (const auto& item : items) directories_.u32(nameEntry(name(item))).u32(child(item));
    }
    std::uint32_t nameEntry(const platform::ResourceId& id) {
        const auto* text = std::get_if<std::string>(&id);
        if (!text) return std::get<std::uint16_t>(id);
        place(2);
        const std::uint32_t at = tail_ + count(data_.bytes());
        data_.u16(count(*text));
        for (const char c : *text) data_.u16(static_cast<std::uint8_t>(c));
        return at | HighBit;
    }

    icons::ByteWriter directories_, entries_, data_;
    std::uint32_t namesDirectory_, languageDirectory_, dataEntry_, tail_;  // where the next of each is
};

}  // namespace

platform::Bytes programFileBytes(const simulated::ProgramFile& program) {
    if (program.types().empty()) return headers(0);
    const platform::Bytes section = Section(program).bytes();
    icons::ByteWriter out;
    return out.add(headers(static_cast<std::uint32_t>(section.size()))).add(section).alignTo(FileStep).bytes();
}
