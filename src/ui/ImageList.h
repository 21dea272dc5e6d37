// Pictures of one size, numbered from 1, each under an optional key.
#pragma once

#include <string>
#include <vector>

#include "ui/Component.h"
#include "ui/Picture.h"

namespace ui {

class ImageList : public Component {
public:
    class Peer : public ui::Peer {
    public:
        virtual void applyAdded() = 0;  // the last picture is new
        virtual void applyCleared() = 0;
    };
    // `size`: width and height of every picture in pixels.
    ImageList(Form& form, const char* name, int size);

    int size() const { return size_; }
    int count() const { return static_cast<int>(pictures_.size()); }
    const Picture& picture(int number) const { return pictures_.at(static_cast<std::size_t>(number - 1)); }
    int find(const std::string& key) const;  // 0 when there is none
    // Returns the number of the new picture. An empty picture takes a number too, and is drawn blank.
    int add(Picture picture, std::string key = {});
    void clear();

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    int size_;
    std::vector<Picture> pictures_;
    std::vector<std::string> keys_;
};

}  // namespace ui
