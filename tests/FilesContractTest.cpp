// What the program may rely on in files and folders, in memory and on the system's own disks.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/TestSystem.h"

using namespace platform;

namespace {

class FilesContract : public testing::Test {
protected:
    TestSystem system;
    Files& files = system.platform().files;
    std::uint32_t written = 0;

    void TearDown() override { EXPECT_EQ(system.files.openSearches(), 0) << "a search was left open"; }

    std::vector<std::string> search(const std::string& wildcard) {
        std::vector<std::string> names = system.filesIn(system.programFolder(), wildcard);
        std::ranges::sort(names);
        return names;
    }
    Result firstCode(const std::string& pattern) {
        FoundFile found;
        Files::Search search = 99;
        const Result code = files.findFirst(pattern, search, found);
        EXPECT_EQ(search == 0, code != Success);
        files.findClose(search);
        return code;
    }
};

}  // namespace

TEST_F(FilesContract, WhatIsWrittenIsReadBack) {
    std::string all(70000, '\0');
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<char>(i * 7);
    const std::string path = system.path("bytes");
    for (const std::size_t size : {std::size_t{70000}, std::size_t{1}, std::size_t{0}}) {
        EXPECT_EQ(files.create(path, all.substr(0, size), written), Success);
        EXPECT_EQ(written, size);
        std::string read = "old";
        EXPECT_EQ(files.read(path, read), Success);
        EXPECT_EQ(read, all.substr(0, size)) << size;
        EXPECT_EQ(files.read(path, read, 6), Success);
        EXPECT_EQ(read, all.substr(0, std::min<std::size_t>(size, 6)));
    }
}

TEST_F(FilesContract, AppendingMakesTheFileAndGoesOnAtItsEnd) {
    const std::string path = system.path("log");
    EXPECT_EQ(files.append(path, "one\r\n", written), Success);
    EXPECT_EQ(files.append(path, "two", written), Success);
    EXPECT_EQ(written, 3u);
    EXPECT_EQ(system.readFile("LOG"), "one\r\ntwo") << "under any case of its name";
    EXPECT_EQ(files.remove(system.path("LOG")), Success);
    EXPECT_EQ(search("*"), std::vector<std::string>{});
}

TEST_F(FilesContract, MissingFilesAndFoldersAreToldApart) {
    const std::string file = system.path("absent"), below = system.path("absent\\file");
    std::string bytes;
    std::uint32_t bits = 0;
    EXPECT_EQ(files.read(file, bytes), FileNotFound);
    EXPECT_EQ(files.read(below, bytes), PathNotFound);
    EXPECT_EQ(files.attributes(file, bits), FileNotFound);
    EXPECT_EQ(files.attributes(below, bits), PathNotFound);
    EXPECT_EQ(files.remove(file), FileNotFound);
    EXPECT_EQ(files.remove(below), PathNotFound);
    EXPECT_EQ(files.create(below, "x", written), PathNotFound);
    EXPECT_EQ(files.append(below, "x", written), PathNotFound);
    EXPECT_EQ(files.createFolder(below), PathNotFound);
    EXPECT_EQ(written, 0u);
    EXPECT_EQ(firstCode(file), FileNotFound);
    EXPECT_EQ(firstCode(system.path("*.absent")), FileNotFound);
    EXPECT_EQ(firstCode(system.path("absent\\*")), PathNotFound);
}

TEST_F(FilesContract, AFolderIsNoFile) {
    const std::string folder = system.path("Logs");
    ASSERT_EQ(files.createFolder(folder), Success);
    EXPECT_EQ(files.createFolder(folder), AlreadyExists);
    std::uint32_t bits = 0;
    EXPECT_EQ(files.attributes(folder, bits), Success);
    EXPECT_TRUE(bits & FileAttributeDirectory);
    std::string bytes;
    EXPECT_EQ(files.read(folder, bytes), AccessDenied);
    EXPECT_EQ(files.create(folder, "x", written), AccessDenied);
    EXPECT_EQ(files.append(folder, "x", written), AccessDenied);
    EXPECT_EQ(files.remove(folder), AccessDenied);

    system.writeFile("file", "x");
    EXPECT_EQ(files.attributes(system.path("file"), bits), Success);
    EXPECT_FALSE(bits & FileAttributeDirectory);
    EXPECT_EQ(files.createFolder(system.path("file")), AlreadyExists);
}

TEST_F(FilesContract, ASearchFindsWhatItsWildcardSays) {
    for (const char* name : {"b.tvf", "A.TVF", "c.reg", "no extension"}) system.writeFile(name, "");
    ASSERT_EQ(files.createFolder(system.path("d.tvf")), Success);
    const std::pair<const char*, std::vector<std::string>> rows[] = {
        {"*.tvf", {"A.TVF", "b.tvf", "d.tvf"}},
        {"?.reg", {"c.reg"}},
        {"*.*", {"A.TVF", "b.tvf", "c.reg", "d.tvf", "no extension"}},
        {"B.TVF", {"b.tvf"}},
        {"no*", {"no extension"}},
    };
    for (const auto& [wildcard, names] : rows) EXPECT_EQ(search(wildcard), names) << wildcard;

    FoundFile found;
    Files::Search search = 0;
    ASSERT_EQ(files.findFirst(system.path("d*"), search, found), Success);
    EXPECT_TRUE(found.attributes & FileAttributeDirectory);
    EXPECT_EQ(files.findNext(search, found), NoMoreItems);
    files.findClose(search);
    EXPECT_EQ(files.findNext(search, found), InvalidHandle);
}
