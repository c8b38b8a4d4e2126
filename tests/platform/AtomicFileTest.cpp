// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <string>
#include <thread>
#include <utility>

#include "platform/AtomicFile.h"
#include "platform/DescriptorIo.h"
#include "platform/FileDescriptor.h"
#include "platform/FileSystem.h"
#include "platform/Surroundings.h"

namespace marquell::platform {
namespace {

using testing::ElementsAre;

mode_t modeOf(const std::string& path) {
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

std::string readToEnd(int descriptor) {
    std::string all;
    char block[4096];
    for (ssize_t n = 0; (n = ::read(descriptor, block, sizeof block)) > 0;) {
        all.append(block, static_cast<std::size_t>(n));
    }
    return all;
}

TEST(AtomicFile, ReplacesWhatALinkLeadsToAndKeepsItsMode) {
    const tests::TemporaryFolder folder;
    std::filesystem::create_directory(folder / "there");
    tests::writeFile(folder / "there/file", "a longer text from before");
    ASSERT_EQ(::chmod((folder / "there/file").c_str(), 0751), 0);
    std::filesystem::create_symlink("there/second", folder / "first");
    std::filesystem::create_symlink("../there/file", folder / "there/second");
    EXPECT_EQ(writeFileAtomically(folder / "first", "new"), 0);
    EXPECT_EQ(tests::contentOf(folder / "there/file"), "new");
    EXPECT_EQ(modeOf(folder / "there/file"), 0751U);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "first"));

    std::filesystem::create_symlink(folder / "there/made", folder / "dangling");
    const mode_t mask = ::umask(027);
    EXPECT_EQ(writeFileAtomically(folder / "dangling", ""), 0);
    EXPECT_EQ(writeFileAtomically(folder / std::string(255, 'n'), "long name"), 0);
    ::umask(mask);
    EXPECT_EQ(modeOf(folder / "there/made"), 0640U);
    EXPECT_THAT(folder.names(), ElementsAre("dangling", "first", std::string(255, 'n'), "there"));
}

TEST(AtomicFile, LeavesTheOldFileAndNothingElseOnFailure) {
    const tests::TemporaryFolder folder;
    tests::writeFile(folder / "file", "old");
    std::filesystem::create_directory(folder / "folder");
    std::filesystem::create_symlink("loop", folder / "loop");
    const auto before = folder.names();
    using Row = std::pair<std::string, int>;
    for (const auto& [name, error] :
         {Row{"folder", EISDIR}, Row{"missing/x", ENOENT}, Row{"missing/", ENOENT},
          Row{"file/x", ENOTDIR}, Row{"file/", ENOTDIR}, Row{"loop", ELOOP},
          Row{std::string(256, 'n'), ENAMETOOLONG}, Row{std::string(5000, '/'), ENAMETOOLONG}}) {
        EXPECT_EQ(writeFileAtomically(folder / name, "new"), error) << name;
    }
    const ByteSource broken = [](const ByteSink& sink) { return sink("part") == 0 ? EPROTO : 0; };
    EXPECT_EQ(writeFileAtomically(folder / "file", broken), EPROTO);
    if (::geteuid() != 0) {
        ASSERT_EQ(::chmod(folder.path().c_str(), 0500), 0);
        EXPECT_EQ(writeFileAtomically(folder / "file", "new"), EACCES);
        ASSERT_EQ(::chmod(folder.path().c_str(), 0700), 0);
    }
    EXPECT_EQ(folder.names(), before);
    EXPECT_EQ(tests::contentOf(folder / "file"), "old");
}

struct AccessEntry {
    std::uint16_t tag;
    std::uint16_t permissions;
    std::uint32_t id;
};

bool setAccess(const std::string& path, const char* name, std::uint16_t ofGroup,
               std::uint16_t ofNamed) {
    constexpr std::uint32_t nobody = UINT32_MAX;
    const std::uint32_t version = 2;
    const std::array<AccessEntry, 5> entries = {{{0x01, 6, nobody},  // owner
                                                 {0x02, ofNamed, 12345},
                                                 {0x04, ofGroup, nobody},
                                                 {0x10, 6, nobody},  // mask
                                                 {0x20, 0, nobody}}};
    std::string list(reinterpret_cast<const char*>(&version), sizeof version);
    list.append(reinterpret_cast<const char*>(entries.data()), sizeof entries);
    return ::setxattr(path.c_str(), name, list.data(), list.size(), 0) == 0;
}

std::string attribute(const std::string& path, const char* name) {
    int error = 0;
    return extendedAttribute(path, name, error).value_or("none");
}

TEST(AtomicFile, OpensTheNewFileToNobodyElse) {
    const tests::TemporaryFolder folder;
    const std::string path = folder / "file";
    tests::writeFile(path, "old");
    if (!setAccess(path, "system.posix_acl_access", 0, 6)) GTEST_SKIP() << "no access lists here";
    const std::string list = attribute(path, "system.posix_acl_access");
    EXPECT_EQ(writeFileAtomically(path, "new"), 0);
    EXPECT_EQ(attribute(path, "system.posix_acl_access"), list);
    EXPECT_EQ(modeOf(path), 0660U);

    ASSERT_TRUE(setAccess(folder.path(), "system.posix_acl_default", 6, 6));
    ASSERT_EQ(::removexattr(path.c_str(), "system.posix_acl_access"), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    EXPECT_EQ(writeFileAtomically(path, "newer"), 0);
    EXPECT_EQ(attribute(path, "system.posix_acl_access"), "none") << "the folder's default";
    EXPECT_EQ(modeOf(path), 0640U);
}

TEST(AtomicFile, KeepsWhatTheUserAttachedToTheFile) {
    const tests::TemporaryFolder folder;
    const std::string path = folder / "file";
    tests::writeFile(path, "old");
    if (::setxattr(path.c_str(), "user.xdg.tags", "a,b", 3, 0) != 0) {
        GTEST_SKIP() << "no extended attributes here";
    }
    EXPECT_EQ(writeFileAtomically(path, "new"), 0);
    EXPECT_EQ(attribute(path, "user.xdg.tags"), "a,b");
}

TEST(AtomicFile, WritesStraightToWhatIsNoRegularFile) {
    EXPECT_EQ(writeFileAtomically("/dev/null", "x"), 0);
    EXPECT_EQ(writeFileAtomically("/dev/full", "x"), ENOSPC);
    const tests::TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
    std::string received;
    std::thread reader([&] { received = tests::contentOf(folder / "fifo"); });
    EXPECT_EQ(writeFileAtomically(folder / "fifo", "through"), 0);
    reader.join();
    EXPECT_EQ(received, "through");
    EXPECT_TRUE(std::filesystem::is_fifo(folder / "fifo"));

    tests::writeFile(folder / "log", "header\n");
    const FileDescriptor log(::open((folder / "log").c_str(), O_WRONLY | O_APPEND));
    const std::string number = std::to_string(log.get());
    std::filesystem::create_symlink("/dev/fd/" + number, folder / "link");
    EXPECT_EQ(writeFileAtomically("/proc/self/fd/" + number, "a"), 0);
    EXPECT_EQ(writeFileAtomically(folder / "link", "b"), 0);
    EXPECT_EQ(tests::contentOf(folder / "log"), "header\nab");
    EXPECT_EQ(writeFileAtomically("/dev/fd/999", "x"), EBADF);
}

TEST(AtomicFile, WaitsForAReaderThatIsSlowerThanTheWriter) {
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_NONBLOCK), 0);
    ASSERT_EQ(::fcntl(ends[0], F_SETFL, 0), 0);
    const std::string large(1'000'000, 'x');
    std::string received;
    std::thread reader([&] { received = readToEnd(ends[0]); });
    EXPECT_EQ(writeAll(ends[1], large), 0);
    ::close(ends[1]);
    reader.join();
    ::close(ends[0]);
    EXPECT_EQ(received, large);
}

}  // namespace
}  // namespace marquell::platform
