#include "platform/ResourceTree.h"

#include <optional>

namespace platform {

namespace {

constexpr std::uint32_t HighBit = 0x80000000;
constexpr int DataLevel = 2;  // type, name, language

class Tree {
public:
    Tree(ByteSpan file, Mapping mapping) : file_(file), mapping_(mapping) {}

    bool sound() {
        const std::size_t pe = number(0x3C, 4);
        const std::size_t optional = pe + 24;
        if (number(0, 2) != 0x5A4D || number(pe, 4) != 0x4550 || outside_) return false;
        const bool wide = number(optional, 2) == 0x20B;
        const std::size_t directories = optional + (wide ? 112 : 96);
        if (number(directories - 4, 4) <= 2) return !outside_;
        const std::uint32_t address = number(directories + std::size_t{2} * 8, 4);
        if (address == 0 || outside_) return !outside_;
        sections_ = optional + number(pe + 20, 2);
        sectionCount_ = number(pe + 6, 2);
        // What lies among the headers is where its address says, also in a file that has not been laid out.
        const bool inPlace = mapping_ == Mapping::Loaded || address < number(optional + 60, 4);
        const std::optional<std::size_t> start = inPlace ? std::size_t{address} : offsetOf(address);
        if (!start) return !outside_;  // the system finds no directory there, and says so
        root_ = *start;
        return directory(0, 0);
    }

private:
    std::uint32_t number(std::size_t at, std::size_t size) {
        if (at > file_.size() || file_.size() - at < size) {
            outside_ = true;
            return 0;
        }
        return size == 2 ? read16(file_, at) : read32(file_, at);
    }

    // Where in the file an address of the loaded program is; nothing when no section holds it.
    std::optional<std::size_t> offsetOf(std::uint32_t address) {
        for (std::uint32_t i = 0; i < sectionCount_ && !outside_; ++i) {
            const std::size_t section = sections_ + 40 * std::size_t{i};
            const std::uint32_t begin = number(section + 12, 4), size = number(section + 16, 4);
            if (address >= begin && address - begin < size)
                return std::size_t{number(section + 20, 4)} + (address - begin);
        }
        return {};
    }

    bool directory(std::size_t offset, int level) {
        const std::size_t at = root_ + offset;
        const std::uint32_t count = number(at + 12, 2) + number(at + 14, 2);
        for (std::uint32_t i = 0; i < count && !outside_; ++i) {
            // Entries that share directories could make a small file a very long walk.
            if (++visited_ > file_.size() / 8) return false;
            const std::uint32_t name = number(at + 16 + 8 * std::size_t{i}, 4);
            const std::uint32_t child = number(at + 20 + 8 * std::size_t{i}, 4);
            if (outside_ || (name & HighBit && !nameInside(name & ~HighBit))) return false;
            if (((child & HighBit) != 0) != (level < DataLevel)) return false;
            if (level < DataLevel && !directory(child & ~HighBit, level + 1)) return false;
            if (level == DataLevel) (void)number(root_ + child + 12, 4);
        }
        return !outside_;
    }

    bool nameInside(std::uint32_t offset) {
        const std::uint32_t length = number(root_ + offset, 2);
        return !outside_ && file_.size() - (root_ + offset) >= 2 + 2 * std::size_t{length};
    }

    ByteSpan file_;
    Mapping mapping_;
    bool outside_ = false;
    std::size_t root_ = 0, sections_ = 0, visited_ = 0;
    std::uint32_t sectionCount_ = 0;
};

}  // namespace

bool resourcesCanBeWalked(ByteSpan file, Mapping mapping) {
    return Tree(file, mapping).sound();
}

}  // namespace platform
