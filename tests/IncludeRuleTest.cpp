// Rules that the text of src/ keeps. Its folders form a picture without circles, and includes point down in it: what
// the windows work on knows no window, and everything but src/win32 builds on any system.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

namespace {

// Which folders a folder may include. The systems know only the interfaces above them, and nobody knows them but the
// entry points, which have no folder, and the commands, for which an export is a registry in memory.
const std::map<std::string, std::set<std::string>> MayInclude = {
    {"platform", {}},
    {"ui", {"platform"}},
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
    {"native", {"platform"}},
    {"", {"app", "command", "native", "platform", "simulated", "ui", "win32"}},
};

std::string folderOf(const std::string& path) {
    const auto slash = path.find('/');
    return slash == std::string::npos ? "" : path.substr(0, slash);
}

bool mayInclude(const std::string& from, const std::string& to) {
    return from == to || MayInclude.at(from).count(to);
}

// The broken rules in the text of one file, whose path is relative to src/. The language's own headers end in no ".h".
std::vector<std::string> brokenRules(const std::string& path, const std::string& text) {
    std::vector<std::string> broken;
    static const std::regex include(R"(\s*#\s*include\s*([<"])([^>"]+)[>"].*)");
    std::istringstream lines(text);
    std::smatch match;
    for (std::string line; std::getline(lines, line);) {
        if (!std::regex_match(line, match, include)) continue;
        const std::string name = match[2], from = folderOf(path), to = folderOf(name);
        if (match[1] == "<") {
            // Every C library has getopt.h.
            if (name.ends_with(".h") && name != "getopt.h" && from != "win32")
                broken.push_back(path + ": only win32 may include " + name);
        } else if (to.empty() || !MayInclude.count(to) || !MayInclude.count(from)) {
            broken.push_back(path + ": it or \"" + name + "\" is not in a folder that has a place in the table");
        } else if (!mayInclude(from, to)) {
            broken.push_back(path + ": " + from + " may not include " + to);
        }
    }
    return broken;
}

// A folder that includes what includes it in its turn has no place in a picture.
TEST(Includes, AreAllowedInNoCircle) {
    std::map<std::string, int> depth;
    for (std::size_t round = 0; round <= MayInclude.size(); ++round)
        for (const auto& [from, below] : MayInclude)
            for (const std::string& to : below) depth[from] = std::max(depth[from], depth[to] + 1);
    for (const auto& [folder, deep] : depth) EXPECT_LT(deep, static_cast<int>(MayInclude.size())) << folder;
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
    for (const auto& [path, text] : sources())
        for (const auto& what : brokenRules(path, text)) ADD_FAILURE() << what;
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

TEST(Includes, AreFoundWhereTheyPointUp) {
    const std::pair<const char*, const char*> cases[] = {{"app/frmMain.cpp", "<windows.h>"},
                                                         {"app/frmMain.cpp", "\"win32/Registry.h\""},
                                                         {"zones/zones.h", "\"app/Application.h\""},
                                                         {"ui/Form.cpp", "\"Desktop.h\""}};
    for (const auto& [path, name] : cases)
        EXPECT_EQ(brokenRules(path, "int x;\n#include " + std::string(name) + "\n").size(), 1u) << name;
}

}  // namespace
