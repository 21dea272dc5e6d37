// A picture is the stored image itself; the peer that shows it converts it to pixels.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace ui {

class Picture {
public:
    enum class Kind {
        Icon,    // one image of an icon: header, colours, XOR and AND masks (resource type 3), or a PNG
        Bitmap,  // a device-independent bitmap without file header (resource type 2)
    };
    using Bytes = std::basic_string<std::uint8_t>;

    Picture() = default;
    // Width and height in pixels, as given in the directory in which the image was found.
    Picture(Kind kind, std::span<const std::uint8_t> image, int width, int height)
        : bytes_(std::make_shared<const Bytes>(image.begin(), image.end())),
          kind_(kind),
          width_(width),
          height_(height) {}

    bool empty() const { return !bytes_ || bytes_->empty(); }
    Kind kind() const { return kind_; }
    int width() const { return width_; }
    int height() const { return height_; }
    std::span<const std::uint8_t> image() const {
        return bytes_ ? std::span<const std::uint8_t>(bytes_->data(), bytes_->size()) : std::span<const std::uint8_t>();
    }
    // Copies of a picture share its image: this identifies it, for caches of native handles.
    const void* identity() const { return bytes_.get(); }

    friend bool operator==(const Picture& a, const Picture& b) {
        if (a.bytes_ == b.bytes_) return true;
        return a.bytes_ && b.bytes_ && a.kind_ == b.kind_ && *a.bytes_ == *b.bytes_;
    }

private:
    std::shared_ptr<const Bytes> bytes_;
    Kind kind_ = Kind::Icon;
    int width_ = 0, height_ = 0;
};

}  // namespace ui
