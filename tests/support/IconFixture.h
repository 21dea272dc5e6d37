// A simulated system with program and icon files to read icons from, and a box to draw them into.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/IconBytes.h"
#include "support/TestSystem.h"
#include "ui/Controls.h"
#include "ui/Form.h"

struct IconFixture : testing::Test {
    TestSystem system;
    ui::Form form{system.platform.desktop, ui::Form::Kind::Dialog, "form", "", {6000, 6000}};
    ui::PictureBox box{form, "box", {0, 0, 480, 480}};

    ~IconFixture() override {
        EXPECT_EQ(system.modules.loaded(), 0) << "module left open";
        EXPECT_EQ(system.modules.icons(), 0) << "icon not destroyed";
        EXPECT_EQ(system.memory.blocks(), 0) << "memory not freed";
    }

    void writeFile(const std::string& path, const platform::Bytes& bytes) {
        system.simulatedFiles.addFile(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }
    platform::Bytes readFile(const std::string& path) {
        std::string bytes;
        EXPECT_EQ(system.files.read(path, bytes), platform::Success);
        return platform::Bytes(bytes.begin(), bytes.end());
    }
    // The program file of that path, made when it is not there yet.
    simulated::ProgramFile& program(const std::string& path) { return system.simulatedModules.add(path); }
    // An icon with one image of each size in 16 colours.
    void addIcon(const std::string& path, const platform::ResourceId& name, const std::vector<int>& sizes,
                 std::uint8_t seed = 0) {
        std::vector<icons::Image> images;
        for (const int size : sizes) images.push_back(icons::image(size, 4, seed));
        icons::addTo(program(path), name, images, nextImage_);
        nextImage_ = static_cast<std::uint16_t>(nextImage_ + sizes.size());
    }

private:
    std::uint16_t nextImage_ = 1;
};
