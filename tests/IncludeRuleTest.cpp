// The folders of src/ form layers, and includes point down: what the windows work on knows no window, and everything
// but src/win32 builds on any system.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

namespace {

enum Layer { Seam, Subjects, Windows, System, Entry };

const std::map<std::string, Layer> Layers = {
    {"ui", Seam},          {"platform", Seam}, {"zones", Subjects}, {"registry", Subjects},
    {"errors", Subjects},  {"util", Subjects}, {"app", Windows},    {"editing", Windows},
    {"backup", Windows},   {"mail", Windows},  {"icons", Windows},  {"win32", System},
    {"simulated", System}, {"", Entry},
};

std::string folderOf(const std::string& path) {
    const auto slash = path.find('/');
    return slash == std::string::npos ? "" : path.substr(0, slash);
}

// Whether a file of `from` may include one of `to`.
bool pointsDown(const std::string& from, const std::string& to) {
    const Layer a = Layers.at(from), b = Layers.at(to);
    if (a == Entry) return true;
    if (a == System) return from == to || b == Seam;
    return b <= a;
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
            if (name.ends_with(".h") && from != "win32") broken.push_back(path + ": only win32 may include " + name);
        } else if (to.empty() || !Layers.count(to) || !Layers.count(from)) {
            broken.push_back(path + ": it or \"" + name + "\" is not in a folder that has a place in the layers");
        } else if (!pointsDown(from, to)) {
            broken.push_back(path + ": " + from + " may not include " + to);
        }
    }
    return broken;
}

TEST(Includes, PointDownInEveryFile) {
    namespace fs = std::filesystem;
    const fs::path source = TAVIMOR_SOURCE;
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(source)) {
        const auto extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp" && extension != ".rc") continue;
        ++files;
        std::ostringstream text;
        text << std::ifstream(entry.path()).rdbuf();
        // Without fs::relative: it asks the system for links, and Wine's drive of the whole machine has some.
        const std::string path = entry.path().generic_string().substr(source.generic_string().size() + 1);
        for (const auto& what : brokenRules(path, text.str())) ADD_FAILURE() << what;
    }
    EXPECT_GT(files, 50) << "not the source folder: " << source;
}

TEST(Includes, AreFoundWhereTheyPointUp) {
    const std::pair<const char*, const char*> cases[] = {{"app/frmMain.cpp", "<windows.h>"},
                                                         {"app/frmMain.cpp", "\"win32/Services.h\""},
                                                         {"zones/zones.h", "\"app/Program.h\""},
                                                         {"ui/Form.cpp", "\"Desktop.h\""}};
    for (const auto& [path, name] : cases)
        EXPECT_EQ(brokenRules(path, "int x;\n#include " + std::string(name) + "\n").size(), 1u) << name;
}

}  // namespace
