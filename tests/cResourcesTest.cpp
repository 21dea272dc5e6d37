#include "icons/cResources.h"

#include "icons/basResouce.h"
#include "support/IconFixture.h"
#include "util/Error.h"

namespace {

constexpr const char* Library = "lib.dll";

struct cResourcesTest : IconFixture {
    std::vector<std::string> names(const platform::ResourceId& type) {
        return basResouce::GetResourceNames(system.platform(), system.path(Library), type);
    }
    // The types, or what is said instead.
    std::vector<std::string> types() {
        try {
            return basResouce::GetResourceTypes(system.platform(), system.path(Library));
        } catch (const util::Error& error) {
            return {error.what()};
        }
    }
};

using Texts = std::vector<std::string>;

TEST_F(cResourcesTest, TypesAndNamesComeInTheOrderOfTheFile) {
    changeProgram(Library, [](simulated::ProgramFile&) {});
    EXPECT_EQ(types(), Texts());
    addIcon(Library, "MAIN", {32});
    addIcon(Library, std::uint16_t{7}, {32});
    changeProgram(Library, [](simulated::ProgramFile& program) { program.add("TYPELIB", std::uint16_t{1}, {1}); });
    EXPECT_EQ(types(), (Texts{"TYPELIB", "Icon", "Group Icon"}));
    EXPECT_EQ(names(platform::RtGroupIcon), (Texts{"MAIN", "#7"}));
    EXPECT_EQ(names(platform::RtBitmap), Texts());
}

TEST_F(cResourcesTest, TypesHaveNames) {
    const Texts texts = {"Other (0)",  "Cursor",          "Bitmap",         "Icon",       "Menu",
                         "Dialog",     "String",          "Font Directory", "Font",       "Accelerators",
                         "RC Data",    "Message Table",   "Group Cursor",   "Other (13)", "Group Icon",
                         "Other (15)", "Version",         "Dialog Include", "Other (18)", "VXD",
                         "VXD",        "Animated Cursor", "Animated Icon",  "HTML",       "Other (24)"};
    for (std::uint16_t type = 0; const std::string& text : texts) EXPECT_EQ(cResources::TypeName(type++), text);
}

IN_MEMORY_TEST_F(cResourcesTest, AFailureTellsTheSystemsOwnMessage) {
    const std::string missing = system.modules.FormatMessageA(platform::FileNotFound);
    EXPECT_EQ(types(), Texts{"Can't load library: " + missing});
    addIcon(Library, "MAIN", {32});
    system.modules.watch.failOn("EnumResourceTypesA", 1, 0x2FFFFFFF);
    EXPECT_EQ(types(), Texts{"Can't enumerate resources: System error 805306367."});
}

}  // namespace
