#include "icons/ExtractIcon.h"

#include "icons/Bitmaps.h"
#include "icons/ModuleFile.h"
#include "icons/clsFileIcon.h"
#include "ui/Desktop.h"
#include "util/Error.h"
#include "util/numbers.h"
#include "util/procedure.h"

namespace basMain {

namespace {

// Throws util::Error when none of its images can be drawn.
ui::Picture pictureOf(const clsFileIcon& icon, platform::Platform& platform, int size) {
    return icon.IconPicture(icon.ImageForWidth(platform.desktop.scaled(size)));
}

// Throws util::Error when there is no such icon or it cannot be drawn.
ui::Picture iconAt(platform::Platform& platform, const icons::IconReference& reference, int size) {
    clsFileIcon icon(platform);
    icon.LoadIconFromEXE(reference.file, reference.identifier());
    return pictureOf(icon, platform, size);
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
    return pictureOf(icon, platform, size);
}

}  // namespace

IconCache::IconCache(platform::Platform& platform) : platform_(platform) {}
IconCache::~IconCache() = default;

ui::Picture IconCache::iconOf(const icons::IconReference& reference, int size) {
    if (!open_ || openFile_ != reference.file) {
        open_ = std::make_unique<icons::ModuleFile>(platform_.modules, reference.file);
        openFile_ = reference.file;
    }
    clsFileIcon icon(platform_);
    icon.LoadIconFromEXE(*open_, reference.file, reference.identifier());
    return pictureOf(icon, platform_, size);
}

ui::Picture IconCache::Icon(const icons::IconReference& reference, int size) {
    return Known(util::toDecimal(size) + "#" + reference.text(), [&] {
        ui::Picture picture = pictureOrNone([&] { return iconOf(reference, size); });
        return picture.empty() ? OwnIcon(size) : picture;
    });
}

ui::Picture IconCache::OwnIcon(int size) {
    return Known(util::toDecimal(size), [&] {
        return pictureOrNone([&] { return iconAt(platform_, icons::defaultReference(platform_), size); });
    });
}

ui::Picture IconCache::Known(const std::string& name, util::FunctionRef<ui::Picture()> make) {
    const auto place = places_.find(name);
    if (place != places_.end()) return pictures_[place->second];
    ui::Picture made = make();  // which may add another
    places_[name] = pictures_.size();
    pictures_.push_back(made);
    return made;
}

void ExtractIcon(IconCache& cache, const icons::IconReference& reference, int size, ui::Image& box) {
    procedure("basMain.ExtractIcon", [&] { box.setPicture(cache.Icon(reference, size)); });
}

void ExtractIcon(platform::Platform& platform, const std::string& reference, const std::string& separator, int size,
                 ui::Image& box) {
    IconCache cache(platform);
    const auto parsed = icons::parseReference(reference, separator);
    ExtractIcon(cache, parsed ? *parsed : icons::defaultReference(platform), size, box);
}

void ExtractBitmap(platform::Platform& platform, const std::string& reference, const std::string& separator,
                   ui::Image& box) {
    procedure("basMain.ExtractBitmap", [&] {
        box.setPicture(pictureOrNone([&] {
            const auto parsed = icons::parseReference(reference, separator);
            if (!parsed) return ui::Picture();
            const icons::ModuleFile module(platform.modules, parsed->file);
            if (!module.opened()) return ui::Picture();
            return icons::bitmapFromResource(module.read(parsed->identifier(), platform::RtBitmap).bytes);
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
