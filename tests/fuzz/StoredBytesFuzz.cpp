// Any bytes at all as what program files, icon files and bitmap files hold; the first byte says which.
#include "expect.h"
#include "icons/Bitmaps.h"
#include "icons/FileKind.h"
#include "icons/clsFileIcon.h"
#include "platform/ImageLayout.h"
#include "platform/ResourceTree.h"
#include "platform/StringTable.h"
#include "simulated/Machine.h"
#include "util/Error.h"

namespace {

using platform::Bytes, platform::ByteSpan;

// ---- icons

constexpr const char *Given = "C:\\given", *Saved = "C:\\saved.ico";

struct Icons : simulated::Machine {
    // By the kind of file that it is, or as a group of a program file; without images when it is refused.
    void load(clsFileIcon& icon, ByteSpan bytes, bool fromProgram) {
        // The first byte of a group, which nobody reads, is its length here. An image follows, its second half another.
        const ByteSpan group = bytes.first(std::min<std::size_t>(platform::read8(bytes, 0), bytes.size()));
        const ByteSpan image = bytes.subspan(group.size()), half = image.subspan(image.size() / 2);
        try {
            files.addFile(Given, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
            if (!fromProgram) return (void)icons::kindOf(files, Given), icon.LoadIcon(Given);
            modules.add(Given)
                .add(platform::RtGroupIcon, std::uint16_t{1}, Bytes(group.begin(), group.end()))
                .add(platform::RtIcon, std::uint16_t{1}, Bytes(image.begin(), image.end()))
                .add(platform::RtIcon, std::uint16_t{2}, Bytes(half.begin(), half.end()));
            icon.LoadIconFromEXE(Given, std::uint16_t{1});
        } catch (const util::Error&) {
            expect(icon.ImageCount() == 0, "of an icon that is refused nothing is kept");
        }
    }
    std::string save(const clsFileIcon& icon) {
        std::string bytes;
        icon.SaveIcon(Saved);
        expect(files.read(Saved, bytes) == platform::Success, "an icon is saved");
        return bytes;
    }
};

template <bool FromProgram>
void readIcon(ByteSpan bytes) {
    static Icons icons;
    clsFileIcon icon(icons.services), again(icons.services);
    icons.load(icon, bytes, FromProgram);
    if (icon.ImageCount() == 0) return;
    int drawn = 0;
    for (int image = 0; image < icon.ImageCount(); ++image) {
        expect(icon.ImageBytes(image).size() <= bytes.size(), "an image is no longer than its file");
        drawn += platform::iconLayout(icon.ImageBytes(image), true).has_value();
    }
    try {
        expect(platform::iconLayout(icon.ImageBytes(icon.ImageForWidth(32)), true).has_value(), "the best is drawn");
    } catch (const util::Error&) {
        expect(drawn == 0, "there is a best image if one can be drawn");
    }
    const std::string saved = icons.save(icon);
    again.LoadIcon(Saved);
    expect(again.ImageCount() == icon.ImageCount() && icons.save(again) == saved, "an icon is read as it was saved");
    expect(icons.memory.blocks() == 0 && icons.modules.icons() == 0, "nothing is held");
}

void readIconImage(ByteSpan bytes) {
    const auto layout = platform::iconLayout(bytes, true);
    expect(layout || !platform::iconLayout(bytes, false), "a system that draws no PNG draws no more");
    if (!layout) return;
    expect(layout->pixels <= layout->mask && layout->mask <= layout->end && layout->end <= bytes.size(),
           "all is inside");
    const Bytes whole = platform::withMask(bytes, *layout);
    const auto masked = platform::iconLayout(ByteSpan(whole), true);
    expect(masked && masked->width == layout->width && masked->height == layout->height, "it stays the image it was");
    expect(masked->end <= whole.size() && (masked->png || masked->end > masked->mask), "it has a mask");
    expect(platform::withMask(ByteSpan(whole), *masked) == whole, "which it keeps");
}

// ---- bitmaps, strings and directories

void readBitmap(ByteSpan bytes) {
    for (const ui::Picture& picture : {icons::bitmapFromResource(bytes), icons::bitmapFromFile(bytes)}) {
        if (picture.empty()) continue;
        const auto layout = platform::bitmapLayout(picture.image());
        expect(layout && layout->pixels <= layout->end && layout->end == picture.image().size(), "a picture is whole");
        expect(layout->width == picture.width() && layout->height == picture.height(), "and as large as it says");
        expect(icons::bitmapFromResource(picture.image()) == picture, "and is read as it is");
    }
}

void readStrings(ByteSpan block) {
    std::size_t at = 0;
    for (std::uint32_t string = 0; string < 16; ++string) {
        const auto characters = platform::stringInBlock(block, string);
        if (!characters) return;
        at += 2 + characters->size();
        expect(at <= block.size() && characters->data() + characters->size() == block.data() + at,
               "strings follow each other and lie inside");
    }
}

// Walks a directory as the system does, which trusts it.
struct Walk {
    ByteSpan file;
    std::size_t root;
    static constexpr std::uint32_t HighBit = 0x80000000;

    std::uint32_t number(std::size_t at, std::size_t size) const {
        expect(at + size <= file.size(), "the system reads inside the file");
        return size == 2 ? platform::read16(file, at) : platform::read32(file, at);
    }
    void directory(std::size_t at, int level) const {
        const std::size_t count = number(at + 12, 2) + number(at + 14, 2);
        for (std::size_t entry = at + 16; entry < at + 16 + 8 * count; entry += 8) {
            const std::uint32_t name = number(entry, 4), child = number(entry + 4, 4);
            const std::size_t text = root + (name & ~HighBit), below = root + (child & ~HighBit);
            if (name & HighBit) expect(text + 2 + 2 * number(text, 2) <= file.size(), "a name lies inside");
            expect((child & HighBit) != 0 == level < 2, "data comes below the languages");
            level < 2 ? directory(below, level + 1) : (void)number(below, 16);
        }
    }
};

void readResourceTree(ByteSpan file) {
    (void)platform::resourcesCanBeWalked(file, platform::Mapping::Flat);
    if (!platform::resourcesCanBeWalked(file, platform::Mapping::Loaded)) return;
    const std::size_t headers = platform::read32(file, 0x3C) + std::size_t{24};
    const std::size_t directories = headers + (platform::read16(file, headers) == 0x20B ? 112 : 96);
    const std::uint32_t root = platform::read32(file, directories + 16);
    if (platform::read32(file, directories - 4) > 2 && root) Walk{file, root}.directory(root, 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    // A copy of just that size, so that reading past its end is seen.
    const std::vector<std::uint8_t> exact(data + 1, data + size);
    constexpr void (*readers[])(ByteSpan) = {readIcon<false>, readIcon<true>, readIconImage,
                                             readBitmap,      readStrings,    readResourceTree};
    readers[data[0] % std::size(readers)](exact);
    return 0;
}
