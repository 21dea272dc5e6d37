// A simulated system with program and icon files to read icons from, and a box to draw them into.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "platform/Platform.h"
#include "simulated/Desktop.h"
#include "simulated/Files.h"
#include "simulated/Memory.h"
#include "simulated/Modules.h"
#include "simulated/Registry.h"
#include "simulated/System.h"
#include "support/ScriptedDesktop.h"
#include "ui/Controls.h"
#include "ui/Form.h"

struct IconSystem {
    simulated::Registry registry;
    simulated::Files files;
    simulated::Modules modules{files};
    simulated::Memory memory;
    simulated::System system;
    simulated::Browser browser;
    simulated::Launcher launcher;
    simulated::Desktop inner;
    ScriptedDesktop desktop{inner};
    platform::Platform platform{registry, files, modules, memory, system, browser, launcher, desktop};
};

using platform::Bytes;

inline void put(Bytes& bytes, std::uint32_t number, int size) {
    for (; size > 0; --size, number >>= 8) bytes.push_back(static_cast<std::uint8_t>(number));
}

// One image and its line in a directory. `width`: 0 to 255, as stored.
struct IconImage {
    int width, bits;
    std::uint16_t id;
    Bytes bytes;
};

inline IconImage iconImage(int width, int bits, std::uint16_t id) {
    const int pixels = width ? width : 256;
    Bytes bytes;
    put(bytes, 40, 4);
    put(bytes, pixels, 4);
    put(bytes, 2 * pixels, 4);
    put(bytes, 1, 2);
    put(bytes, bits, 2);
    bytes.resize(40);
    const int colours = bits <= 8 ? 1 << bits : 0;
    const int rows = (pixels * bits + 31) / 32 * 4 + (pixels + 31) / 32 * 4;
    bytes.append(colours * 4 + rows * pixels, static_cast<std::uint8_t>(id));
    return {width, bits, id, bytes};
}

inline Bytes directory(const std::vector<IconImage>& images, bool group) {
    Bytes bytes;
    put(bytes, 0, 2);
    put(bytes, 1, 2);
    put(bytes, static_cast<std::uint32_t>(images.size()), 2);
    std::uint32_t offset = 6 + 16 * static_cast<std::uint32_t>(images.size());
    for (const IconImage& image : images) {
        for (const int byte : {image.width, image.width, 0, 0}) put(bytes, byte, 1);
        put(bytes, 1, 2);
        put(bytes, image.bits, 2);
        put(bytes, static_cast<std::uint32_t>(image.bytes.size()), 4);
        group ? put(bytes, image.id, 2) : put(bytes, offset, 4);
        offset += static_cast<std::uint32_t>(image.bytes.size());
    }
    return bytes;
}
inline Bytes groupBytes(const std::vector<IconImage>& images) {
    return directory(images, true);
}
inline Bytes fileBytes(const std::vector<IconImage>& images) {
    Bytes bytes = directory(images, false);
    for (const IconImage& image : images) bytes += image.bytes;
    return bytes;
}

struct IconFixture : testing::Test {
    IconSystem system;
    ui::Form form{system.platform.desktop, ui::Form::Kind::Dialog, "form", "", {6000, 6000}};
    ui::PictureBox box{form, "box", {0, 0, 480, 480}};

    ~IconFixture() override {
        EXPECT_EQ(system.modules.loaded(), 0U) << "module left open";
        EXPECT_EQ(system.modules.icons(), 0U) << "icon not destroyed";
        EXPECT_EQ(system.memory.blocks(), 0U) << "memory not freed";
    }

    void writeFile(const std::string& path, const Bytes& bytes) {
        system.files.addFile(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }
    Bytes readFile(const std::string& path) {
        std::string bytes;
        EXPECT_EQ(system.files.read(path, bytes), platform::Success);
        return Bytes(bytes.begin(), bytes.end());
    }
    void putResource(const std::string& file, std::uint16_t type, const platform::ResourceId& name, Bytes bytes) {
        system.modules.add(file).add(type, name, std::move(bytes));
    }
    void putImages(const std::string& file, const std::vector<IconImage>& images) {
        for (const IconImage& image : images) putResource(file, platform::RtIcon, image.id, image.bytes);
    }
    void emptyProgram(const std::string& file) { system.modules.add(file) = {}; }
    // A program file with one icon of that identifier.
    void putIcon(const std::string& file, const platform::ResourceId& name, const std::vector<IconImage>& images) {
        putImages(file, images);
        putResource(file, platform::RtGroupIcon, name, groupBytes(images));
    }
};
