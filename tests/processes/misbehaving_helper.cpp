// SPDX-License-Identifier: GPL-3.0-or-later
// A helper that does what the content of the requested file says.
//
//     misbehaving_helper LOG [deaf | dead | hasty]     as a helper, which notes its starts in LOG
//     misbehaving_helper LOG parent FILE...            as a program that has such a helper read

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <limits>
#include <map>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "helpers/process/Limits.h"
#include "helpers/process/RequestLoop.h"
#include "platform/DescriptorIo.h"
#include "platform/HelperPool.h"

namespace {

using namespace marquell::platform;
using marquell::helpers::answerRequests;
using marquell::helpers::dieWithProgram;

int logDescriptor = -1;

void note(const std::string& line) { writeAll(logDescriptor, line + "\n"); }

/// Whether this process was handed the descriptors of the protocol and nothing else of the program.
bool isStartedClean() {
    for (int descriptor = helperLifeline + 1; descriptor < 100; ++descriptor) {
        if (::fcntl(descriptor, F_GETFD) >= 0) return false;
    }
    struct ::stat null {
    }, input{}, output{};
    ::stat("/dev/null", &null);
    ::fstat(STDIN_FILENO, &input);
    ::fstat(STDOUT_FILENO, &output);
    struct ::sigaction action {};
    ::sigaction(SIGPIPE, nullptr, &action);
    ::sigset_t mask{};
    ::sigprocmask(SIG_BLOCK, nullptr, &mask);
    return input.st_rdev == null.st_rdev && output.st_rdev == null.st_rdev &&
           action.sa_handler == SIG_DFL && ::sigismember(&mask, SIGUSR1) == 0 &&
           std::getenv("PATH") == nullptr && ::getpgrp() == ::getpid();
}

[[noreturn]] void wait() {
    for (;;) ::pause();
}

void send(std::string_view bytes) {
    ::send(helperSocket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

std::string bytesOf(const HelperReply& reply) {
    return {reinterpret_cast<const char*>(&reply), sizeof(reply)};
}

/// A reply that is as it should be, with its content.
std::string answer(std::uint64_t id, const std::string& content) {
    HelperReply reply;
    reply.status = HelperStatus::values;
    reply.id = id;
    reply.length = static_cast<std::uint32_t>(content.size());
    return bytesOf(reply) + content;
}

std::string dictionary(const PropertyValue& value) { return encodeProperties({{1, value}}); }

using Action = void (*)(std::uint64_t id);

const std::map<std::string_view, Action> actions = {
    {"segfault",
     [](auto) {
         ::signal(SIGSEGV, SIG_DFL);  // sanitizers handle it
         ::raise(SIGSEGV);
     }},
    {"abort", [](auto) { std::abort(); }},
    {"exit", [](auto) { ::_exit(0); }},
    {"sleep", [](auto) { wait(); }},
    {"stop", [](auto) { ::raise(SIGSTOP); }},
    {"spin",
     [](auto) {
         note("spinning");
         for (volatile bool isOn = true; isOn;) continue;
     }},
    {"drip",
     [](auto id) {
         const std::string bytes = answer(id, dictionary(std::string(100, 'x')));
         for (const char& byte : bytes) {
             send({&byte, 1});
             ::usleep(50000);
         }
     }},
    {"no memory", [](auto) { throw std::bad_alloc(); }},
    {"huge",
     [](auto id) {
         HelperReply reply;
         reply.status = HelperStatus::values;
         reply.id = id;
         reply.length = std::numeric_limits<std::uint32_t>::max();
         send(bytesOf(reply));
         wait();
     }},
    {"cut",
     [](auto id) {
         const std::string bytes = answer(id, dictionary("cut"));
         send(std::string_view(bytes).substr(0, bytes.size() - 1));
         ::_exit(0);
     }},
    {"cut header",
     [](auto id) {
         send(std::string_view(answer(id, "")).substr(0, 5));
         ::_exit(0);
     }},
    {"next id",
     [](auto id) {
         send(answer(id + 1, ""));
         wait();
     }},
    {"last id",
     [](auto id) {
         send(answer(id - 1, ""));
         wait();
     }},
    {"twice", [](auto id) { send(answer(id, dictionary("twice"))); }},
    {"flood",
     [](auto) {
         const std::string bytes(100000, 'x');
         while (::send(helperSocket, bytes.data(), bytes.size(), MSG_NOSIGNAL) > 0) continue;
         wait();
     }},
    {"bad text",
     [](auto id) {
         std::string content = dictionary("A");
         content.back() = '\xff';
         send(answer(id, content));
         wait();
     }},
    {"key twice",
     [](auto id) {
         send(answer(id, dictionary(1.0) + dictionary(2.0)));
         wait();
     }},
    {"ready again",
     [](auto id) {
         HelperReply reply;
         reply.status = HelperStatus::ready;
         reply.id = id;
         send(bytesOf(reply));
         wait();
     }},
    {"no status",
     [](auto id) {
         HelperReply reply;
         reply.status = static_cast<HelperStatus>(9);
         reply.id = id;
         send(bytesOf(reply));
         wait();
     }},
    {"nothing at length",
     [](auto id) {
         HelperReply reply;
         reply.id = id;
         reply.length = 1;
         send(bytesOf(reply) + "x");
         wait();
     }},
};

std::optional<PropertyDictionary> readFile(const HelperRequest& request, int descriptor) {
    std::string content(static_cast<std::size_t>(request.size), '\0');
    if (::pread(descriptor, content.data(), content.size(), 0) < 0) return std::nullopt;
    if (const auto action = actions.find(content); action != actions.end()) {
        action->second(request.id);
    }
    if (content == "nothing") return std::nullopt;
    if (content == "many") {
        PropertyDictionary properties;
        for (PropertyKey key = 1; key <= 40; ++key) {
            properties[key] = key % 2 == 0 ? PropertyValue(key / 3.0) : "a value of some letters";
        }
        return properties;
    }
    if (content == "large") return PropertyDictionary{{1, std::string(4000000, 'L')}};
    return PropertyDictionary{{1, content}, {2, std::string(request.extension.data())}};
}

int beParent(const char* log, int count, char** paths) {
    HelperPool::Settings settings;
    settings.program = "/proc/self/exe";
    settings.arguments = {log};
    HelperPool pool(settings);
    std::vector<HelperJob> jobs(static_cast<std::size_t>(count));
    for (HelperJob& job : jobs) job.path = *paths++;
    pool.read(
        jobs, [](auto, auto, auto) {}, [] { return false; });
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) return 1;
    const std::string_view manner = count > 2 ? arguments[2] : "";
    if (manner == "parent") return beParent(arguments[1], count - 3, arguments + 3);
    if (!isStartedClean()) return 1;
    logDescriptor = ::open(arguments[1], O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    note("start " + std::to_string(::getpid()));
    if (!dieWithProgram(helperLifeline) || manner == "dead") return 1;
    if (manner == "deaf") wait();
    if (manner == "hasty") {
        HelperReply ready;
        ready.status = HelperStatus::ready;
        send(bytesOf(ready) + answer(1, ""));
        wait();
    }
    return answerRequests(helperSocket, systemCallFilter, readFile) ? 0 : 1;
}
