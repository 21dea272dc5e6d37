// What a program that is started finds: this one, started again, looks before anything else of it runs.
#include <gtest/gtest.h>

#include "win32/System.h"
#include "win32/WindowsHeaders.h"

namespace {

constexpr const char* Variable = "TAVIMOR_TESTS_STARTED";
constexpr UINT NotHidden = 1, ElsewhereThanItsFolder = 2;

[[maybe_unused]] const bool looked = [] {
    if (GetEnvironmentVariableA(Variable, nullptr, 0) == 0) return false;
    STARTUPINFOA startup = {};
    GetStartupInfoA(&startup);
    UINT wrong = startup.dwFlags & STARTF_USESHOWWINDOW && startup.wShowWindow == SW_HIDE ? 0 : NotHidden;
    char program[MAX_PATH] = "", folder[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, program, sizeof program);
    GetCurrentDirectoryA(sizeof folder, folder);
    if (lstrcmpiA(folder, std::string(program, strrchr(program, '\\')).c_str()) != 0) wrong |= ElsewhereThanItsFolder;
    ExitProcess(wrong);
}();

}  // namespace

TEST(Launcher, StartsProgramsHiddenAndInTheirOwnFolder) {
    char own[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, own, sizeof own);
    SetEnvironmentVariableA(Variable, "yes");
    win32::Launcher launcher;
    platform::Launcher::Process process = 0;
    ASSERT_EQ(launcher.start(own, "", process), platform::Success);
    SetEnvironmentVariableA(Variable, nullptr);
    const auto handle = reinterpret_cast<HANDLE>(process);
    EXPECT_EQ(WaitForSingleObject(handle, 30000), WAIT_OBJECT_0);
    DWORD wrong = 9;
    EXPECT_TRUE(GetExitCodeProcess(handle, &wrong));
    EXPECT_EQ(wrong, 0u);
    EXPECT_FALSE(launcher.running(process));
    launcher.close(process);
}
