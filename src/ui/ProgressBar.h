#pragma once

#include <string>

#include "ui/Control.h"

namespace ui {

class ProgressBar : public Control {
public:
    class Peer : public Control::Peer {
    public:
        virtual void applyProgress() = 0;
    };
    ProgressBar(Parent parent, const char* name, Bounds bounds, int index = -1);
    int maximum() const { return maximum_; }
    int value() const { return value_; }
    void setProgress(int value, int maximum);

protected:
    std::unique_ptr<ui::Peer> makePeer(PeerFactory& factory) override;
    void replay() override;

private:
    int value_ = 0, maximum_ = 100;
};

}  // namespace ui
