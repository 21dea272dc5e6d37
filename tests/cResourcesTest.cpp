#include "icons/cResources.h"

#include <gtest/gtest.h>

#include "errors/basErrors.h"
#include "icons/basResouce.h"
#include "support/IconFixture.h"

namespace {

constexpr const char* Library = "lib.dll";

struct cResourcesTest : IconFixture {
    std::vector<std::string> types() { return basResouce::GetResourceTypes(system.platform(), system.path(Library)); }
    std::vector<std::string> names(const platform::ResourceId& type) {
        return basResouce::GetResourceNames(system.platform(), system.path(Library), type);
    }
    template <class Operation>
    std::string failure(Operation operation) {
        try {
            operation();
            return "";
        } catch (const basErrors::Error& error) {
            EXPECT_EQ(error.source(), "Tavimor.cResource");
            return error.what();
        }
    }
};

TEST_F(cResourcesTest, TypesAndNamesComeInTheOrderOfTheFile) {
    changeProgram(Library, [](simulated::ProgramFile&) {});
    EXPECT_EQ(types(), std::vector<std::string>());
    changeProgram(Library, [](simulated::ProgramFile& program) {
        program.add("TYPELIB", std::uint16_t{1}, {1}).add(platform::RtIcon, std::uint16_t{99}, {1});
    });
    addIcon(Library, "MAIN", {32});
    addIcon(Library, std::uint16_t{7}, {32});
    EXPECT_EQ(types(), (std::vector<std::string>{"TYPELIB", "Icon", "Group Icon"}));
    EXPECT_EQ(names(platform::RtGroupIcon), (std::vector<std::string>{"MAIN", "#7"}));
    EXPECT_EQ(names(platform::RtBitmap), std::vector<std::string>());
}

TEST_F(cResourcesTest, AFailureTellsTheSystemsOwnMessage) {
    const auto text = [&](platform::Result code) { return system.modules.FormatMessageA(code); };
    EXPECT_NE(text(platform::AccessDenied), "");
    EXPECT_EQ(failure([&] { types(); }), "Can't load library: " + text(platform::FileNotFound));
    changeProgram(Library, [](simulated::ProgramFile&) {});
    system.modules.watch.failOn("EnumResourceTypesA", 1, platform::AccessDenied);
    EXPECT_EQ(failure([&] { types(); }), "Can't enumerate resources: " + text(platform::AccessDenied));
    system.modules.watch.failOn("EnumResourceNamesA", 1, 0x2FFFFFFF);
    EXPECT_EQ(failure([&] { names(platform::RtIcon); }), "Can't enumerate resources: System error 805306367.");
}

}  // namespace
