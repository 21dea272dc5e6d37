// Rules that the text of src/ keeps. Its folders form a picture without circles, and includes point down in it: what
// the windows work on knows no window, and everything but src/win32 builds on any system.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

namespace {

// Which folders a folder may include: of those above it here, so that there is no circle. The systems know only the
// interfaces above them, and nobody knows them but the entry points, which have no folder, and the commands, for which
// an export is a registry in memory.
const std::pair<std::string, std::set<std::string>> MayInclude[] = {
    {"platform", {}},
    {"ui", {"platform"}},
    {"native", {"platform"}},
    {"win32", {"platform", "ui"}},
    {"simulated", {"platform", "ui"}},
    {"util", {"platform"}},
    {"registry", {"platform", "util"}},
    {"errors", {"platform", "registry", "ui", "util"}},
    {"zones", {"platform", "registry", "util"}},
    {"icons", {"platform", "ui", "util"}},
    {"forms", {"errors", "icons", "platform", "registry", "ui", "util", "zones"}},
    {"mail", {"errors", "forms", "icons", "platform", "registry", "ui", "util", "zones"}},
    {"backup", {"errors", "forms", "icons", "platform", "registry", "ui", "util", "zones"}},
    {"editing", {"errors", "forms", "icons", "platform", "registry", "ui", "util", "zones"}},
    {"app", {"backup", "editing", "errors", "forms", "icons", "mail", "platform", "registry", "ui", "util", "zones"}},
    {"command", {"backup", "errors", "forms", "mail", "platform", "registry", "simulated", "ui", "util", "zones"}},
    {"", {"app", "command", "native", "platform", "simulated", "ui", "win32"}},
};

TEST(Includes, AreAllowedInNoCircle) {
    std::set<std::string> above;
    for (const auto& [folder, below] : MayInclude) {
        EXPECT_TRUE(std::ranges::includes(above, below)) << folder;
        above.insert(folder);
    }
}

std::string folderOf(const std::string& path) {
    return path.substr(0, path.find('/') == std::string::npos ? 0 : path.find('/'));
}

// The files that the text of one may not include, whose path is relative to src/. The language's own headers end in no
// ".h", and every C library has getopt.h.
std::vector<std::string> forbiddenIn(const std::string& path, const std::string& text) {
    std::vector<std::string> forbidden;
    static const std::regex include(R"(\s*#\s*include\s*([<"])([^>"]+)[>"].*)");
    const std::string from = folderOf(path);
    const auto* may = std::ranges::find(MayInclude, from, [](const auto& row) { return row.first; });
    std::istringstream lines(text);
    std::smatch match;
    for (std::string line; std::getline(lines, line);) {
        if (!std::regex_match(line, match, include)) continue;
        const std::string name = match[2], to = folderOf(name);
        const bool allowed =
            match[1] == "<" ? !name.ends_with(".h") || name == "getopt.h" || from == "win32"
                            : may != std::end(MayInclude) && !to.empty() && (from == to || may->second.contains(to));
        if (!allowed) forbidden.push_back(name);
    }
    return forbidden;
}

// By their paths below src/.
std::map<std::string, std::string> sources() {
    namespace fs = std::filesystem;
    const fs::path source = TAVIMOR_SOURCE;
    std::map<std::string, std::string> texts;
    for (const auto& entry : fs::recursive_directory_iterator(source)) {
        const auto extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp" && extension != ".rc") continue;
        std::ostringstream text;
        text << std::ifstream(entry.path()).rdbuf();
        // Without fs::relative: it asks the system for links, and Wine's drive of the whole machine has some.
        texts[entry.path().generic_string().substr(source.generic_string().size() + 1)] = text.str();
    }
    EXPECT_GT(texts.size(), 50u) << "not the source folder: " << source;
    return texts;
}

TEST(Includes, PointDownInEveryFile) {
    EXPECT_EQ(forbiddenIn("zones/zones.h", "#include <windows.h>\n# include \"app/a.h\"\nint x;\n#include \"b.h\"\n"),
              (std::vector<std::string>{"windows.h", "app/a.h", "b.h"}));
    for (const auto& [path, text] : sources())
        EXPECT_EQ(forbiddenIn(path, text), std::vector<std::string>{}) << path << ": see the table";
}

// But for what has a name of the old vocabulary elsewhere.
TEST(Traces, HaveTheNamesOfTheProceduresThatTheyStandIn) {
    static const std::regex space(R"(namespace (\w+).*)"), member(R"((?:[\w:<>&*, ]+[ &*])?(\w+)::(~?\w+)\(.*)"),
        function(R"([\w:<>&*]+[ &*]+(\w+)\(.*)"), traced(R"re(.*procedure\("(\w+\.\w+)( \[[GL]et\])?".*)re");
    const std::map<std::string, std::string> others = {{"frmMain.ShowZone", "frmMain.lvwZones_ItemClick"},
                                                       {"clsRegistry.clsRegistry", "clsRegistry.Class_Initialize"},
                                                       {"clsRegistry.~clsRegistry", "clsRegistry.Class_Terminate"},
                                                       {"clsRegistry.readText", "clsRegistry.ValueOf"},
                                                       {"clsRegistry.readNumber", "clsRegistry.ValueOf"},
                                                       {"clsRegistry.readNumberOfAnyType", "clsRegistry.ValueOf"},
                                                       {"zones.SetDefaults", "frmAdd.SetDefaults"},
                                                       {"zones.GetSecurity", "basMain.GetSecurity"}};
    int found = 0;
    for (const auto& [path, text] : sources()) {
        std::istringstream lines(text);
        std::string outer, name;
        std::smatch match;
        for (std::string line; std::getline(lines, line);) {
            if (std::regex_match(line, match, space)) outer = match[1];
            const bool outside = !line.starts_with(' ');
            if (outside && std::regex_match(line, match, member))
                name = match[1].str() + "." + match[2].str();
            else if (outside && std::regex_match(line, match, function))
                name = outer + "." + match[1].str();
            if (line.find("procedure(\"") == std::string::npos || !std::regex_match(line, match, traced)) continue;
            ++found;
            EXPECT_EQ(match[1], others.contains(name) ? others.at(name) : name) << path;
        }
    }
    EXPECT_GT(found, 100);
}

}  // namespace
