#include "util/clsStrings.h"

#include <gtest/gtest.h>

#include "util/Error.h"

namespace {

using Elements = std::vector<std::string>;

// After another line; of a line that is refused there are no elements.
Elements split(const std::string& text, const std::string& delimiters) {
    clsStrings strings;
    strings.Initialise("old,line", ",");
    std::int32_t count = 0;
    try {
        count = strings.Initialise(text, delimiters);
    } catch (const util::Error& error) {
        EXPECT_EQ(error.number(), 0x80040064);
    }
    Elements elements;
    for (std::int32_t i = 1; i <= count; ++i) elements.push_back(strings.ElementAsString(i));
    for (const std::int32_t none : {-1, 0, count + 1, count + 2}) EXPECT_EQ(strings.ElementAsString(none), "");
    return elements;
}

using namespace std::string_literals;

TEST(clsStrings, LinesAreSplitAtDelimitersOutsideQuotesOrRefused) {
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
        // a character behind a closing quote
        {"\"ab\"c,d", ",", {}},
        {"a,\"\" x", ",", {}},
        {"\"a\"\"b\"x", ",", {}},
    };
    for (const auto& [text, delimiters, elements] : cases) EXPECT_EQ(split(text, delimiters), elements) << text;
}

TEST(clsStrings, ReplacementsAreNotSearchedAgain) {
    const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
        {"abc", "", "x", "abc"}, {"aaa", "a", "aa", "aaaaaa"},       {"aaa", "aa", "b", "ba"},
        {"Aa", "a", "", "A"},    {"C:\\a", "\\", "\\\\", "C:\\\\a"}, {"\0a\0"s, "\0"s, "0", "0a0"},
    };
    for (const auto& [text, find, with, result] : cases) EXPECT_EQ(clsStrings().Replace(text, find, with), result);
}

}  // namespace
