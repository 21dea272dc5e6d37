// What the program may rely on in files and folders, in memory and on the system's own disks.
#include <gtest/gtest.h>

#include "support/TestSystem.h"

using namespace platform;

namespace {

class FilesContract : public testing::Test {
protected:
    TestSystem system;
    Files& files = system.platform().files;
    std::uint32_t written = 0, bits = 0;
    std::string bytes;

    void TearDown() override { EXPECT_EQ(system.files.openSearches(), 0) << "a search was left open"; }
};

}  // namespace

TEST_F(FilesContract, WhatIsWrittenIsReadBackAndAppendedTo) {
    std::string all(70000, '\0');
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<char>(i * 7);
    const std::string path = system.path("bytes");
    for (const std::size_t size : {70000u, 1u, 0u}) {
        EXPECT_EQ(files.create(path, all.substr(0, size), written), Success);
        EXPECT_EQ(written, size);
        for (const std::size_t limit : {Files::Whole, std::size_t{6}}) {
            EXPECT_EQ(files.read(path, bytes, limit), Success);
            EXPECT_EQ(bytes, all.substr(0, std::min(size, limit))) << size;
        }
    }
    for (const char* name : {"log", "LOG"}) EXPECT_EQ(files.append(system.path(name), "one", written), Success);
    EXPECT_EQ(written, 3u);
    EXPECT_EQ(system.readFile("log"), "oneone") << "under any case of its name";
    EXPECT_EQ(files.remove(system.path("Log")), Success);
    EXPECT_EQ(system.filesIn(system.programFolder()), std::vector<std::string>{"bytes"});
}

TEST_F(FilesContract, AMissingFileAMissingFolderAndAFolderAreToldApart) {
    ASSERT_EQ(files.createFolder(system.path("Logs")), Success);
    const std::tuple<const char*, Result, Result, Result> rows[] = {
        // used, made, listed
        {"absent\\file", PathNotFound, PathNotFound, PathNotFound},
        {"absent", FileNotFound, Success, FileNotFound},
        {"Logs", AccessDenied, AccessDenied, Success},
    };
    for (const auto& [name, used, made, listed] : rows) {
        SCOPED_TRACE(name);
        const std::string path = system.path(name);
        FoundFile found;
        Files::Search search = 99;
        EXPECT_EQ(files.findFirst(path, search, found), listed);
        EXPECT_EQ(search == 0, listed != Success);
        files.findClose(search);
        EXPECT_EQ(files.attributes(path, bits), listed);
        EXPECT_EQ(files.read(path, bytes), used);
        EXPECT_EQ(files.remove(path), used);
        EXPECT_EQ(files.create(path, "", written), made);
        EXPECT_EQ(files.append(path, "", written), made);
        EXPECT_EQ(files.createFolder(path), made == PathNotFound ? PathNotFound : AlreadyExists);
    }
    EXPECT_TRUE(bits & FileAttributeDirectory);
    EXPECT_EQ(files.attributes(system.path("absent"), bits), Success);
    EXPECT_FALSE(bits & FileAttributeDirectory);
}

TEST_F(FilesContract, ASearchFindsWhatItsWildcardSays) {
    for (const char* name : {"b.tvf", "A.TVF", "c.reg", "no extension"}) system.writeFile(name, "");
    ASSERT_EQ(files.createFolder(system.path("d.tvf")), Success);
    const std::pair<const char*, std::vector<std::string>> rows[] = {
        {"*.tvf", {"A.TVF", "b.tvf", "d.tvf"}},
        {"?.reg", {"c.reg"}},
        {"*.*", {"A.TVF", "b.tvf", "c.reg", "d.tvf", "no extension"}},
        {"B.TVF", {"b.tvf"}},
        {"*.absent", {}},
    };
    for (const auto& [wildcard, expected] : rows) {
        std::vector<std::string> names = system.filesIn(system.programFolder(), wildcard);
        std::ranges::sort(names);
        EXPECT_EQ(names, expected) << wildcard;
    }
    FoundFile found;
    Files::Search search = 0;
    ASSERT_EQ(files.findFirst(system.path("d*"), search, found), Success);
    EXPECT_TRUE(found.attributes & FileAttributeDirectory);
    EXPECT_EQ(files.findNext(search, found), NoMoreItems);
    files.findClose(search);
    EXPECT_EQ(files.findNext(search, found), InvalidHandle);
}
