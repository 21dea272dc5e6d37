#include "support/ProgramFileBytes.h"

#include "support/IconBytes.h"

using icons::ByteWriter;
using platform::Bytes;
using platform::ResourceId;

namespace {

constexpr std::uint32_t SectionAddress = 0x1000, SectionOffset = 0x200, HighBit = 0x80000000;

using Type = simulated::ProgramFile::Type;

const ResourceId& idOf(const Type& type) {
    return type.id;
}
const ResourceId& idOf(const simulated::ProgramFile::Resource& resource) {
    return resource.name;
}

class SectionWriter {
public:
    explicit SectionWriter(const std::vector<Type>& types) : types_(types) {
        std::size_t names = 0;
        // The root, the types' directories and one directory of languages for each name; then the data entries.
        entriesAt_ = directorySize(types.size());
        for (const Type& type : types) {
            entriesAt_ += directorySize(type.resources.size());
            names += type.resources.size();
        }
        entriesAt_ += names * directorySize(1);
        tailAt_ = entriesAt_ + 16 * names;
    }

    Bytes write() {
        std::size_t next = directorySize(types_.size());
        header(types_);
        for (const Type& type : types_) {
            entry(type.id, HighBit | next);
            next += directorySize(type.resources.size());
        }
        for (const Type& type : types_) {
            header(type.resources);
            for (const auto& resource : type.resources) {
                entry(resource.name, HighBit | next);
                next += directorySize(1);
            }
        }
        for (const Type& type : types_)
            for (const auto& resource : type.resources) language(resource.bytes);
        return directories_.add(entries_.bytes()).add(tail_.bytes()).bytes();
    }

private:
    static std::size_t directorySize(std::size_t count) { return 16 + 8 * count; }

    template <class List>
    void header(const List& list) {
        std::uint32_t texts = 0;
        for (const auto& item : list) texts += idOf(item).index() == 1;
        directories_.fill(12).u16(texts).u16(static_cast<std::uint32_t>(list.size()) - texts);
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

    const std::vector<Type>& types_;
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
    ByteWriter section;
    section.add(SectionWriter(program.types()).write()).alignTo(SectionOffset);
    ByteWriter file;
    file.add(headers(static_cast<std::uint32_t>(section.size()), !program.types().empty())).add(section.bytes());
    return file.bytes();
}
