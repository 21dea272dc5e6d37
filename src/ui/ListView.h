// A list of items with pictures, in columns or as icons.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ui/Control.h"

namespace ui {

class CommandButton;
class ImageList;

struct ListItem {
    std::string text;
    int image = 0;  // number in the image lists, 0 for none
    std::string tag;
    std::string key;
};

class ListView : public Control {
public:
    enum class View { Icon, Report };
    // What counts as a click on an item. OnSelect, for clicks that only show something: the mouse and the arrow keys.
    // OnActivate, for clicks that act at once: the mouse, Enter and Space.
    enum class Clicks { OnSelect, OnActivate };

    class Peer : public Control::Peer {
    public:
        virtual void applyImages() = 0;
        virtual void applyItem(int index) = 0;  // item `index` (from 1) is new or changed
        virtual void applyCleared() = 0;
        virtual void applySelected() = 0;
        virtual void applySpacing() = 0;
        virtual void applyColumn() = 0;
    };
    ListView(Parent parent, const char* name, Bounds bounds, View view, Clicks clicks, int index = -1);

    View view() const { return view_; }
    Clicks clicks() const { return clicks_; }

    // The large (32 pixels) and the small pictures; null for none. The image lists must outlive the list view.
    void setImages(ImageList* large, ImageList* small = nullptr);
    ImageList* largeImages() const { return large_; }
    ImageList* smallImages() const { return small_; }

    // The one column of a report.
    void setColumn(std::string heading, Twips width);
    const std::string& columnHeading() const { return columnHeading_; }
    Twips columnWidth() const { return columnWidth_; }

    // Items are numbered from 1.
    int count() const { return static_cast<int>(items_.size()); }
    const ListItem& item(int number) const { return items_.at(static_cast<std::size_t>(number - 1)); }
    int add(ListItem item);
    void setTag(int number, std::string tag);
    void clear();

    int selected() const { return selected_; }  // 0 is none
    void setSelected(int number);               // std::out_of_range for an item that is not there

    // LVM_SETICONSPACING: pixels at 96 DPI, scaled by the peer. Empty until set.
    struct Spacing {
        int horizontal, vertical;
        friend bool operator==(const Spacing&, const Spacing&) = default;
    };
    const std::optional<Spacing>& iconSpacing() const { return spacing_; }
    void setIconSpacing(Spacing spacing);

    // The user's entries: a click of the mouse; a move of the selection by keyboard; Enter or Space.
    void click(int number);
    void choose(int number);
    void activate();
    Handler<void(int)> onItemClick;
    // A double click on an item, and Enter, where somebody wants to know.
    void open();
    Event onOpen;

    // The context menu of an item, by mouse or keyboard, clicks these buttons.
    void addCommand(CommandButton& button) { commands_.push_back(&button); }
    const std::vector<CommandButton*>& commands() const { return commands_; }

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    View view_;
    Clicks clicks_;
    ImageList* large_ = nullptr;
    ImageList* small_ = nullptr;
    std::string columnHeading_;
    Twips columnWidth_ = 0;
    std::vector<ListItem> items_;
    int selected_ = 0;
    std::optional<Spacing> spacing_;
    std::vector<CommandButton*> commands_;
};

}  // namespace ui
