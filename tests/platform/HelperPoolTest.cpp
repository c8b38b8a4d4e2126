// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <map>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/FileDescriptor.h"
#include "platform/HelperPool.h"
#include "platform/RegularFile.h"
#include "platform/Surroundings.h"

namespace marquell::platform {
namespace {

using namespace std::chrono_literals;
using testing::Each;
using testing::Pair;

constexpr auto never = [] { return false; };

std::size_t openDescriptors() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

/// Whether a process ends within the time, reaped or not.
bool endsWithin(std::chrono::milliseconds time, int process) {
    const FileDescriptor handle(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
    if (!handle.isOpen()) return errno == ESRCH;
    pollfd end = {handle.get(), POLLIN, 0};
    return ::poll(&end, 1, static_cast<int>(time.count())) == 1;
}

/// How a job ended, and the first of its properties.
using Result = std::pair<HelperOutcome, std::string>;

class HelperPoolTest : public testing::Test {
protected:
    HelperPoolTest() {
        settings_.program = MARQUELL_MISBEHAVING_HELPER;
        settings_.arguments = {log_};
        int error = 0;
        openRegularFile(folder_ / "none", error);  // closes folders that another test kept open
        descriptors_ = openDescriptors();
    }

    void TearDown() override {
        EXPECT_EQ(openDescriptors(), descriptors_);
        EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a process is left";
    }

    HelperJob job(const std::string& name, const std::string& content) const {
        tests::writeFile(folder_ / name, content);
        return {folder_ / name, "x"};
    }

    /// Jobs for files with these contents, in files of their own.
    std::vector<HelperJob> jobs(const std::vector<std::string>& contents,
                                const std::string& prefix = "f") const {
        std::vector<HelperJob> all;
        for (const std::string& content : contents) {
            all.push_back(job(prefix + std::to_string(all.size()), content));
        }
        return all;
    }

    /// Reads, and checks that each job ended once and is closed.
    static std::vector<Result> read(
        HelperPool& pool, std::vector<HelperJob> jobs,
        const std::function<bool(std::size_t ended)>& shouldStop = [](std::size_t) {
            return false;
        }) {
        std::map<std::size_t, Result> results;
        std::size_t calls = 0;
        const auto receive = [&](std::size_t index, auto outcome, PropertyDictionary properties) {
            ++calls;
            const bool hasText = outcome == HelperOutcome::values;
            results[index] = {outcome, hasText ? std::get<std::string>(properties.at(1)) : ""};
        };
        pool.read(jobs, receive, [&] { return shouldStop(calls); });
        EXPECT_EQ(calls, jobs.size());
        std::vector<Result> all;
        for (std::size_t index = 0; index < jobs.size(); ++index) all.push_back(results[index]);
        return all;
    }

    /// The processes that were started so far.
    std::vector<int> starts() const {
        std::vector<int> processes;
        std::istringstream lines(tests::contentOf(log_));
        for (std::string word; lines >> word;) {
            if (word == "start" && lines >> word) processes.push_back(std::stoi(word));
        }
        return processes;
    }

    const tests::TemporaryFolder folder_;
    const std::string log_ = folder_ / "log";
    HelperPool::Settings settings_;
    std::size_t descriptors_ = 0;
};

TEST_F(HelperPoolTest, ReadsWithOneProcessForAllCalls) {
    // What the program has is not handed on: the helper looks.
    const FileDescriptor inheritable(::open("/dev/zero", O_RDONLY));
    const auto handler = ::signal(SIGPIPE, SIG_IGN);
    ::sigset_t blocked{};
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGUSR1);
    ::pthread_sigmask(SIG_BLOCK, &blocked, nullptr);

    HelperPool pool(settings_);
    std::vector<std::string> contents(100, "x");
    contents[30] = "nothing";
    contents[60] = "large";
    contents[80] = "no memory";
    const auto results = read(pool, jobs(contents));
    for (std::size_t index = 0; index < contents.size(); ++index) {
        const bool isNothing = index == 30 || index == 80;
        EXPECT_EQ(results[index].first, isNothing ? HelperOutcome::nothing : HelperOutcome::values);
    }
    EXPECT_EQ(results[60].second.size(), 4000000U);
    EXPECT_EQ(read(pool, jobs({"y"})), (std::vector<Result>{{HelperOutcome::values, "y"}}));
    EXPECT_THAT(read(pool, std::vector<HelperJob>(3)), Each(Pair(HelperOutcome::unreadable, "")));
    EXPECT_EQ(starts().size(), 1U);
    EXPECT_EQ(pool.protections(), systemCallFilter);
    EXPECT_FALSE(pool.isUnavailable());
    ::pthread_sigmask(SIG_UNBLOCK, &blocked, nullptr);
    ::signal(SIGPIPE, handler);
}

struct Misbehaviour {
    const char* content;
    HelperOutcome outcome = HelperOutcome::givenUp;
    bool isSlow = false;  // noticed at a limit only
};

class Misbehaving : public HelperPoolTest, public testing::WithParamInterface<Misbehaviour> {};

TEST_P(Misbehaving, CostsOneFileItsValues) {
    const auto [content, outcome, isSlow] = GetParam();
    if (isSlow) settings_.wallLimit = 600ms;
    if (content == std::string_view("spin")) {
        settings_.wallLimit = 30s;
        settings_.cpuLimit = 200ms;
    }
    HelperPool pool(settings_);
    std::vector<std::string> contents;
    for (int number = 0; number < 31; ++number) contents.push_back(std::to_string(number));
    contents[15] = content;
    const auto results = read(pool, jobs(contents));
    for (std::size_t index = 0; index < contents.size(); ++index) {
        const bool isBad = index == 15 && outcome == HelperOutcome::givenUp;
        EXPECT_EQ(results[index],
                  Result(isBad ? outcome : HelperOutcome::values, isBad ? "" : contents[index]));
    }
    EXPECT_LE(starts().size(), 3U);
    EXPECT_FALSE(pool.isUnavailable());
    if (outcome != HelperOutcome::givenUp) return;

    // Not tried again while it stays the same.
    const std::size_t before = starts().size();
    std::vector<HelperJob> same(1);
    same[0].path = folder_ / "f15";
    EXPECT_THAT(read(pool, std::move(same)), Each(Pair(HelperOutcome::givenUp, "")));
    EXPECT_EQ(starts().size(), before);
    EXPECT_THAT(read(pool, jobs({"mended"}, "f15")), Each(Pair(HelperOutcome::values, "mended")));
}

INSTANTIATE_TEST_SUITE_P(
    HelperPool, Misbehaving,
    testing::Values(Misbehaviour{"segfault"}, Misbehaviour{"abort"}, Misbehaviour{"exit"},
                    Misbehaviour{"sleep", HelperOutcome::givenUp, true},
                    Misbehaviour{"stop", HelperOutcome::givenUp, true},
                    Misbehaviour{"drip", HelperOutcome::givenUp, true}, Misbehaviour{"spin"},
                    Misbehaviour{"huge"}, Misbehaviour{"cut"}, Misbehaviour{"cut header"},
                    Misbehaviour{"next id"}, Misbehaviour{"last id"},
                    Misbehaviour{"twice", HelperOutcome::values}, Misbehaviour{"flood"},
                    Misbehaviour{"bad text"}, Misbehaviour{"key twice"},
                    Misbehaviour{"ready again"}, Misbehaviour{"no status"},
                    Misbehaviour{"nothing at length"}),
    [](const auto& test) {
        std::string name = test.param.content;
        std::erase(name, ' ');
        return name;
    });

TEST_F(HelperPoolTest, ServesSeveralThreadsWithFewProcesses) {
    settings_.width = 2;
    HelperPool pool(settings_);
    std::vector<std::thread> threads;
    for (const std::string name : {"a", "b", "c", "d"}) {
        threads.emplace_back([this, name, &pool] {
            for (int round = 0; round < 10; ++round) {
                std::vector<std::string> contents(20, name);
                if (round == 5) contents[10] = "segfault";
                const auto results = read(pool, jobs(contents, name + std::to_string(round) + "-"));
                for (std::size_t index = 0; index < results.size(); ++index) {
                    const bool isBad = contents[index] != name;
                    EXPECT_EQ(results[index].first,
                              isBad ? HelperOutcome::givenUp : HelperOutcome::values);
                    EXPECT_EQ(results[index].second, isBad ? "" : name);
                }
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_LE(starts().size(), 2U + 2 * 4);
}

TEST_F(HelperPoolTest, IsUnavailableWithoutAProgramThatGetsReady) {
    tests::writeFile(folder_ / "text", "no program");
    const std::string program = settings_.program;
    const std::vector<std::pair<std::string, std::string>> cases = {
        {folder_ / "missing", ""}, {folder_ / "text", ""}, {"", ""},
        {program, "dead"},         {program, "deaf"},      {program, "hasty"}};
    settings_.startLimit = 300ms;
    for (const auto& [path, manner] : cases) {
        const std::size_t before = starts().size();
        settings_.program = path;
        settings_.arguments = {log_, manner};
        HelperPool pool(settings_);
        for (int round = 0; round < 3; ++round) {
            EXPECT_THAT(read(pool, jobs({"1", "2"})), Each(Pair(HelperOutcome::unavailable, "")))
                << path << manner;
        }
        EXPECT_TRUE(pool.isUnavailable());
        EXPECT_LE(starts().size(), before + 3);
    }
}

TEST_F(HelperPoolTest, ManyFilesThatKillItDoNotHarmTheGoodOnes) {
    HelperPool pool(settings_);
    std::vector<std::string> contents(60, "exit");
    contents.emplace_back("good");
    const auto results = read(pool, jobs(contents));
    EXPECT_EQ(results.front().first, HelperOutcome::givenUp);
    EXPECT_EQ(results.back().first, HelperOutcome::values);
    EXPECT_LE(starts().size(), 2 * 60U + 1);
}

TEST_F(HelperPoolTest, StopsWhenTheCallerWantsNoMore) {
    settings_.arguments = {log_};
    HelperPool pool(settings_);
    const auto results = read(pool, jobs(std::vector<std::string>(50, "x")),
                              [](std::size_t ended) { return ended == 5; });
    for (std::size_t index = 0; index < results.size(); ++index) {
        EXPECT_EQ(results[index].first, index < 5 ? HelperOutcome::values : HelperOutcome::stopped);
    }
    int asked = 0;
    const auto hanging = read(pool, jobs({"x", "sleep", "y"}),
                              [&asked](std::size_t ended) { return ended == 1 && ++asked > 3; });
    EXPECT_EQ(hanging[1].first, HelperOutcome::stopped);
    EXPECT_EQ(hanging[2].first, HelperOutcome::stopped);
    // A process that still has to start or to get free is not waited for either.
    settings_.arguments = {log_, "deaf"};
    HelperPool deaf(settings_);
    std::atomic<bool> isOver = false;
    std::thread holder([&] {
        EXPECT_THAT(read(deaf, jobs({"1"}, "h"), [&](std::size_t) { return isOver.load(); }),
                    Each(Pair(HelperOutcome::stopped, "")));
    });
    asked = 0;
    EXPECT_THAT(read(deaf, jobs({"1"}), [&asked](std::size_t) { return ++asked > 2; }),
                Each(Pair(HelperOutcome::stopped, "")));
    isOver = true;
    holder.join();
    EXPECT_FALSE(deaf.isUnavailable());
}

TEST_F(HelperPoolTest, EndsIdleProcessesAndReplacesThem) {
    settings_.idleLimit = 20ms;
    HelperPool impatient(settings_);
    read(impatient, jobs({"x"}));
    EXPECT_TRUE(endsWithin(10s, starts().back()));
    EXPECT_THAT(read(impatient, jobs({"y"})), Each(Pair(HelperOutcome::values, "y")));

    settings_.idleLimit = 30s;
    HelperPool pool(settings_);
    read(pool, jobs({"x"}));
    const int idle = starts().back();
    ::kill(idle, SIGKILL);
    EXPECT_TRUE(endsWithin(10s, idle));
    EXPECT_THAT(read(pool, jobs({"z"})), Each(Pair(HelperOutcome::values, "z")));
    EXPECT_NE(starts().back(), idle);
}

TEST_F(HelperPoolTest, DiesWithTheProgramEvenWhileItSpins) {
    tests::writeFile(folder_ / "file", "spin");
    ASSERT_EQ(::mkfifo(log_.c_str(), 0600), 0);
    const FileDescriptor log(::open(log_.c_str(), O_RDWR | O_CLOEXEC));
    std::vector<std::string> words = {settings_.program, log_, "parent", folder_ / "file"};
    std::array<char*, 5> arguments = {words[0].data(), words[1].data(), words[2].data(),
                                      words[3].data(), nullptr};
    ::pid_t program = -1;
    ASSERT_EQ(::posix_spawn(&program, arguments[0], nullptr, nullptr, arguments.data(), environ),
              0);
    std::string said;
    while (said.find("spinning") == std::string::npos) {
        std::array<char, 100> block{};
        const ssize_t length = ::read(log.get(), block.data(), block.size());
        ASSERT_GT(length, 0);
        said.append(block.data(), static_cast<std::size_t>(length));
    }
    const int helper = std::stoi(said.substr(said.find(' ')));
    EXPECT_EQ(::kill(helper, 0), 0);
    ::kill(program, SIGKILL);
    EXPECT_TRUE(endsWithin(1s, helper));
    EXPECT_EQ(::waitpid(program, nullptr, 0), program);
}

TEST(HelperProgramPath, FindsOnlyProgramsBesideThisOne) {
    const std::string self = std::filesystem::read_symlink("/proc/self/exe");
    EXPECT_EQ(helperProgramPath(std::filesystem::path(self).filename()), self);
    EXPECT_EQ(helperProgramPath("no such program"),
              std::filesystem::path(MARQUELL_MISBEHAVING_HELPER).parent_path().parent_path() /
                  "libexec/marquell/no such program");
}

}  // namespace
}  // namespace marquell::platform
