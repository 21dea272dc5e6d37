// The standard streams where another program reads them, which is given the ANSI code page.
#include "win32/Console.h"

#include <gtest/gtest.h>

#include "win32/WindowsHeaders.h"

TEST(ConsoleTest, SpeaksToOtherProgramsWithTheSystemsLineEnds) {
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
    WriteFile(answers, "yes\r\nno", 7, &count, nullptr);
    CloseHandle(answers);
    win32::Console console;
    EXPECT_FALSE(console.canAsk());
    console.print("caf\xE9\nand ");
    for (const char* answer : {"yes", "no", ""}) EXPECT_EQ(console.ask("Sure? "), answer);
    char said[100] = "";
    ReadFile(questions, said, sizeof said - 1, &count, nullptr);
    EXPECT_STREQ(said, "caf\xE9\r\nand Sure? Sure? Sure? ");
    EXPECT_EQ(console.fromUtf16(u"caf\u00E9 \u20AC"), "caf\xE9 \x80");
    for (std::size_t i = 0; i < before.size(); ++i) SetStdHandle(streams[i].first, before[i]);
    for (const HANDLE pipe : {in, questions, out}) CloseHandle(pipe);
}
