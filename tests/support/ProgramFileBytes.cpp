#include "support/ProgramFileBytes.h"

#include <map>

#include "support/IconBytes.h"

using icons::ByteWriter;
using platform::Bytes;
using platform::ResourceId;

namespace {

constexpr std::uint32_t SectionAddress = 0x1000, SectionOffset = 0x200, HighBit = 0x80000000;

// Texts before numbers, each kind in rising order.
struct DirectoryOrder {
    bool operator()(const ResourceId& a, const ResourceId& b) const {
        return a.index() != b.index() ? a.index() > b.index() : a < b;
    }
};
using Names = std::map<ResourceId, Bytes, DirectoryOrder>;
using Types = std::map<ResourceId, Names, DirectoryOrder>;

void addStrings(Types& types, const std::map<std::uint32_t, std::string>& strings) {
    std::map<std::uint32_t, std::map<std::uint32_t, std::string>> blocks;
    for (const auto& [number, text] : strings) blocks[number / 16 + 1][number % 16] = text;
    for (auto& [block, texts] : blocks) {
        ByteWriter out;
        for (std::uint32_t i = 0; i < 16; ++i) {
            out.u16(static_cast<std::uint32_t>(texts[i].size()));
            for (const char c : texts[i]) out.u16(static_cast<unsigned char>(c));
        }
        types[platform::RtString][static_cast<std::uint16_t>(block)] = out.bytes();
    }
}

class SectionWriter {
public:
    explicit SectionWriter(const Types& types) : types_(types) {
        std::size_t names = 0;
        for (const auto& [type, all] : types) names += all.size();
        // Root, type directories and one directory of languages for each name; then the data entries.
        entriesAt_ = directorySize(types.size()) + names * directorySize(1);
        for (const auto& [type, all] : types) entriesAt_ += directorySize(all.size());
        tailAt_ = entriesAt_ + 16 * names;
    }

    Bytes write() {
        std::size_t next = directorySize(types_.size());
        header(types_);
        for (const auto& [type, names] : types_) {
            entry(type, HighBit | next);
            next += directorySize(names.size());
        }
        for (const auto& [type, names] : types_) {
            header(names);
            for (const auto& [name, bytes] : names) {
                entry(name, HighBit | next);
                next += directorySize(1);
            }
        }
        for (const auto& [type, names] : types_)
            for (const auto& [name, bytes] : names) language(bytes);
        return directories_.add(entries_.bytes()).add(tail_.bytes()).bytes();
    }

private:
    static std::size_t directorySize(std::size_t count) { return 16 + 8 * count; }

    template <class Map>
    void header(const Map& map) {
        std::uint32_t texts = 0;
        for (const auto& [id, below] : map) texts += id.index() == 1;
        directories_.fill(12).u16(texts).u16(static_cast<std::uint32_t>(map.size()) - texts);
    }

    void entry(const ResourceId& id, std::size_t child) {
        if (const auto* text = std::get_if<std::string>(&id)) {
            directories_.u32(HighBit | static_cast<std::uint32_t>(tailAt_ + tail_.size()));
            tail_.u16(static_cast<std::uint32_t>(text->size()));
            for (const char c : *text) tail_.u16(static_cast<unsigned char>(c));
            tail_.alignTo(4);
        } else {
            directories_.u32(std::get<std::uint16_t>(id));
        }
        directories_.u32(static_cast<std::uint32_t>(child));
    }

    void language(const Bytes& bytes) {
        constexpr std::uint32_t english = 0x409;
        directories_.fill(12).u16(0).u16(1).u32(english);
        directories_.u32(static_cast<std::uint32_t>(entriesAt_ + entries_.size()));
        entries_.u32(static_cast<std::uint32_t>(SectionAddress + tailAt_ + tail_.size()));
        entries_.u32(static_cast<std::uint32_t>(bytes.size())).u32(0).u32(0);
        tail_.add(bytes).alignTo(4);
    }

    const Types& types_;
    std::size_t entriesAt_ = 0, tailAt_ = 0;
    ByteWriter directories_, entries_, tail_;  // one after another
};

// The headers of a 32-bit library with one section of `size` bytes.
Bytes headers(std::uint32_t size, bool hasResources) {
    const std::uint32_t imageSize = SectionAddress + (size + 0xFFF) / 0x1000 * 0x1000;
    ByteWriter out;
    out.u16(0x5A4D).fill(58).u32(0x40);
    out.u32(0x4550).u16(0x14C).u16(1).u32(0).u32(0).u32(0).u16(224).u16(0x2102);
    out.u16(0x10B).u16(0).u32(0).u32(size).u32(0).u32(0).u32(0).u32(SectionAddress);
    out.u32(0x10000000).u32(0x1000).u32(0x200).u16(4).u16(0).u16(0).u16(0).u16(4).u16(0).u32(0);
    out.u32(imageSize).u32(SectionOffset).u32(0).u16(2).u16(0).u32(0x100000).u32(0x1000).u32(0x100000).u32(0x1000);
    out.u32(0).u32(16);
    out.fill(16).u32(hasResources ? SectionAddress : 0).u32(hasResources ? size : 0).fill(13 * 8);
    out.u32(0x7273722E).u32(0x63).u32(size).u32(SectionAddress).u32(size).u32(SectionOffset);
    out.fill(12).u32(0x40000040);
    return out.alignTo(SectionOffset).bytes();
}

}  // namespace

Bytes programFileBytes(const simulated::ProgramFile& program) {
    Types types;
    for (const auto& type : program.types())
        for (const auto& resource : type.resources) types[type.id][resource.name] = resource.bytes;
    addStrings(types, program.strings());

    ByteWriter section;
    section.add(SectionWriter(types).write()).alignTo(SectionOffset);
    ByteWriter file;
    file.add(headers(static_cast<std::uint32_t>(section.size()), !types.empty())).add(section.bytes());
    return file.bytes();
}
