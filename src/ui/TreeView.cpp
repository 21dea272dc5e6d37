#include "ui/TreeView.h"

#include <stdexcept>

#include "ui/PeerFactory.h"

namespace ui {

TreeView::TreeView(Parent parent, const char* name, Bounds bounds, int index) : Control(parent, name, bounds, index) {
    setTabStop(true);
}

void TreeView::setImages(ImageList* images) {
    images_ = images;
    updatePeer(&Peer::applyImages);
}

int TreeView::add(TreeNode node) {
    if (node.parent < 0 || node.parent > count()) throw std::out_of_range("the tree has no such parent node");
    const bool selected = node.selected;
    node.selected = false;
    nodes_.push_back(std::move(node));
    updatePeer(&Peer::applyNode, count());
    if (selected) selectOption(count());
    return count();
}

void TreeView::clear() {
    nodes_.clear();
    current_ = visibleNode_ = 0;
    updatePeer(&Peer::applyCleared);
}

void TreeView::selectOption(int number) {
    const TreeNode& chosen = node(number);
    if (!chosen.option) return;
    for (int i = chosen.parent + 1; i <= count(); ++i) {
        TreeNode& other = nodes_[static_cast<std::size_t>(i - 1)];
        if (other.parent != chosen.parent || !other.option) continue;
        if (store(other.selected, i == number)) updatePeer(&Peer::applyNode, i);
    }
}

void TreeView::unselectOption(int number) {
    if (store(nodes_.at(static_cast<std::size_t>(number - 1)).selected, false)) updatePeer(&Peer::applyNode, number);
}

void TreeView::setCurrent(int number) {
    if (number < 0 || number > count()) throw std::out_of_range("the tree has no such node");
    if (store(current_, number)) updatePeer(&Peer::applyCurrent);
}

void TreeView::ensureVisible(int number) {
    if (number < 1 || number > count()) throw std::out_of_range("the tree has no such node");
    visibleNode_ = number;
    updatePeer(&Peer::applyVisibleNode);
}

void TreeView::choose(int number) {
    if (usable() && number >= 1 && number <= count()) setCurrent(number);
}

void TreeView::click(int number) {
    if (!usable() || number < 1 || number > count()) return;
    setCurrent(number);
    if (!node(number).option) return;
    selectOption(number);
    raise(onOptionClick, number);
}

void TreeView::activate() {
    if (current_ > 0) click(current_);
}

std::unique_ptr<ui::Peer> TreeView::makePeer(PeerFactory& factory) {
    return factory.make(*this);
}

void TreeView::replay() {
    Control::replay();
    auto* p = peerAs<Peer>();
    p->applyImages();
    for (int number = 1; number <= count(); ++number) p->applyNode(number);
    if (current_) p->applyCurrent();
    if (visibleNode_) p->applyVisibleNode();
}

}  // namespace ui
