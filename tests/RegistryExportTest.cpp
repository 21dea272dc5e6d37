#include <gtest/gtest.h>

#include "backup/ZonesExport.h"

using namespace backup;
using namespace std::string_literals;

namespace {

const std::string Zones = "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Zones";
const std::string Head = "REGEDIT4\r\n\r\n;This file created by Tavimor.\r\n\r\n[" + Zones + "]\r\n\r\n";

std::string block(const std::string& zone, const std::string& lines) {
    return "[" + Zones + "\\" + zone + "]\r\n" + lines + "\r\n";
}

// "name=text|", "name=#number|", "name=(type) bytes|", with "?" before the end of what is not exact.
std::string told(const ExportedValue& value) {
    std::string what = "(" + std::to_string(value.type) + ")";
    for (const unsigned byte : value.data) what += " " + std::to_string(byte);
    if (value.type == platform::RegSz) what = value.text;
    if (value.type == platform::RegDword) what = "#" + std::to_string(value.number);
    return value.name + "=" + what + (value.exact ? "|" : "?|");
}

// The zones with their values, "!" after one that is not whole.
std::string told(const std::string& file) {
    const ZonesExport read = readZonesExport(file);
    EXPECT_FALSE(read.forbidden) << file;
    std::string all;
    for (const ExportedZone& zone : read.zones) {
        all += zone.name + (zone.whole ? ":" : "!:");
        for (const ExportedValue& value : zone.values) all += told(value);
        all += "/";
    }
    return all;
}

}  // namespace

TEST(OwnExport, IsReadAsItWasWritten) {
    const std::pair<std::string, std::string> cases[] = {
        {R"("D"="C:\0\new\")", R"(D=C:\0\new\|)"},
        {R"("D"="say "hi"")", R"(D=say "hi"|)"},
        {R"("D"=""")", R"(D="|)"},
        {R"("Icon"="C:\\a\\b.dll#1")", R"(Icon=C:\a\b.dll#1|)"},
        {R"("iCoN"="\\\\srv\\a\b")", R"(iCoN=\\srv\a\b|)"},
        {R"("Na"me"="x")", R"(Na"me=x|)"},
        {R"("Na\me"=dword:0000000a)", R"(Na\me=#10|)"},
        {R"("a"="b"=dword:ffffffff)", R"(a"="b=#4294967295|)"},
        {"\"D\"=\"one\n\rtwo\r\n\r\n[sic]\r\n;x\"", "D=one\n\rtwo\r\n\r\n[sic]\r\n;x|"},
        {"\"D\"=\"\r\n\"", "D=\r\n|"},
        {"\"D\"=\"say \"hi\"\r\nthere\"", "D=say \"hi\"\r\nthere|"},
        {"\"D\"=\"a\n\"New\"=\"b\"", "D=a\n\"New\"=\"b|"},
        {"@=\"\"", "=|"},
    };
    const std::string before = "\"B\"=dword:00000001\r\n", after = "\r\n\"Z\"=\"end\"\r\n";
    const std::string next = block("1", "\"A\"=dword:00000002\r\n");
    for (const auto& [line, expected] : cases) {
        EXPECT_EQ(told(Head + block("0", line + "\r\n") + next), "0:" + expected + "/1:A=#2|/");
        EXPECT_EQ(told(Head + block("0", before + line + after) + next), "0:B=#1|" + expected + "Z=end|/1:A=#2|/");
    }
    // One that follows another wins value by value.
    EXPECT_EQ(told(Head + block("0", "\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n") + block("1", "") + Head +
                   block("0", "\"B\"=dword:00000003\r\n") + block("10", "")),
              "0:a=1|B=#3|/1:/10:/");
    // An editor stores what it misreads under other names.
    const std::string misread =
        "\"Na\\me\"=dword:00000001\r\n\"D\"=\"a\r\n\"New\"=\"b\r\n\"Kept\"=\"c\"\r\n\"Kept\"=\"d\"\r\n";
    EXPECT_EQ(told(Head + block("0", misread)), "0:Na\\me=#1|D=a\r\n\"New\"=\"b\r\n\"Kept\"=\"c|Kept=d|/");
    EXPECT_EQ(readZonesExport(Head + block("0", misread)).zones.at(0).misread, std::vector<std::string>{"Name"});
}

// What was cut off is missed; what is there is what was written.
TEST(OwnExport, TellsOfEveryTruncatedFileWhichZonesAreWhole) {
    const std::string first = Head + block("0", "\"N\"=\"a\r\nb\"\r\n\"F\"=dword:00000001\r\n"),
                      file = first + block("1", "\"N\"=\"say \"x\"\"\r\n");
    for (std::size_t size = 0; size <= file.size(); ++size) {
        const ZonesExport read = readZonesExport(file.substr(0, size));
        SCOPED_TRACE(size);
        EXPECT_FALSE(read.forbidden);
        // Of the last line's end the first half is enough.
        for (const ExportedZone& zone : read.zones)
            EXPECT_EQ(zone.whole, size + 1 >= (zone.name == "0" ? first.size() : file.size()));
    }
    EXPECT_EQ(told(file.substr(0, file.size() - 1)), "0:N=a\r\nb|F=#1|/1:N=say \"x\"|/");
    EXPECT_EQ(told(file), "0:N=a\r\nb|F=#1|/1:N=say \"x\"|/");
    for (const std::string& line : {"\"F\"=dword:0000000g"s, "garbage"s, "\"N\"=\"not closed"s, "x\0"s})
        EXPECT_EQ(told(Head + block("0", line + "\r\n") + block("1", "")), "0!:/1:/") << line;
}

TEST(EditorsExport, IsReadInBothVersions) {
    const std::string lines =
        "\"N\"=\"C:\\\\a \\\"b\\\"\" ; c\r\n\"L\"=\"a\\r\\nb\"\r\n  \"F\" = dword:1f\r\n\"B\"=hex:01,\\\r\n"
        "  a0\r\n@=\"d\"\r\n\"M\"=hex(7):41,00\r\n";
    const std::string expected = "0:N=C:\\a \"b\"|L=a\r\nb|F=#31|B=(3) 1 160|=d|M=(7) 65 0|/";
    EXPECT_EQ(told("REGEDIT4\r\n\r\n" + block("0", lines)), expected);
    std::string wide = "\xFF\xFE";
    for (const char c : "Windows Registry Editor Version 5.00\r\n\r\n" + block("0", lines)) wide += {c, '\0'};
    EXPECT_EQ(told(wide), expected);
    const std::string accent = "\"\0X\0\"\0=\0\"\0\xE9\0\"\0\r\0\n\0"s;
    EXPECT_EQ(told(wide + accent), expected.substr(0, expected.size() - 1) + "X=??|/");
    // Each of ours is followed by any of theirs.
    EXPECT_EQ(told(Head + block("0", "\"D\"=\"a\\\\b\"\r\n") + "REGEDIT4\r\n" + block("1", "\"D\"=\"a\\\\b\"\r\n")),
              "0:D=a\\\\b|/1:D=a\\b|/");
}

TEST(ZonesExport, RefusesWhatTouchesAnythingElseOrDeletes) {
    const std::string inText = "\"D\"=\"a\r\n";
    const std::pair<std::string, std::string> refused[] = {
        {"[HKEY_LOCAL_MACHINE\\Software\\X]\r\n", "HKEY_LOCAL_MACHINE\\Software\\X"},
        {" \t[hkey_current_user\\Software] x\r\n", "hkey_current_user\\Software"},
        {"[" + Zones + "\\1\\Key]\r\n", Zones + "\\1\\Key"},
        {"[" + Zones + "\\]\r\n", Zones + "\\"},
        {"[" + Zones + "Map\\1]\r\n", Zones + "Map\\1"},
        {"[anything]\r\n", "anything"},
        {"[-" + Zones + "\\1]\r\n", Zones + "\\1"},
        {"[HKEY_USERS\\x\r\n", "HKEY_USERS\\x"},
        {"\"F\"=-\r\n", Zones + "\\0\\F"},
        {" @ = - \r\n", Zones + "\\0\\"},
        {inText + "[HKEY_LOCAL_MACHINE\\X]\r\n\"Run\"=\"b\"\r\n", "HKEY_LOCAL_MACHINE\\X"},
        {inText + " [-HKEY_LOCAL_MACHINE\\X]\"\r\n", "HKEY_LOCAL_MACHINE\\X"},
        {inText + " [hkey_local_machine\\X]\"\r\n", "hkey_local_machine\\X"},
        {inText + "\"F\"=-\r\n\"\r\n", Zones + "\\0\\F"},
        {"\"B\"=hex:01,\\\r\n[HKEY_USERS]\r\n", "HKEY_USERS"},
        {"\"D\"=\"a"s + '\0' + "[HKEY_USERS]\"\r\n", "HKEY_USERS"},
    };
    for (const std::string& head : {Head, "REGEDIT4\r\n\r\n"s}) {
        for (const auto& [lines, key] : refused)
            EXPECT_EQ(readZonesExport(head + block("0", lines)).forbidden, key) << lines;
        for (const std::string& line : {"[" + Zones + "\\5]", "[hkey_current_user" + Zones.substr(17) + "\\5]",
                                        "[" + Zones + "\\Mine]", "[" + Zones.substr(0, 20), "["s})
            EXPECT_FALSE(readZonesExport(head + line).forbidden) << line;
    }
    EXPECT_FALSE(readZonesExport(Head + block("0", inText + "[x] and [-y]\r\n[z]\"\r\n")).forbidden);
}
