#include "icons/ExtractIcon.h"

#include "icons/Bitmaps.h"
#include "icons/ModuleFile.h"
#include "icons/clsFileIcon.h"
#include "util/Error.h"
#include "util/basSystem.h"
#include "util/clsStrings.h"
#include "util/procedure.h"

namespace basMain {

namespace {

struct Location {
    std::string file;
    std::string identifier;
};

// With a tokenizer of its own: callers may be using the program's. Throws as the tokenizer does.
Location split(const std::string& reference, const std::string& separator) {
    clsStrings strings;
    strings.Initialise(reference, separator);
    return {strings.ElementAsString(1), strings.ElementAsString(2)};
}

// Taken apart already: the program may stand in a folder with a "#" in its name.
Location ownIcon(platform::Platform& platform) {
    return {basSystem::ProgramFile(platform), "1"};
}

// Throws util::Error when there is no such icon or it cannot be drawn.
ui::Picture iconAt(platform::Platform& platform, const Location& location, int size) {
    clsFileIcon icon(platform);
    icon.LoadIconFromEXE(location.file, icons::toIdentifier(location.identifier));
    return icon.IconPicture(icon.ImageForWidth(size));
}

// The result of `load`, or an empty picture when that fails.
template <class Load>
ui::Picture pictureOrNone(Load load) {
    try {
        return load();
    } catch (const util::Error&) {
        return {};
    }
}

ui::Picture pictureFile(platform::Platform& platform, const std::string& path, int size) {
    std::string file;
    if (platform.files.read(path, file, 2) != platform::Success) return {};
    if (icons::looksLikeBitmapFile(platform::asBytes(file))) {
        if (platform.files.read(path, file) != platform::Success) return {};
        return icons::bitmapFromFile(platform::asBytes(file));
    }
    clsFileIcon icon(platform);
    icon.LoadIcon(path);
    return icon.IconPicture(icon.ImageForWidth(size));
}

}  // namespace

std::string DefaultIconReference(platform::Platform& platform) {
    const Location own = ownIcon(platform);
    return own.file + "#" + own.identifier;
}

IconCache::IconCache(platform::Platform& platform) : platform_(platform) {}
IconCache::~IconCache() = default;

ui::Picture IconCache::iconOf(const std::string& reference, const std::string& separator, int size) {
    const Location location = split(reference, separator);
    if (!open_ || openFile_ != location.file) {
        open_ = std::make_unique<icons::ModuleFile>(platform_.modules, location.file);
        openFile_ = location.file;
    }
    clsFileIcon icon(platform_);
    icon.LoadIconFromEXE(*open_, location.file, icons::toIdentifier(location.identifier));
    return icon.IconPicture(icon.ImageForWidth(size));
}

const ui::Picture& IconCache::Icon(const std::string& reference, const std::string& separator, int size) {
    const auto [place, isNew] = pictures_.try_emplace(std::to_string(size) + separator + reference);
    ui::Picture& picture = place->second;
    if (isNew) {
        picture = pictureOrNone([&] { return iconOf(reference, separator, size); });
        if (picture.empty()) picture = OwnIcon(size);
    }
    return picture;
}

const ui::Picture& IconCache::OwnIcon(int size) {
    const auto [place, isNew] = ownIcons_.try_emplace(size);
    ui::Picture& picture = place->second;
    if (isNew) picture = pictureOrNone([&] { return iconAt(platform_, ownIcon(platform_), size); });
    return picture;
}

void ExtractIcon(IconCache& cache, const std::string& reference, const std::string& separator, int size,
                 ui::Image& box) {
    procedure("basMain.ExtractIcon", [&] { box.setPicture(cache.Icon(reference, separator, size)); });
}

void ExtractIcon(platform::Platform& platform, const std::string& reference, const std::string& separator, int size,
                 ui::Image& box) {
    IconCache cache(platform);
    ExtractIcon(cache, reference, separator, size, box);
}

void ExtractBitmap(platform::Platform& platform, const std::string& reference, const std::string& separator,
                   ui::Image& box) {
    procedure("basMain.ExtractBitmap", [&] {
        box.setPicture(pictureOrNone([&] {
            const Location location = split(reference, separator);
            const icons::ModuleFile module(platform.modules, location.file);
            if (!module.opened()) return ui::Picture();
            const auto name = icons::toIdentifier(location.identifier);
            return icons::bitmapFromResource(module.read(name, platform::RtBitmap).bytes);
        }));
    });
}

ui::Picture LoadPicture(platform::Platform& platform, const std::string& reference, int size) {
    return procedure("basMain.LoadPicture", [&] {
        return pictureOrNone([&] {
            const std::size_t comma = reference.rfind(',');
            if (comma != std::string::npos) {
                const std::string number = reference.substr(comma + 1);
                if (std::holds_alternative<std::uint16_t>(icons::toIdentifier(number)))
                    return iconAt(platform, {reference.substr(0, comma), number}, size);
            }
            return pictureFile(platform, reference, size);
        });
    });
}

}  // namespace basMain
