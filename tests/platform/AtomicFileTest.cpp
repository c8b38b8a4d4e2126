// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <string>
#include <thread>
#include <utility>

#include "platform/AtomicFile.h"
#include "platform/DescriptorIo.h"
#include "platform/FileDescriptor.h"
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

TEST(AtomicFile, LeavesTheOldFileWhenTheDiskTakesOnlyAPart) {
    const tests::TemporaryFolder folder;
    tests::writeFile(folder / "file", "old");
    const std::string path = folder / "file";
    const std::string large(300'000, 'x');
    const pid_t child = ::fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {100'000, 100'000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::_exit(writeFileAtomically(path, large) == EFBIG ? 7 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 7) << status;
    EXPECT_THAT(folder.names(), ElementsAre("file"));
    EXPECT_EQ(tests::contentOf(path), "old");
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
