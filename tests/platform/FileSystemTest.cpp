// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <cerrno>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/FileTags.h"
#include "platform/Path.h"
#include "platform/ReadFailures.h"
#include "platform/Surroundings.h"

namespace marquell::platform {
namespace {

using testing::ElementsAre;
using testing::Pair;

std::map<std::string, DirectoryEntryKind> entries(const std::string& path, int expected = 0) {
    std::map<std::string, DirectoryEntryKind> found;
    const int error = readDirectory(path, true, [&found](int, const char* name, auto kind) {
        found.emplace(name, kind);
        return true;
    });
    EXPECT_EQ(error, expected);
    return found;
}

bool setTags(int file, const std::string& value) {
    return ::fsetxattr(file, "user.xdg.tags", value.data(), value.size(), 0) == 0;
}

TEST(FileSystem, ReachesPathsThatTheKernelRefuses) {
    const tests::TemporaryFolder folder;
    // Every length around the kernel's limit, and folders far behind it.
    for (const std::size_t depth : {15U, 40U}) {
        std::string path = folder / std::to_string(depth);
        FileDescriptor here(::open(folder.path().c_str(), O_RDONLY));
        const auto enter = [&here](const std::string& name) {
            ASSERT_EQ(::mkdirat(here.get(), name.c_str(), 0700), 0);
            here = FileDescriptor(::openat(here.get(), name.c_str(), O_RDONLY));
        };
        enter(std::to_string(depth));
        while (path.size() < depth * 250) {
            enter(std::string(250, 'd'));
            path += "/" + std::string(250, 'd');
        }
        for (std::size_t length = 1; length <= 255; ++length) {
            const std::string name(length, 'f');
            const FileDescriptor file(::openat(here.get(), name.c_str(), O_CREAT | O_WRONLY, 0600));
            ASSERT_EQ(::write(file.get(), name.data(), length), static_cast<ssize_t>(length));
            const bool hasTags = setTags(file.get(), name + ", b");
            const std::string whole = joinPath(path, name);
            int error = 0;
            const auto attributes = attributesOf(whole, error);
            ASSERT_TRUE(attributes) << whole.size();
            EXPECT_EQ(attributes->size, static_cast<std::int64_t>(length));
            EXPECT_EQ(kindOf(whole), EntryKind::other);
            EXPECT_TRUE(openPath(whole, O_RDONLY, error).isOpen());
            const std::vector<std::string> tags{name, "b"};
            EXPECT_EQ(fileTags(whole), hasTags ? tags : std::vector<std::string>());
            EXPECT_FALSE(entryExists(whole + "/x", error));
            EXPECT_EQ(error, ENOTDIR);
        }
        EXPECT_EQ(entries(path).size(), 255U);
        int error = 0;
        EXPECT_FALSE(attributesOf(path + "/" + std::string(5000, 'x') + "/y", error));
        EXPECT_EQ(error, ENAMETOOLONG);
    }
}

TEST(FileSystem, TellsLinksFromWhatTheyLeadTo) {
    const tests::TemporaryFolder folder;
    tests::writeFile(folder / "file", "12345");
    std::filesystem::create_directory(folder / "folder");
    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
    using Link = std::pair<const char*, const char*>;
    for (const auto& [target, name] : {Link{"file", "to-file"}, Link{"folder", "to-folder"},
                                       Link{"gone", "dangling"}, Link{"loop", "loop"}}) {
        std::filesystem::create_symlink(target, folder / name);
    }
    using Kind = DirectoryEntryKind;
    EXPECT_THAT(entries(folder.path()),
                ElementsAre(Pair("dangling", Kind::link), Pair("fifo", Kind::other),
                            Pair("file", Kind::other), Pair("folder", Kind::folder),
                            Pair("loop", Kind::link), Pair("to-file", Kind::link),
                            Pair("to-folder", Kind::link)));
    const FileDescriptor opened(::open(folder.path().c_str(), O_RDONLY));
    int error = 0;
    for (const char* name : {"to-file", "to-folder", "dangling", "loop"}) {
        EXPECT_TRUE(entryExists(folder / name, error));
        EXPECT_EQ(linkLeadsToFolder(opened.get(), name), name == std::string("to-folder"));
    }
    EXPECT_EQ(attributesOf(folder / "to-file", error)->size, 4) << "the length of the link's text";
    EXPECT_EQ(kindOf(folder / "to-folder"), EntryKind::folder);
    EXPECT_EQ(kindOf(folder / "fifo"), EntryKind::other);
    EXPECT_EQ(kindOf(folder / "dangling"), EntryKind::missing);
    EXPECT_EQ(kindOf(folder / "loop"), EntryKind::missing);
    const auto never = [](int, const char*, Kind) { return false; };
    EXPECT_EQ(readDirectory(folder / "to-folder", true, never), 0);
    EXPECT_EQ(readDirectory(folder / "to-folder", false, never), ENOTDIR);
    EXPECT_EQ(readDirectory(folder / "fifo", true, never), ENOTDIR);
    EXPECT_EQ(readDirectory(folder / "gone", true, never), ENOENT);
}

TEST(FileTags, AreTheNamesBetweenTheCommas) {
    const tests::TemporaryFolder folder;
    std::vector<std::pair<std::string, int>> failures;
    setReadFailureListener([&failures](std::string_view path, const std::error_code& why) {
        failures.emplace_back(path, why.value());
    });
    tests::writeFile(folder / "file", "");
    std::filesystem::create_symlink("file", folder / "link");
    std::filesystem::create_symlink("gone", folder / "dangling");
    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
    for (const char* name : {"file", "dangling", "fifo"}) {
        EXPECT_THAT(fileTags(folder / name), ElementsAre()) << name;
    }
    EXPECT_THAT(failures, ElementsAre());
    fileTags(folder / "gone");
    EXPECT_THAT(failures, ElementsAre(Pair(folder / "gone", ENOENT)));
    setReadFailureListener({});
    const FileDescriptor file(::open((folder / "file").c_str(), O_RDONLY));
    if (!setTags(file.get(), "")) GTEST_SKIP() << "no extended attributes here";
    const std::string large(3000, 'x');  // most file systems keep up to a block
    for (const auto& [value, tags] :
         std::map<std::string, std::vector<std::string>>{{"", {}},
                                                         {" ,, ,", {}},
                                                         {"a", {"a"}},
                                                         {" b b ,a,a\t", {"b b", "a", "a"}},
                                                         {large + ",é", {large, "é"}},
                                                         {"\xff", {"\xff"}}}) {
        ASSERT_TRUE(setTags(file.get(), value));
        EXPECT_EQ(fileTags(folder / "link"), tags);
    }
}

}  // namespace
}  // namespace marquell::platform
