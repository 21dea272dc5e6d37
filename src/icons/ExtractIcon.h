// The pictures that references to icons and to pictures lead to.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "icons/IconReference.h"
#include "platform/Platform.h"
#include "ui/Image.h"
#include "util/FunctionRef.h"
#include "util/Places.h"

namespace icons {
class ModuleFile;
}

namespace basMain {

// Sizes are pixels of a screen with 96 to the inch: where there are more, the image is chosen for as many.

// Draws the icon that `reference` names (file, `separator`, number or name) into `box`: the image of `size` pixels.
// What cannot be drawn is no error: the box then shows the program's own icon.
void ExtractIcon(platform::Platform& platform, const std::string& reference, const std::string& separator, int size,
                 ui::Image& box);

// Pictures already found. Held for the time of one list fill, so that zones with the same icon open its file once;
// not longer, or a changed file would not be seen.
class IconCache {
public:
    explicit IconCache(platform::Platform& platform);
    ~IconCache();

    // What ExtractIcon draws; an empty picture when not even the program's own icon is there.
    ui::Picture Icon(const icons::IconReference& reference, int size);

private:
    ui::Picture OwnIcon(int size);
    ui::Picture Known(const std::string& name, util::FunctionRef<ui::Picture()> make);
    ui::Picture iconOf(const icons::IconReference& reference, int size);

    platform::Platform& platform_;
    std::string openFile_;  // that of the icon before: zones often share one
    std::unique_ptr<icons::ModuleFile> open_;
    std::vector<ui::Picture> pictures_;
    util::Places places_;  // by size and reference, the own one by size alone
};
void ExtractIcon(IconCache& cache, const icons::IconReference& reference, int size, ui::Image& box);

// The same for a bitmap resource, in its own size. What cannot be drawn leaves the box empty.
void ExtractBitmap(platform::Platform& platform, const std::string& reference, const std::string& separator,
                   ui::Image& box);

// The picture that `reference` names: the path of an ".ico" or ".bmp" file, or "file,number" for an icon of a program
// file. `size`: the width in pixels that suits best, of an icon. What cannot be loaded gives an empty picture.
ui::Picture LoadPicture(platform::Platform& platform, const std::string& reference, int size = 16);

}  // namespace basMain
