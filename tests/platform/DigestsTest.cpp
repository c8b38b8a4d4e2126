// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "platform/FileDigests.h"
#include "platform/ReadFailures.h"
#include "platform/Surroundings.h"
#include "platform/Workers.h"

namespace marquell::platform {
namespace {

const DigestSet everything = DigestSet().set();
const std::function<bool()> never = [] { return false; };

std::error_code systemError(int number) { return {number, std::generic_category()}; }

std::string someBytes(std::size_t count, unsigned seed = 1) {
    std::string bytes(count, '\0');
    for (char& byte : bytes) {
        seed = seed * 1664525 + 1013904223;
        byte = static_cast<char>(seed >> 24U);
    }
    return bytes;
}

/// Of bytes that come in one piece, on one thread.
DigestTexts plainDigests(std::string_view bytes, DigestSet wanted = everything) {
    DigestTexts texts;
    for (std::size_t i = 0; i < digestCount; ++i) {
        if (!wanted.test(i)) continue;
        Digest digest(static_cast<DigestAlgorithm>(i));
        digest.update(bytes);
        texts[i] = digest.finish();
    }
    return texts;
}

TEST(Digests, AreThePublishedOnes) {
    const DigestTexts ofNothing{"d41d8cd98f00b204e9800998ecf8427e",
                                "da39a3ee5e6b4b0d3255bfef95601890afd80709",
                                "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855",
                                "38b060a751ac96384cd9327eb1b1e36a21fdb71114be07434c0cc7bf63f6e1da"
                                "274edebfe76f65fbd51ad2f14898b95b",
                                "cf83e1357eefb8bdf1542850d66d8007d620e4050b5715dc83f4a921d36ce9ce"
                                "47d0d13c5d85f2b0ff8318d2877eec2f63b931bd47417a81a538327af927da3e"};
    const DigestTexts ofAbc{"900150983cd24fb0d6963f7d28e17f72",
                            "a9993e364706816aba3e25717850c26c9cd0d89d",
                            "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad",
                            "cb00753f45a35e8bb5a03d699ac65007272c32ab0eded1631a8b605a43ff5bed"
                            "8086072ba1e7cc2358baeca134c825a7",
                            "ddaf35a193617abacc417349ae20413112e6fa4e89a97ea20a9eeee64b55d39a"
                            "2192992a274fc1a836ba3c23a3feebbd454d4423643ce80e2a9ac94fa54ca49f"};
    EXPECT_EQ(plainDigests(""), ofNothing);
    EXPECT_EQ(plainDigests("abc"), ofAbc);
}

class FileDigestsTest : public testing::Test {
protected:
    void TearDown() override { setWorkerCount(workers_); }

    /// A file whose last change is long ago, so that the next one shows whatever the clock's step.
    void write(const std::string& bytes) const {
        tests::writeFile(path, bytes);
        std::filesystem::last_write_time(path, {});
    }

    const tests::TemporaryFolder folder;
    const std::string path = folder / "file";

private:
    const unsigned workers_ = workerCount();
};

TEST_F(FileDigestsTest, AreThoseOfTheBytesWhateverTheSizeAndTheThreads) {
    const std::string bytes = someBytes(2 * digestChunkSize + 1);
    // Around the blocks of the algorithms, of the sharing among threads and of the reading.
    for (const std::size_t edge :
         {std::size_t{1}, std::size_t{56}, std::size_t{64}, std::size_t{112}, std::size_t{128},
          digestChunkSize / 4, digestChunkSize, digestChunkSize + digestChunkSize / 4,
          2 * digestChunkSize}) {
        for (const std::size_t size : {edge - 1, edge, edge + 1}) {
            const std::string_view content = std::string_view(bytes).substr(0, size);
            write(std::string(content));
            for (const unsigned workers : {1U, 2U, 9U}) {
                setWorkerCount(workers);
                const FileDigests made = digestsOfFile(path, everything, never);
                EXPECT_FALSE(made.error);
                EXPECT_EQ(made.texts, plainDigests(content)) << size << " bytes, " << workers;
            }
        }
    }
    for (unsigned long wanted = 0; wanted < 32; ++wanted) {
        EXPECT_EQ(digestsOfFile(path, wanted, never).texts, plainDigests(bytes, wanted)) << wanted;
    }
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i) {
        startThread(threads, [&] {
            EXPECT_EQ(digestsOfFile(path, everything, never).texts, plainDigests(bytes));
        });
    }
    for (std::thread& thread : threads) thread.join();
}

TEST_F(FileDigestsTest, StopSoonInAFileOfAnySize) {
    write("");
    std::filesystem::resize_file(path, std::uintmax_t{5} << 30U);
    for (const int last : {1, 3}) {
        int asked = 0;
        const FileDigests made = digestsOfFile(path, everything, [&] { return ++asked == last; });
        EXPECT_TRUE(made.isStopped);
        EXPECT_EQ(made.texts, DigestTexts());
        EXPECT_EQ(asked, last);
    }
}

TEST_F(FileDigestsTest, AreNeverThoseOfAContentThatWasNeverThere) {
    const std::string before = someBytes(2 * digestChunkSize);
    const std::string other = someBytes(before.size(), 2);
    const std::vector<std::string> afterwards{before + "x", before.substr(1), "", other,
                                              other + other + other};
    for (const std::string& after : afterwards) {
        for (const int at : {1, 2, 3}) {  // before each chunk, and where only the end is left
            write(before);
            int asked = 0;
            const FileDigests made = digestsOfFile(path, everything, [&] {
                if (++asked == at) tests::writeFile(path, after);
                return false;
            });
            EXPECT_FALSE(made.error);
            EXPECT_EQ(made.texts, plainDigests(after)) << after.size() << " bytes at " << at;
        }
    }
    // One that changes all the time is given up, also if it grows faster than it is read.
    write(before);
    int asked = 0;
    const FileDigests made = digestsOfFile(path, everything, [&] {
        std::filesystem::resize_file(path, std::filesystem::file_size(path) + 2 * digestChunkSize);
        return ++asked > 100;
    });
    EXPECT_EQ(made.error, ReadFailure::changedMeanwhile);
    EXPECT_EQ(made.texts, DigestTexts());
}

TEST_F(FileDigestsTest, TellNothingToDigestFromFailures) {
    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
    const std::vector<std::string> contentless{folder / "fifo",
                                               folder.path(),
                                               "/dev/zero",
                                               "/proc/self/status",
                                               "/proc/self/maps",
                                               "/proc/kcore",
                                               "/sys/kernel/mm/transparent_hugepage/enabled",
                                               "/sys/fs/cgroup/cgroup.controllers"};
    for (const std::string& entry : contentless) {
        if (::access(entry.c_str(), R_OK) != 0) continue;
        int asked = 0;
        const FileDigests made = digestsOfFile(entry, everything, [&] { return ++asked > 9; });
        EXPECT_EQ(made.texts, DigestTexts()) << entry;
        EXPECT_FALSE(made.error) << entry;
        EXPECT_FALSE(made.isStopped) << entry;
    }
    EXPECT_EQ(digestsOfFile(folder / "gone", everything, never).error, systemError(ENOENT));
    if (::geteuid() == 0) GTEST_SKIP() << "root may read everything";
    write("secret");
    std::filesystem::permissions(path, std::filesystem::perms::none);
    EXPECT_EQ(digestsOfFile(path, everything, never).error, systemError(EACCES));
}

}  // namespace
}  // namespace marquell::platform
