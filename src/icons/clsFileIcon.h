// One icon with any number of images, read from a program file or an ".ico" file, and written as an ".ico" file.
//
// An image is the icon in one size and depth: its bytes exactly as stored (bitmap header, colour table, XOR and AND
// masks). An entry is its line in the icon's directory. Images are counted from 0, and keep the order of the file.
//
// Whatever fails throws a util::Error with a number of ErrorNumber and the program's name + ".clsFileIcon" as
// source. After a load that failed there are no images; FileName and ResourceID tell what was asked for.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Platform.h"
#include "ui/Image.h"

namespace icons {
class ModuleFile;
}

// A system icon made from an image; destroyed with the object.
class SystemIcon {
public:
    SystemIcon(platform::Modules& modules, platform::IconHandle handle) : modules_(&modules), handle_(handle) {}
    ~SystemIcon() {
        if (handle_) modules_->DestroyIcon(handle_);
    }
    SystemIcon(SystemIcon&& other) noexcept : modules_(other.modules_), handle_(std::exchange(other.handle_, 0)) {}
    SystemIcon& operator=(SystemIcon&&) = delete;

    platform::IconHandle handle() const { return handle_; }

private:
    platform::Modules* modules_;
    platform::IconHandle handle_;
};

class clsFileIcon {
public:
    enum ErrorNumber : std::uint32_t {
        NumberNoLibrary = 0x80040401,
        NumberNotFound = 0x80040402,
        NumberNotLoaded = 0x80040403,
        NumberNotLocked = 0x80040404,
        NumberNoImageBits = 0x80040405,  // an image is missing in the program file, or shorter than its entry says
        NumberReserved = 0x80040406,     // the icon file's first number is not 0
        NumberNotIcon = 0x80040407,      // the icon file's type is not 1
        NumberNoImages = 0x80040408,
        NumberBadDirectory = 0x80040409,  // fewer entries than the header says
        NumberBadImages = 0x8004040A,     // fewer bytes than the entries say
        NumberNoFileName = 0x8004040B,
        NumberNotWritable = 0x8004040C,
        NumberWriteFailed = 0x8004040D,
        NumberDuplicate = 0x8004040E,
        NumberNotReadable = 0x8004040F,
        NumberFull = 0x80040410,
        NumberNoSuchImage = 0x80040411,
        NumberDamaged = 0x80040412,  // the system makes no icon of the image
    };

    // A directory entry, as stored: a width or height of 0 stands for 256 pixels.
    struct Entry {
        std::uint8_t width = 0, height = 0;
        std::uint8_t colourCount = 0;
        std::uint8_t reserved = 0;
        std::uint16_t planes = 0, bitCount = 0;
        std::uint32_t bytesInImage = 0;
    };
    // The count is stored in 16 bits, which readers take with a sign.
    static constexpr int MostImages = 0x7FFF;

    explicit clsFileIcon(platform::Platform& platform) : platform_(platform) {}
    clsFileIcon(const clsFileIcon&) = delete;
    clsFileIcon& operator=(const clsFileIcon&) = delete;

    // The icon group of that number or name in a DLL, EXE or OCX.
    void LoadIconFromEXE(const std::string& fileName, const platform::ResourceId& identifier);
    // The same from a file that is open, for whoever wants many of its icons.
    void LoadIconFromEXE(const icons::ModuleFile& module, const std::string& fileName,
                         const platform::ResourceId& identifier);
    // An ".ico" file. The error text begins with "Failed to load icon: ".
    void LoadIcon(const std::string& fileName);
    void SaveIcon(const std::string& fileName) const;

    // Two images are the same when width, height and colour count are. The entry's size is taken from `image`.
    void AddImage(const Entry& entry, platform::ByteSpan image);
    void RemoveImage(int image);
    void CloneTo(clsFileIcon& other) const;

    int ImageCount() const { return static_cast<int>(images_.size()); }
    int ImageWidth(int image) const;                 // pixels, 1 to 256
    int ImageHeight(int image) const;                // pixels, 1 to 256
    double ImageColourCount(int image) const;        // 2 to the entry's bit count, not its colour count byte
    std::uint32_t ImageSize(int image) const;        // bytes
    platform::ByteSpan ImageBytes(int image) const;  // valid until the images change
    const std::string& FileName() const { return fileName_; }
    const platform::ResourceId& ResourceID() const { return resourceId_; }

    // The image that serves best where `width` pixels are wanted: one of that width, else the smallest larger one,
    // else the largest; of several the one with the most colours. Images that the system cannot draw are passed over;
    // an icon without any other has none.
    int ImageForWidth(int width) const;

    ui::Picture IconPicture(int image) const;
    SystemIcon IconHandle(int image) const;
    // Leaves `box` as it is when the image is damaged. (The program itself takes IconPicture of ImageForWidth, which
    // has found out already.)
    void DrawIconImage(int image, ui::Image& box) const;

private:
    struct Image {
        Entry entry;
        std::shared_ptr<const platform::Bytes> bytes;
    };

    void forget(const std::string& fileName, const platform::ResourceId& identifier);
    std::vector<Image> readGroup(const icons::ModuleFile& module, const platform::ResourceId& identifier) const;
    std::vector<Image> readFile(const std::string& fileName) const;
    const Image& at(int image) const;
    SystemIcon makeIcon(int image) const;  // without a handle when the image is damaged
    [[noreturn]] void raiseError(ErrorNumber number) const;

    platform::Platform& platform_;
    std::string fileName_;
    platform::ResourceId resourceId_;
    std::vector<Image> images_;
};
