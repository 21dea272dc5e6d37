#include "icons/frmIconSelector.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string_view>

#include "icons/FileKind.h"
#include "icons/cResources.h"
#include "icons/clsFileIcon.h"
#include "ui/Desktop.h"
#include "ui/Layout.h"
#include "ui/PendingEvents.h"
#include "util/characters.h"
#include "util/clsFileInfo.h"
#include "util/numbers.h"
#include "util/procedure.h"

namespace {

using namespace ui::layout;
constexpr ui::Size Client{6000, 5000};
constexpr ui::Twips Inner = Client.width - 2 * Margin;
constexpr ui::Bounds ListBounds{Margin, 435, Inner, Client.height - 435 - Margin};

constexpr ui::Twips BarWidth = 3600, BarHeight = 255;
constexpr ui::Twips BarLeft = (ListBounds.width - BarWidth) / 2;
constexpr ui::Twips BarTop = (ListBounds.height - BarHeight) / 2;

constexpr std::uint32_t ProgressInterval = 40;  // milliseconds: a bar that moves, not one that flickers

// These two are never opened.
constexpr std::array<std::string_view, 2> Excluded{"twunk_16.exe", "shdocvw.dll"};
constexpr std::array<std::string_view, 3> Listed{"DLL", "EXE", "OCX"};

constexpr const char* Unusable = "The icons of 16-bit programs and of icon files (.ico) cannot be used by a zone.";

template <std::size_t N>
bool contains(const std::array<std::string_view, N>& names, std::string_view name) {
    return std::any_of(names.begin(), names.end(),
                       [name](std::string_view candidate) { return util::equalFolded(candidate, name); });
}

// Its last three letters tell whether a file is opened, whatever comes before them.
bool isListed(std::string_view path) {
    return path.size() >= 3 && contains(Listed, path.substr(path.size() - 3));
}

std::string countText(std::uint32_t count, const std::string& file) {
    if (count == 0) return "No Icons in: " + file;
    if (count == 1) return "1 icon in: " + file;
    return util::toDecimal(count) + " icons in: " + file;
}

// Keys are never bare numbers.
std::string keyOf(int number) {
    return util::toDecimal(number) + "C";
}

}  // namespace

struct frmIconSelector::LoadedIcon {
    std::string identifier;
    ui::Picture large, small;
};

// Shown instead of the list while icons are being loaded.
class frmIconSelector::ProgressDisplay {
public:
    explicit ProgressDisplay(frmIconSelector& form) : form_(form) { show(true); }
    ~ProgressDisplay() { show(false); }
    ProgressDisplay(const ProgressDisplay&) = delete;
    ProgressDisplay& operator=(const ProgressDisplay&) = delete;

private:
    void show(bool visible) {
        form_.loading_ = visible;
        form_.lvwIcons.setVisible(!visible);
        form_.Picture1.setVisible(visible);
    }
    frmIconSelector& form_;
};

frmIconSelector::frmIconSelector(platform::Platform& platform, std::string file, ui::Image& target, Chosen chosen)
    : Form(platform.desktop, Kind::Dialog, "frmIconSelector", "Select Icon", Client),
      lblIconCount(*this, "lblIconCount", {Margin, Margin, Inner, LabelHeight}, ""),
      lvwIcons(*this, "lvwIcons", ListBounds, ui::ListView::View::Icon, ui::ListView::Clicks::OnActivate),
      lblUnusable(*this, "lblUnusable", ListBounds, Unusable),
      Picture1(*this, "Picture1", ListBounds),
      lblInfo(Picture1, "lblInfo", {BarLeft, BarTop - LabelHeight - 60, BarWidth, LabelHeight}, "Loading Icon"),
      Progress(Picture1, "Progress", {BarLeft, BarTop, BarWidth, BarHeight}),
      picParent(*this, "picParent", {Margin, Margin, 480, 480}),
      ilsIcons32(*this, "ilsIcons32", 32),
      ilsIcons16(*this, "ilsIcons16", 16),
      tmrLoad(*this, "tmrLoad", 1),
      tmrUnload(*this, "tmrUnload", 50),
      platform_(platform),
      file_(std::move(file)),
      target_(target),
      chosen_(chosen) {
    lblUnusable.setVisible(false);
    Picture1.makeSunken().setVisible(false);
    picParent.setVisible(false);
    lvwIcons.setImages(&ilsIcons32, &ilsIcons16);
    lvwIcons.setIconSpacing({50, 50});  // seven in a row: there is no text to make room for

    lvwIcons.onItemClick = [this](int item) { lvwIcons_ItemClick(item); };
    tmrLoad.onTimer = [this] { tmrLoad_Timer(); };
    tmrUnload.onTimer = [this] { tmrUnload_Timer(); };
}

// The file is read once the dialog is shown: before that its progress would be invisible, and the window below would
// still take clicks.
void frmIconSelector::Form_Load() {
    procedure("frmIconSelector.Form_Load", [&] { tmrLoad.setEnabled(true); });
}

void frmIconSelector::Form_Resize() {
    for (ui::Control* list : {static_cast<ui::Control*>(&lvwIcons), static_cast<ui::Control*>(&lblUnusable),
                              static_cast<ui::Control*>(&Picture1)})
        list->setHeight(client().height - list->top() - Margin);
}

void frmIconSelector::tmrLoad_Timer() {
    procedure("frmIconSelector.tmrLoad_Timer", [&] {
        tmrLoad.setEnabled(false);
        ShowFile(file_);
    });
}

void frmIconSelector::ShowFile(const std::string& path) {
    procedure("frmIconSelector.ShowFile", [&] {
        if (loading_) return;
        file_ = path;
        ClearIcons();
        const std::string name = util::lower(clsFileInfo(platform_, path).Name());
        const std::uint32_t count = contains(Excluded, name) ? 0 : platform_.modules.countIcons(path);
        lblIconCount.setCaption(countText(count, name));
        const bool usable = count == 0 || icons::kindOf(platform_.files, path) == icons::FileKind::Other;
        lvwIcons.setVisible(usable);
        lblUnusable.setVisible(!usable);
        if (count > 0 && usable && isListed(path)) LoadIcons(path);
    });
}

void frmIconSelector::ClearIcons() {
    lvwIcons.clear();
    ilsIcons32.clear();
    ilsIcons16.clear();
}

// An icon that cannot be loaded is passed over. The first such failure is reported once the others are there to choose
// from: a file with a hundred damaged icons is one error to the user.
void frmIconSelector::LoadIcons(const std::string& path) {
    procedure("frmIconSelector.LoadIcons", [&] {
        const cResources resources(platform_, path);
        const std::vector<platform::ResourceId> names = resources.Names(platform::RtGroupIcon);
        const int count = static_cast<int>(names.size());
        std::vector<LoadedIcon> loadedIcons;
        std::exception_ptr failure;
        {
            const ProgressDisplay display(*this);
            ui::PendingEvents pending(platform_, ProgressInterval);
            for (int i = 1; i <= count; ++i) {
                if (pending.due()) {
                    lblInfo.setCaption("Loading icon: " + util::toDecimal(i) + " of " + util::toDecimal(count));
                    Progress.setProgress(i, count);
                    pending.handle();
                    if (!loaded()) return;  // the user has closed the dialog
                }
                try {
                    loadedIcons.push_back(LoadIcon(resources.module(), names[static_cast<std::size_t>(i - 1)]));
                } catch (...) {  // too little memory for a large icon may be enough for the next
                    if (!failure) failure = std::current_exception();
                }
            }
            FillList(loadedIcons);
        }
        lvwIcons.setFocus();
        if (failure) std::rethrow_exception(failure);
    });
}

frmIconSelector::LoadedIcon frmIconSelector::LoadIcon(const icons::ModuleFile& module,
                                                      const platform::ResourceId& name) {
    clsFileIcon icon(platform_);
    icon.LoadIconFromEXE(module, file_, name);
    const auto draw = [&](int width) {
        picParent.setPicture(icon.IconPicture(icon.ImageForWidth(platform_.desktop.scaled(width))));
        return picParent.picture();
    };
    return {icons::toText(icon.ResourceID()), draw(ilsIcons32.size()), draw(ilsIcons16.size())};
}

void frmIconSelector::FillList(const std::vector<LoadedIcon>& icons) {
    for (const LoadedIcon& icon : icons) {
        const std::string key = keyOf(lvwIcons.count() + 1);
        ilsIcons32.add(icon.large, key);
        ilsIcons16.add(icon.small, key);
        lvwIcons.add({"", ilsIcons32.find(key), icon.identifier, key});
    }
}

// Closing has to wait until the list is done with the click: the timer closes the dialog.
void frmIconSelector::lvwIcons_ItemClick(int item) {
    procedure("frmIconSelector.lvwIcons_ItemClick", [&] {
        const ui::ListItem& chosen = lvwIcons.item(item);
        target_.setPicture(ilsIcons32.picture(chosen.image));
        chosen_({file_, chosen.tag});
        tmrUnload.setEnabled(true);
    });
}

void frmIconSelector::tmrUnload_Timer() {
    procedure("frmIconSelector.tmrUnload_Timer", [&] {
        tmrUnload.setEnabled(false);
        unload();
    });
}
