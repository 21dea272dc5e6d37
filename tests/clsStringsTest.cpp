#include "util/clsStrings.h"

#include <gtest/gtest.h>

#include "util/Error.h"

namespace {

using Elements = std::vector<std::string>;

Elements split(const std::string& text, const std::string& delimiters) {
    clsStrings strings;
    Elements elements;
    const auto count = strings.Initialise(text, delimiters);
    for (std::int32_t i = 1; i <= count; ++i) elements.push_back(strings.ElementAsString(i));
    for (const std::int32_t none : {-1, 0, count + 1}) EXPECT_EQ(strings.ElementAsString(none), "");
    return elements;
}

using namespace std::string_literals;

TEST(clsStrings, LinesAreSplitAtDelimitersOutsideQuotes) {
    const std::tuple<std::string, std::string, Elements> cases[] = {
        {"", ",", {""}},
        {"a", "", {"a"}},
        {"a,b,,c", ",", {"a", "b", "", "c"}},
        {",,,", ",", {"", "", "", ""}},
        {"x=\"a,b\",y", ",", {"x=\"a,b\"", "y"}},
        {"\"a\"\"b,\",c", ",;", {"\"a\"\"b,\"", "c"}},
        {"a,\"b;c", ",;", {"a", "\"b;c"}},
        {"a;b,\"c\"", ",;", {"a", "b", "\"c\""}},
        {"a\"b\"c", "\"", {"a", "b", "c"}},
        {"a\0b,\0"s, ",", {"a\0b"s, "\0"s}},
        {"a\0b"s, "\0"s, {"a", "b"}},
        {std::string(65536, 'x') + ",\xFF", ",", {std::string(65536, 'x'), "\xFF"}},
    };
    for (const auto& [text, delimiters, elements] : cases) EXPECT_EQ(split(text, delimiters), elements) << text;
}

TEST(clsStrings, ACharacterBehindAClosingQuoteIsRefusedAndLeavesNoElements) {
    for (const std::string text : {"\"ab\"c,d", "a,\"\" x", "\"a\"\"b\"x"}) {
        clsStrings strings;
        strings.Initialise("old,line", ",");
        try {
            strings.Initialise(text, ",");
            FAIL() << text;
        } catch (const util::Error& error) {
            EXPECT_EQ(error.number(), 0x80040064);
        }
        EXPECT_EQ(strings.ElementAsString(1) + strings.ElementAsString(2), "");
    }
}

TEST(clsStrings, ReplacementsAreNotSearchedAgain) {
    const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
        {"abc", "", "x", "abc"}, {"aaa", "a", "aa", "aaaaaa"},       {"aaa", "aa", "b", "ba"},
        {"Aa", "a", "", "A"},    {"C:\\a", "\\", "\\\\", "C:\\\\a"}, {"\0a\0"s, "\0"s, "0", "0a0"},
    };
    for (const auto& [text, find, with, result] : cases) EXPECT_EQ(clsStrings().Replace(text, find, with), result);
}

}  // namespace
