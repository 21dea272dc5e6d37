#include "util/clsStrings.h"

#include <gtest/gtest.h>

#include <random>

#include "errors/basErrors.h"

namespace {

using Elements = std::vector<std::string>;

Elements split(clsStrings& strings, const std::string& text, const std::string& delimiters) {
    Elements elements;
    const auto count = strings.Initialise(text, delimiters);
    for (std::int32_t i = 1; i <= count; ++i) elements.push_back(strings.ElementAsString(i));
    EXPECT_EQ(strings.ElementAsString(0), "");
    EXPECT_EQ(strings.ElementAsString(-1), "");
    EXPECT_EQ(strings.ElementAsString(count + 1), "");
    return elements;
}

using namespace std::string_literals;

TEST(clsStrings, LinesAreSplitAtDelimitersOutsideQuotes) {
    const struct {
        std::string text, delimiters;
        Elements elements;
    } cases[] = {
        {"", ",", {""}},
        {"a", "", {"a"}},
        {"a,b,,c", ",", {"a", "b", "", "c"}},
        {",,,", ",", {"", "", "", ""}},
        {"x=\"a,b\",y", ",", {"x=\"a,b\"", "y"}},
        {"\"a\"\"b,\",c", ",", {"\"a\"\"b,\"", "c"}},
        {"a,\"b,c", ",", {"a", "\"b,c"}},
        {"a\"b\"c", "\"", {"a", "b", "c"}},
        {"a\0b,\0"s, ",", {"a\0b"s, "\0"s}},
        {"a\0b"s, "\0"s, {"a", "b"}},
        {std::string(65536, 'x') + ",\xFF", ",", {std::string(65536, 'x'), "\xFF"}},
    };
    clsStrings strings;
    for (const auto& c : cases) EXPECT_EQ(split(strings, c.text, c.delimiters), c.elements) << c.text;
}

TEST(clsStrings, ACharacterBehindAClosingQuoteIsRefusedAndLeavesNoElements) {
    for (const std::string text : {"\"ab\"c,d", "a,\"\" ", "\"a\"\"b\""}) {
        clsStrings strings;
        strings.Initialise("old,line", ",");
        try {
            strings.InitialiseVar(text + "x", ",");
            FAIL() << text;
        } catch (const basErrors::Error& error) {
            EXPECT_EQ(error.number(), 0x80040064);
            EXPECT_EQ(error.source(), "Elements.Initialise");
            EXPECT_STREQ(error.what(), "Invalid character in an element that contains a quoted string");
        }
        EXPECT_EQ(strings.ElementAsString(1), "");
        EXPECT_EQ(strings.ElementAsString(2), "");
    }
}

TEST(clsStrings, ElementsAndDelimitersTogetherAreTheText) {
    std::mt19937 random(20000309);
    const std::string alphabet = "ab\",;\0 \\"s;
    clsStrings strings;
    int accepted = 0;
    for (int round = 0; round < 5000; ++round) {
        std::string text(random() % 24, ' ');
        for (char& c : text) c = alphabet[random() % alphabet.size()];
        Elements elements;
        try {
            elements = split(strings, text, ",;");
        } catch (const basErrors::Error&) {
            continue;
        }
        ++accepted;
        std::string joined = elements[0];
        for (std::size_t i = 1; i < elements.size(); ++i) {
            ASSERT_LT(joined.size(), text.size()) << text;
            const char delimiter = text[joined.size()];
            ASSERT_NE(std::string(",;").find(delimiter), std::string::npos) << text;
            joined += delimiter + elements[i];
        }
        ASSERT_EQ(joined, text);
    }
    EXPECT_GT(accepted, 1000);
}

TEST(clsStrings, ReplacementsAreNotSearchedAgain) {
    const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
        {"abc", "", "x", "abc"}, {"aaa", "a", "aa", "aaaaaa"},       {"aaa", "aa", "b", "ba"},
        {"Aa", "a", "", "A"},    {"C:\\a", "\\", "\\\\", "C:\\\\a"}, {"\0a\0"s, "\0"s, "0", "0a0"},
    };
    for (const auto& [text, find, with, result] : cases) EXPECT_EQ(clsStrings().Replace(text, find, with), result);
}

}  // namespace
