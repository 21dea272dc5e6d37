// The program without windows: what each command prints, and its exit code, as tests/commands.txt has it.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "command/run.h"
#include "native/Console.h"
#include "native/Files.h"
#include "support/TestSystem.h"
#include "zones/zones.h"

namespace {

// Keeps what is printed. Answers, when there is one, every question alike.
class TestConsole : public native::Console {
public:
    std::string printed;
    std::optional<std::string> answer;
    bool full = false;
    std::function<void()> onPause;

    bool print(std::string_view text) override {
        printed += text;
        return !full;
    }
    void printError(std::string_view text) override { printed += "! " + std::string(text); }
    bool canAsk() override { return answer.has_value(); }
    std::string ask(std::string_view question) override {
        printed += "? " + std::string(question) + *answer + "\n";
        return *answer;
    }
    void pause() override { onPause(); }
};

// The words of a line; those in quotes may have blanks in them.
std::vector<std::string> wordsOf(const std::string& line) {
    std::vector<std::string> words;
    std::istringstream rest(line);
    for (char c; rest >> c;) {
        std::string word;
        if (c == '"') {
            std::getline(rest, word, '"');
        } else {
            rest.putback(c);
            rest >> word;
        }
        words.push_back(word);
    }
    return words;
}

// A file's lines as an editor may write them.
std::string written(const std::string& lines, const std::string& how) {
    std::string bytes;
    if (how == "UTF-16") bytes = "\xFF\xFE";
    for (const char c : lines)
        if (how.starts_with("UTF-16"))
            bytes.append({c, '\0'});
        else if (c != '\n' || how != "CR")
            bytes += c;
    return bytes;
}

struct CommandTest : testing::Test {
    TestSystem system;
    TestConsole console;
    CommandTest() {
        console.onPause = [&] { system.endPrograms(); };
    }

    int run(const std::vector<std::string>& arguments) {
        console.printed.clear();
        return command::run({system.platform()}, console, arguments);
    }

    // "@" stands for the program's folder.
    std::string placed(std::string text) {
        for (std::size_t at = 0; (at = text.find('@', at)) != std::string::npos; at += system.programFolder().size())
            text.replace(at, 1, system.programFolder());
        return text;
    }
    std::vector<std::string> placed(std::vector<std::string> words) {
        for (std::string& word : words) word = placed(std::move(word));
        return words;
    }
};

// Lines that begin with "<" name a file, which goes on up to a line ".", with "+" one that is added to; with "$" a
// command, behind which stand what it prints and "= " with its exit code. Other lines are remarks.
TEST_F(CommandTest, EveryCommandPrintsWhatTheListHas) {
    system.seedZones();
    system.seedBrowser();
    simulated::ProgramFile texts;
    texts.addString(1, "From the file");
    system.addProgram("texts.dll", texts);
    for (const char* folder : {"Backups", "Backups\\.."})  // the system in memory takes ".." for a name
        system.platform().files.createFolder(system.path(folder));
    std::istringstream list(
#include "commands.txt.inc"
    );
    int commands = 0;
    for (std::string line; std::getline(list, line);) {
        if (line.starts_with("< ") || line.starts_with("+ ")) {
            const std::size_t bar = line.find(" | ");
            const std::string name = line.substr(2, bar - 2), how = bar == line.npos ? "" : line.substr(bar + 3);
            std::string text;
            const std::string before = line[0] == '+' ? system.readFile(name).value_or("") : "";
            while (std::getline(list, line) && line != ".") text += line + "\r\n";
            system.writeFile(name, before + written(text, how));
        } else if (line.starts_with("$ ")) {
            SCOPED_TRACE(line);
            ++commands;
            const std::string typed = line.substr(2);
            std::string expected;
            while (std::getline(list, line) && !line.starts_with("= ")) expected += line + "\n";
            EXPECT_EQ(run(placed(wordsOf(typed))), std::stoi(line.substr(2)));
            EXPECT_EQ(console.printed, placed(expected));
        }
    }
    EXPECT_GT(commands, 40);
}

// Zones and levels that cannot be read are not taken for none.
IN_MEMORY_TEST_F(CommandTest, ComparesNothingThatCannotBeRead) {
    system.seedZones();
    system.seedBrowser();
    int failures = 0;
    for (const char* function : {"RegOpenKeyExA", "RegEnumKeyExA", "RegEnumValueA", "RegQueryInfoKeyA"}) {
        for (int n = 1;; n += 1 + n / 4) {
            system.registry.watch.reset();
            system.registry.watch.failOn(function, n, platform::AccessDenied);
            const int code = run({"diff", "now", "level:High"});
            if (!system.registry.watch.failed()) break;
            EXPECT_EQ(code, 2) << function << " " << n << console.printed;
            ++failures;
        }
    }
    EXPECT_GT(failures, 30);
}

TEST_F(CommandTest, AsksBeforeItRestoresAndTellsWhatWasTrappedMeanwhile) {
    system.seedZones();
    ASSERT_EQ(run({"backup", " Before\nthe change"}), 0);
    const std::vector<std::string> restore{"restore", "3-9-2000 1457"}, compare{"diff", "backup:3-9-2000 1457"};
    system.setText(std::string(zones::ZonesKey) + "\\3", "DisplayName", "Other");
    console.answer = "n";
    EXPECT_EQ(run(restore), 2);
    EXPECT_EQ(run(compare), 1) << "nothing restored";
    console.answer = "Yes";
    EXPECT_EQ(run(restore), 0);
    EXPECT_EQ(run(compare), 0);
    system.deleteTree(zones::ZonesKey);
    console.answer = "y";
    EXPECT_EQ(run(restore), 2);
    EXPECT_EQ(console.printed,
              "? All zones will be replaced by those of \"Before the change\". Restore? [y/N] y\n"
              "! TavimorCmd: There are no zones to delete.\n");
    const std::string gone = system.path("gone.reg");
    EXPECT_EQ(run({"--from", gone, "zones"}), 2);
    EXPECT_TRUE(console.printed.starts_with("! TavimorCmd: \"" + gone + "\" cannot be read. ")) << console.printed;
    console.full = true;
    EXPECT_EQ(run({"backups"}), 2) << "nobody has got the list";
}

TEST(NativeConsole, TakesWhatIsNoUtf8ForTheWesternCodePage) {
    const std::pair<const char*, const char*> cases[] = {
        {"caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80", "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80"},
        {"\xEF\xBB\xBFmark", "mark"},
        {"caf\xE9 \x80\x9F\xA0\xFF", "caf\xC3\xA9 \xE2\x82\xAC\xC5\xB8\xC2\xA0\xC3\xBF"},
        {"\xC3", "\xC3\x83"},                                                  // cut off
        {"\xC1\x80", "\xC3\x81\xE2\x82\xAC"},                                  // longer than need be
        {"\xC3\xE9", "\xC3\x83\xC3\xA9"},                                      // no follower
        {"\xF5\x80\x80\x80", "\xC3\xB5\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC"},  // beyond the last character
    };
    native::Console console;
    for (const auto& [bytes, text] : cases) EXPECT_EQ(console.fromBytes(bytes), text);
    EXPECT_EQ(console.fromUtf16(u"z\x7F\x80\x7FF\x800\xFFFD\xD83D\xDE00"),
              "z\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBD\xF0\x9F\x98\x80");
    for (const std::u16string half : {u"\xD800", u"\xDC00", u"\xDFFF"})
        EXPECT_EQ(console.fromUtf16(half + u"x"), "\xEF\xBF\xBDx");
    EXPECT_EQ(console.width("caf\xC3\xA9 \xE2\x82\xAC"), 6U);
}

TEST(NativeFiles, AreReadAndNoFolders) {
    const std::string folder = testing::TempDir(), path = folder + "tavimor-native.txt", text(20000, 'x');
    std::ofstream(path, std::ios::binary) << text;
    native::Files files;
    std::string bytes;
    std::uint32_t bits = 1;
    for (const std::size_t limit : {platform::Files::Whole, std::size_t{17000}}) {
        EXPECT_EQ(files.read(path, bytes, limit), platform::Success);
        EXPECT_EQ(bytes, text.substr(0, limit));
    }
    for (const auto& [name, expected] : {std::pair{path, 0U}, {folder, platform::FileAttributeDirectory}}) {
        EXPECT_EQ(files.attributes(name, bits), platform::Success);
        EXPECT_EQ(bits, expected);
    }
    EXPECT_NE(files.read(folder, bytes), platform::Success);
    std::remove(path.c_str());
    EXPECT_EQ(files.attributes(path, bits), platform::FileNotFound);
    EXPECT_EQ(files.read(path, bytes), platform::FileNotFound);
}

}  // namespace
