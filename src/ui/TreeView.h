// A tree of captions with pictures, whose leaves can be option buttons: of the options under one parent at most one
// is selected.
#pragma once

#include <string>
#include <vector>

#include "ui/Control.h"

namespace ui {

class ImageList;

struct TreeNode {
    std::string text;
    int parent = 0;  // number of the parent node, 0 for a root
    int image = 0;   // number in the image list, 0 for none
    std::string tag;
    bool option = false;    // drawn as an option button
    bool selected = false;  // the marked option of its parent
};

class TreeView : public Control {
public:
    class Peer : public Control::Peer {
    public:
        virtual void applyImages() = 0;
        virtual void applyNode(int number) = 0;  // node `number` is new or changed
        virtual void applyCleared() = 0;
        virtual void applyCurrent() = 0;
        virtual void applyVisibleNode() = 0;
    };
    TreeView(Parent parent, const char* name, Bounds bounds, int index = -1);

    void setImages(ImageList* images);
    ImageList* images() const { return images_; }

    // Nodes are numbered from 1 in the order added; a parent is added before its children. Branches are open until the
    // user closes them.
    int count() const { return static_cast<int>(nodes_.size()); }
    const TreeNode& node(int number) const { return nodes_.at(static_cast<std::size_t>(number - 1)); }
    int add(TreeNode node);
    void clear();
    // Marks an option and unmarks the other options of its parent.
    void selectOption(int number);
    void unselectOption(int number);

    int current() const { return current_; }  // the node with the cursor; 0 for none
    void setCurrent(int number);
    void ensureVisible(int number);
    int visibleNode() const { return visibleNode_; }

    // Whether the cursor is on an option. Enter chooses it then, and otherwise presses the form's default button.
    bool onOption() const { return current_ > 0 && node(current_).option; }

    // The user's entries: the cursor moves; a mouse click on an option's row; Space or Enter on the current node.
    void choose(int number);
    void click(int number);
    void activate();
    // Raised with the option's number after the option has been marked; also when it was marked already.
    Handler<void(int)> onOptionClick;

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    ImageList* images_ = nullptr;
    std::vector<TreeNode> nodes_;
    int current_ = 0;
    int visibleNode_ = 0;
};

}  // namespace ui
