#include "icons/clsFileIcon.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <tuple>

#include "icons/ModuleFile.h"
#include "icons/cMemory.h"
#include "platform/ImageLayout.h"
#include "util/Error.h"

namespace {

using platform::ByteSpan;
using Entry = clsFileIcon::Entry;

// An icon's directory: a header of three 16-bit numbers (reserved, type, image count) and an entry for each image.
constexpr std::size_t HeaderSize = 6;
constexpr std::uint16_t TypeIcon = 1;
constexpr std::size_t GroupEntrySize = 14;  // in a program file: ends with the 16-bit number of the image's resource
constexpr std::size_t FileEntrySize = 16;   // in an icon file: ends with the 32-bit offset of the image
constexpr std::size_t EntryTail = 12;       // where they begin to differ

int imageCount(ByteSpan directory) {
    return static_cast<std::int16_t>(platform::read16(directory, 4));
}

Entry readEntry(ByteSpan bytes) {
    return {platform::read8(bytes, 0), platform::read8(bytes, 1),  platform::read8(bytes, 2),
            platform::read8(bytes, 3), platform::read16(bytes, 4), platform::read16(bytes, 6),
            platform::read32(bytes, 8)};
}

void writeEntry(platform::BufferWriter& writer, const Entry& entry, std::uint32_t offset) {
    writer.write8(entry.width);
    writer.write8(entry.height);
    writer.write8(entry.colourCount);
    writer.write8(entry.reserved);
    writer.write16(entry.planes);
    writer.write16(entry.bitCount);
    writer.write32(entry.bytesInImage);
    writer.write32(offset);
}

int pixels(std::uint8_t stored) {
    return stored == 0 ? 256 : stored;
}

double colours(const Entry& entry) {
    return std::ldexp(1.0, entry.bitCount);
}

// Old icon files leave the bit count of an entry at 0; the image itself has it too.
int depth(const Entry& entry, const platform::Bytes& image) {
    if (entry.bitCount) return entry.bitCount;
    const auto layout = platform::iconLayout({image.data(), image.size()}, true);
    return layout ? layout->bits : 0;
}

struct Message {
    clsFileIcon::ErrorNumber number;
    const char* text;
};
constexpr Message Messages[] = {
    {clsFileIcon::NumberNoLibrary, "Can't load library."},
    {clsFileIcon::NumberNotFound, "Can't find resource."},
    {clsFileIcon::NumberNotLoaded, "Can't load resource."},
    {clsFileIcon::NumberNotLocked, "Can't lock resource."},
    {clsFileIcon::NumberNoImageBits, "Failed to read bitmap bits from resource."},
    {clsFileIcon::NumberReserved, "File is not icon type (reserved member is 0)"},  // said when it is not 0
    {clsFileIcon::NumberNotIcon, "File is not icon type (idType <> IMAGE_ICON)"},
    {clsFileIcon::NumberNoImages, "Icon contains no images."},
    {clsFileIcon::NumberBadDirectory, "Icon Directory Array is Corrupt."},
    {clsFileIcon::NumberBadImages, "Icon Images Array is Corrupt."},
    {clsFileIcon::NumberNoFileName, "No filename specified."},
    {clsFileIcon::NumberNotWritable, "Couldn't open file for writing."},
    {clsFileIcon::NumberWriteFailed, "General failure writing icon."},
    {clsFileIcon::NumberDuplicate, "Icon already exists."},
    {clsFileIcon::NumberNotReadable, "Couldn't open file for reading."},
    {clsFileIcon::NumberFull, "Icon has too many images."},
    {clsFileIcon::NumberNoSuchImage, "Icon has no such image."},
    {clsFileIcon::NumberDamaged, "Icon image is damaged."},
};

}  // namespace

void clsFileIcon::raiseError(ErrorNumber number) const {
    const auto message = std::find_if(std::begin(Messages), std::end(Messages),
                                      [number](const Message& candidate) { return candidate.number == number; });
    throw util::Error(number, platform_.system.programName() + ".clsFileIcon", message->text);
}

const clsFileIcon::Image& clsFileIcon::at(int image) const {
    if (image < 0 || image >= ImageCount()) raiseError(NumberNoSuchImage);
    return images_[static_cast<std::size_t>(image)];
}

void clsFileIcon::forget(const std::string& fileName, const platform::ResourceId& identifier) {
    fileName_ = fileName;
    resourceId_ = identifier;
    images_.clear();
}

// Loading and saving -----------------------------------------------------------------------------------------------

void clsFileIcon::LoadIconFromEXE(const std::string& fileName, const platform::ResourceId& identifier) {
    LoadIconFromEXE(icons::ModuleFile(platform_.modules, fileName), fileName, identifier);
}

void clsFileIcon::LoadIconFromEXE(const icons::ModuleFile& module, const std::string& fileName,
                                  const platform::ResourceId& identifier) {
    forget(fileName, identifier);
    images_ = readGroup(module, identifier);
}

std::vector<clsFileIcon::Image> clsFileIcon::readGroup(const icons::ModuleFile& module,
                                                       const platform::ResourceId& identifier) const {
    using Reached = icons::Resource::Reached;
    if (!module.opened()) raiseError(NumberNoLibrary);

    const icons::Resource group = module.read(identifier, platform::RtGroupIcon);
    if (group.reached == Reached::Nothing) raiseError(NumberNotFound);
    if (group.reached == Reached::Found) raiseError(NumberNotLoaded);
    if (group.reached == Reached::Loaded) raiseError(NumberNotLocked);

    const int count = imageCount(group.bytes);
    if (count <= 0) raiseError(NumberNoImages);
    const std::size_t size = HeaderSize + GroupEntrySize * static_cast<std::size_t>(count);
    if (group.bytes.size() < size) raiseError(NumberBadDirectory);

    // Entries that name the same resource share its bytes: a small group must not turn one image into thousands.
    std::vector<std::shared_ptr<const platform::Bytes>> read;  // by number
    std::vector<Image> images;
    for (std::size_t at = HeaderSize; at < size; at += GroupEntrySize) {
        const Entry entry = readEntry(group.bytes.subspan(at));
        const std::uint16_t number = platform::read16(group.bytes, at + EntryTail);
        if (number >= read.size()) read.resize(number + std::size_t{1});
        auto& bytes = read[number];
        if (!bytes) {
            const icons::Resource image = module.read(number, platform::RtIcon);
            if (image.reached != Reached::Locked || image.bytes.size() < entry.bytesInImage)
                raiseError(NumberNoImageBits);
            bytes = std::make_shared<const platform::Bytes>(image.bytes.data(), entry.bytesInImage);
        }
        if (bytes->size() != entry.bytesInImage) raiseError(NumberNoImageBits);
        images.push_back({entry, bytes});
    }
    return images;
}

void clsFileIcon::LoadIcon(const std::string& fileName) {
    forget(fileName, std::string());
    try {
        images_ = readFile(fileName);
    } catch (const util::Error& error) {
        throw util::Error(error.number(), error.source(), std::string("Failed to load icon: ") + error.what());
    }
}

// Reads header, directory and images each only if the part before is valid: of a large file that is no icon six bytes
// are read.
std::vector<clsFileIcon::Image> clsFileIcon::readFile(const std::string& fileName) const {
    std::string file;
    const auto readFirst = [&](std::size_t size) {
        if (platform_.files.read(fileName, file, size) != platform::Success) raiseError(NumberNotReadable);
        return platform::asBytes(file);
    };
    const ByteSpan header = readFirst(HeaderSize);
    if (platform::read16(header, 0) != 0) raiseError(NumberReserved);
    if (platform::read16(header, 2) != TypeIcon) raiseError(NumberNotIcon);
    const int count = imageCount(header);
    if (count <= 0) raiseError(NumberNoImages);

    std::size_t end = HeaderSize + FileEntrySize * static_cast<std::size_t>(count);
    const ByteSpan directory = readFirst(end);
    if (directory.size() < end) raiseError(NumberBadDirectory);
    std::vector<Entry> entries;
    for (std::size_t at = HeaderSize; at < end; at += FileEntrySize)
        entries.push_back(readEntry(directory.subspan(at)));

    // Images stand one after another: the stored offsets are not needed, nor trusted.
    std::size_t at = end;
    for (const Entry& entry : entries) {
        if (entry.bytesInImage > std::numeric_limits<std::uint32_t>::max() - end) raiseError(NumberBadImages);
        end += entry.bytesInImage;
    }
    const ByteSpan whole = readFirst(end);
    if (whole.size() < end) raiseError(NumberBadImages);
    std::vector<Image> images;
    for (const Entry& entry : entries) {
        images.push_back({entry, std::make_shared<const platform::Bytes>(whole.data() + at, entry.bytesInImage)});
        at += entry.bytesInImage;
    }
    return images;
}

void clsFileIcon::SaveIcon(const std::string& fileName) const {
    if (fileName.empty()) raiseError(NumberNoFileName);
    if (images_.empty()) raiseError(NumberNoImages);

    std::uint64_t size = HeaderSize + FileEntrySize * images_.size();
    auto offset = static_cast<std::uint32_t>(size);
    for (const Image& image : images_) size += image.bytes->size();
    if (size > std::numeric_limits<std::uint32_t>::max()) raiseError(NumberWriteFailed);

    const cMemory memory(platform_.memory, static_cast<std::size_t>(size));
    platform::BufferWriter writer(memory.Bytes());
    writer.write16(0);
    writer.write16(TypeIcon);
    writer.write16(static_cast<std::uint16_t>(images_.size()));
    for (const Image& image : images_) {
        writeEntry(writer, image.entry, offset);
        offset += image.entry.bytesInImage;
    }
    for (const Image& image : images_) writer.write({image.bytes->data(), image.bytes->size()});

    std::uint32_t written = 0;
    if (platform_.files.create(fileName, {}, written) != platform::Success) raiseError(NumberNotWritable);
    const std::string_view bytes(reinterpret_cast<const char*>(memory.Bytes().data()), memory.Bytes().size());
    if (platform_.files.append(fileName, bytes, written) != platform::Success || written < bytes.size())
        raiseError(NumberWriteFailed);
}

// Images -----------------------------------------------------------------------------------------------------------

void clsFileIcon::AddImage(const Entry& entry, ByteSpan image) {
    const auto same = [&](const Image& held) {
        return held.entry.width == entry.width && held.entry.height == entry.height &&
               held.entry.bitCount == entry.bitCount;
    };
    if (std::any_of(images_.begin(), images_.end(), same)) raiseError(NumberDuplicate);
    if (ImageCount() == MostImages) raiseError(NumberFull);
    images_.push_back({entry, std::make_shared<const platform::Bytes>(image.data(), image.size())});
    images_.back().entry.bytesInImage = static_cast<std::uint32_t>(image.size());
}

void clsFileIcon::RemoveImage(int image) {
    at(image);
    images_.erase(images_.begin() + image);
}

void clsFileIcon::CloneTo(clsFileIcon& other) const {
    other.fileName_ = fileName_;
    other.resourceId_ = resourceId_;
    other.images_ = images_;
}

int clsFileIcon::ImageWidth(int image) const {
    return pixels(at(image).entry.width);
}

int clsFileIcon::ImageHeight(int image) const {
    return pixels(at(image).entry.height);
}

double clsFileIcon::ImageColourCount(int image) const {
    return colours(at(image).entry);
}

std::uint32_t clsFileIcon::ImageSize(int image) const {
    return at(image).entry.bytesInImage;
}

ByteSpan clsFileIcon::ImageBytes(int image) const {
    const platform::Bytes& bytes = *at(image).bytes;
    return {bytes.data(), bytes.size()};
}

int clsFileIcon::ImageForWidth(int width) const {
    if (images_.empty()) raiseError(NumberNoImages);
    // Less is better: too small is worse than too large, then the distance counts, then depth. An exact width is
    // the nearest of those not too small.
    std::vector<std::tuple<bool, int, int, int>> ranks;
    for (int image = 0; image < static_cast<int>(images_.size()); ++image) {
        const Image& held = images_[static_cast<std::size_t>(image)];
        const int has = pixels(held.entry.width);
        ranks.emplace_back(has < width, std::abs(has - width), -depth(held.entry, *held.bytes), image);
    }
    // A heap with the best on top: nearly always that one can be drawn, and the others need no order.
    std::make_heap(ranks.begin(), ranks.end(), std::greater());
    for (; !ranks.empty(); ranks.pop_back()) {
        const int best = std::get<3>(ranks.front());
        if (makeIcon(best).handle()) return best;
        std::pop_heap(ranks.begin(), ranks.end(), std::greater());
    }
    raiseError(NumberDamaged);
}

// Showing ----------------------------------------------------------------------------------------------------------

ui::Picture clsFileIcon::IconPicture(int image) const {
    return {ui::Picture::Kind::Icon, ImageBytes(image), ImageWidth(image), ImageHeight(image)};
}

SystemIcon clsFileIcon::makeIcon(int image) const {
    return {platform_.modules,
            platform_.modules.CreateIconFromResource(ImageBytes(image), ImageWidth(image), ImageHeight(image))};
}

SystemIcon clsFileIcon::IconHandle(int image) const {
    SystemIcon icon = makeIcon(image);
    if (!icon.handle()) raiseError(NumberDamaged);
    return icon;
}

void clsFileIcon::DrawIconImage(int image, ui::Image& box) const {
    IconHandle(image);  // the box draws later, and would then stay blank
    box.setPicture(IconPicture(image));
}
