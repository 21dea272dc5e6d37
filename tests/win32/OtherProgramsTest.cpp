// What other programs meet: those that it starts, those that read what it prints, in the ANSI code page, and answer in
// the OEM one, and those that have a file open that it writes.
#include <gtest/gtest.h>

#include "support/TestSystem.h"
#include "win32/Console.h"
#include "win32/System.h"
#include "win32/WindowsHeaders.h"

namespace {

// This program, started again, looks before any test runs.
constexpr const char* Variable = "TAVIMOR_TESTS_STARTED";

[[maybe_unused]] const bool looked = [] {
    if (GetEnvironmentVariableA(Variable, nullptr, 0) == 0) return false;
    STARTUPINFOA startup = {};
    GetStartupInfoA(&startup);
    const bool hidden = startup.dwFlags & STARTF_USESHOWWINDOW && startup.wShowWindow == SW_HIDE;
    char program[MAX_PATH] = "", folder[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, program, sizeof program);
    GetCurrentDirectoryA(sizeof folder, folder);
    const bool inItsFolder = lstrcmpiA(folder, std::string(program, strrchr(program, '\\')).c_str()) == 0;
    ExitProcess(40 + hidden + 2 * inItsFolder);
}();

}  // namespace

TEST(OtherPrograms, AreStartedHiddenAndInTheirOwnFolder) {
    char own[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, own, sizeof own);
    SetEnvironmentVariableA(Variable, "yes");
    win32::Launcher launcher;
    platform::Launcher::Process process = 0;
    EXPECT_EQ(launcher.start(own, "", process), platform::Success);
    SetEnvironmentVariableA(Variable, nullptr);
    const auto handle = reinterpret_cast<HANDLE>(process);
    EXPECT_EQ(WaitForSingleObject(handle, 30000), WAIT_OBJECT_0);
    DWORD found = 0;
    EXPECT_TRUE(GetExitCodeProcess(handle, &found));
    EXPECT_EQ(found, 43u) << "40, and 1: hidden, 2: in its folder";
    launcher.close(process);
}

TEST(OtherPrograms, ReadWhatIsPrintedWithTheSystemsLineEnds) {
    HANDLE in, answers, questions, out;
    ASSERT_TRUE(CreatePipe(&in, &answers, nullptr, 0) && CreatePipe(&questions, &out, nullptr, 0));
    const std::pair<DWORD, HANDLE> streams[] = {
        {STD_INPUT_HANDLE, in}, {STD_OUTPUT_HANDLE, out}, {STD_ERROR_HANDLE, out}};
    std::vector<HANDLE> before;
    for (const auto& [which, stream] : streams) {
        before.push_back(GetStdHandle(which));
        SetStdHandle(which, stream);
    }
    DWORD count = 0;
    WriteFile(answers, "yes\r\nn\x82", 7, &count, nullptr);
    CloseHandle(answers);
    win32::Console console;
    EXPECT_FALSE(console.canAsk());
    console.print("caf\xE9\nand ");
    for (const char* answer : {"yes", "n\xE9", ""}) EXPECT_EQ(console.ask("Sure? "), answer);
    char said[100] = "";
    ReadFile(questions, said, sizeof said - 1, &count, nullptr);
    EXPECT_STREQ(said, "caf\xE9\r\nand Sure? Sure? Sure? ");
    EXPECT_EQ(console.fromUtf16(u"caf\u00E9 \u20AC"), "caf\xE9 \x80");
    for (std::size_t i = 0; i < before.size(); ++i) SetStdHandle(streams[i].first, before[i]);
    for (const HANDLE pipe : {in, questions, out}) CloseHandle(pipe);
}

TEST(OtherPrograms, MayReadAFileThatIsWritten) {
    TestSystem system;
    system.writeFile("log", "old");
    const HANDLE reader = CreateFileA(system.path("log").c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    std::uint32_t written = 0;
    platform::Files& files = system.platform().files;
    EXPECT_EQ(files.append(system.path("log"), " and new", written), platform::Success);
    EXPECT_EQ(system.readFile("log"), "old and new");
    EXPECT_EQ(files.create(system.path("log"), "newest", written), platform::Success);
    CloseHandle(reader);
}
