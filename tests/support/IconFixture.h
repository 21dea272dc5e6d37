// A system whose program folder gets program files with icons, and a box to draw into. What was opened is closed.
#pragma once

#include <gtest/gtest.h>

#include "support/TestSystem.h"
#include "ui/Form.h"
#include "ui/Image.h"

struct IconFixture : testing::Test {
    TestSystem system;
    ui::Form holder{system.desktop, ui::Form::Kind::Dialog, "holder", "", {6000, 6000}};
    ui::Image box{holder, "box", {0, 0, 480, 480}};

    void TearDown() override {
        EXPECT_EQ(system.modules.loaded(), 0) << "module left open";
        EXPECT_EQ(system.modules.icons(), 0) << "icon not destroyed";
        EXPECT_EQ(system.memory.blocks(), 0) << "memory not freed";
    }

    // Changes a program file in the program folder, which begins empty, and writes it.
    template <class Change>
    void changeProgram(const std::string& name, Change change) {
        change(programs_[name]);
        system.addProgram(name, programs_[name]);
    }
    void addImages(const std::string& name, const platform::ResourceId& id, const std::vector<icons::Image>& images) {
        changeProgram(name, [&](simulated::ProgramFile& program) { icons::addTo(program, id, images, nextImage_); });
        nextImage_ = static_cast<std::uint16_t>(nextImage_ + images.size());
    }
    // An icon with one image of each size in 16 colours.
    void addIcon(const std::string& name, const platform::ResourceId& id, const std::vector<int>& sizes,
                 std::uint8_t seed = 0) {
        std::vector<icons::Image> images;
        for (const int size : sizes) images.push_back(icons::image(size, 4, seed));
        addImages(name, id, images);
    }
    // An icon that the system cannot draw.
    void addDamagedIcon(const std::string& name, const platform::ResourceId& id) {
        icons::Image damaged = icons::image(32, 4);
        damaged.bytes.assign(damaged.bytes.size(), 0xFF);
        addImages(name, id, {damaged});
    }
    static ui::Picture picture(int size, std::uint8_t seed) {
        const platform::Bytes bytes = icons::image(size, 4, seed).bytes;
        return {ui::Picture::Kind::Icon, {bytes.data(), bytes.size()}, size, size};
    }
    void writeFile(const std::string& name, const platform::Bytes& bytes) {
        system.writeFile(name, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }

private:
    std::map<std::string, simulated::ProgramFile> programs_;
    std::uint16_t nextImage_ = 1;
};
