// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/RegularFile.h"
#include "platform/Surroundings.h"

namespace marquell::platform {
namespace {

TEST(RegularFile, OpensNothingElse) {
    const tests::TemporaryFolder folder;
    tests::writeFile(folder / "file", "content");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink("file", folder / "link");
    std::filesystem::create_symlink("nowhere", folder / "dangling");
    std::filesystem::create_symlink("pipe", folder / "link to pipe");
    struct Case {
        std::string path;
        bool isOpen;
        int error;
    };
    const std::vector<Case> cases = {
        {folder / "file", true, 0},      {folder / "link", true, 0},
        {folder / "pipe", false, 0},     {folder / "link to pipe", false, 0},
        {folder.path(), false, 0},       {"/dev/null", false, 0},
        {folder / "dangling", false, 0}, {folder / "file/x", false, ENOTDIR},
        {"/proc/self/status", true, 0},
    };
    for (const auto& [path, isOpen, expected] : cases) {
        int error = -1;
        const RegularFile file = openRegularFile(path, error);
        EXPECT_EQ(file.descriptor.isOpen(), isOpen) << path;
        EXPECT_EQ(error, expected) << path;
        if (path == cases[1].path) {
            EXPECT_EQ(file.status.st_size, 7);
        }
    }
}

TEST(RegularFile, IsReachedBehindPathsThatTheKernelRefuses) {
    const tests::TemporaryFolder folder;
    std::string path = folder.path();
    FileDescriptor here;
    int error = 0;
    while (path.size() < 6000) {
        here = openPath(path, O_RDONLY, error);
        ASSERT_EQ(::mkdirat(here.get(), std::string(250, 'd').c_str(), 0700), 0);
        path += "/" + std::string(250, 'd');
    }
    here = openPath(path, O_RDONLY, error);
    const FileDescriptor made(::openat(here.get(), "file", O_CREAT | O_WRONLY, 0600));
    EXPECT_TRUE(openRegularFile(path + "/file", error).descriptor.isOpen());
    EXPECT_EQ(error, 0);
    EXPECT_FALSE(openRegularFile(path + "/none", error).descriptor.isOpen());
    EXPECT_EQ(error, ENOENT);
}

}  // namespace
}  // namespace marquell::platform
