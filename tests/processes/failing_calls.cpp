// SPDX-License-Identifier: GPL-3.0-or-later
// Preloaded into a program that saves a file, it lets chosen system calls fail.
//     FAULTS_FROM  end of a path: calls are counted, each name for itself, from the first with it
//     on FAULTS_LOG   a file that takes the name of each counted call as a line, before the call
//     FAULTS_PLAN  "NAME:K:HOW ...": what happens to the K-th call of NAME, or to each if K is 0.
//                  HOW is an errno, "short" (half of a write), "before" or "behind" which
//                  SIGKILL, or "term" behind which SIGTERM
// The names are those of the functions; openings that make a file are called "tmpfile" or "create".
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <mutex>
#include <sstream>
#include <string>
#include <string_view>

namespace {

std::atomic<bool> isCounting = false;

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

void look(const char* path) {
    if (!isCounting && std::string_view(path).ends_with(variable("FAULTS_FROM"))) isCounting = true;
}

/// Counts a call and says what the plan has for it; mostly nothing.
std::string planned(const std::string& name) {
    static std::mutex guard;
    static auto& counts = *new std::map<std::string, int>;  // some calls come after main has ended
    if (!isCounting) return {};
    const std::lock_guard lock(guard);
    if (std::FILE* log = std::fopen(variable("FAULTS_LOG").c_str(), "ae")) {
        std::fprintf(log, "%s\n", name.c_str());
        std::fclose(log);
    }
    const int number = ++counts[name];
    std::istringstream plan(variable("FAULTS_PLAN"));
    for (std::string entry; plan >> entry;) {
        for (const int k : {number, 0}) {
            const std::string key = name + ":" + std::to_string(k) + ":";
            if (entry.starts_with(key)) return entry.substr(key.size());
        }
    }
    return {};
}

template <typename Call>
auto carryOut(const std::string& how, const Call& call) -> decltype(call()) {
    if (how == "before") ::raise(SIGKILL);
    if (const int error = std::atoi(how.c_str()); error != 0) {
        errno = error;
        return -1;
    }
    const auto result = call();
    if (how == "behind") ::raise(SIGKILL);
    if (how == "term") ::raise(SIGTERM);
    return result;
}

/// The function that the program would have called.
template <typename Function>
Function* real(Function*, const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

template <typename Function, typename... Arguments>
auto pass(Function* function, const char* name, Arguments... arguments) {
    return carryOut(planned(name), [=] { return real(function, name)(arguments...); });
}

int passOpening(int folder, const char* path, int flags, mode_t mode) {
    look(path);
    const bool isUnnamed = (flags & O_TMPFILE) == O_TMPFILE;
    const char* name = isUnnamed ? "tmpfile" : (flags & O_CREAT) != 0 ? "create" : "open";
    return carryOut(planned(name),
                    [=] { return real(&::openat, "openat")(folder, path, flags, mode); });
}

}  // namespace

extern "C" {

// The mode means nothing where the caller gave none.
int openHere(const char* path, int flags, mode_t mode) __asm__("open");
int openHere(const char* path, int flags, mode_t mode) {
    return passOpening(AT_FDCWD, path, flags, mode);
}

int openThere(int folder, const char* path, int flags, mode_t mode) __asm__("openat");
int openThere(int folder, const char* path, int flags, mode_t mode) {
    return passOpening(folder, path, flags, mode);
}

ssize_t write(int file, const void* bytes, std::size_t size) {
    const std::string how = file > STDERR_FILENO ? planned("write") : "";
    const std::size_t some = how == "short" ? size / 2 : size;
    return carryOut(how, [=] { return real(&::write, "write")(file, bytes, some); });
}

int close(int file) {
    const int result = pass(&::close, "close", file);
    if (result != 0) real(&::close, "close")(file);  // a close that fails gives the number back too
    return result;
}

int fsync(int file) { return pass(&::fsync, "fsync", file); }

int fchown(int file, uid_t owner, gid_t group) noexcept {
    return pass(&::fchown, "fchown", file, owner, group);
}

int fchmod(int file, mode_t mode) noexcept { return pass(&::fchmod, "fchmod", file, mode); }

int linkat(int from, const char* path, int to, const char* name, int flags) noexcept {
    return pass(&::linkat, "linkat", from, path, to, name, flags);
}

int renameat(int from, const char* path, int to, const char* name) noexcept {
    return pass(&::renameat, "renameat", from, path, to, name);
}

int unlinkat(int folder, const char* name, int flags) noexcept {
    return pass(&::unlinkat, "unlinkat", folder, name, flags);
}

int faccessat(int folder, const char* path, int mode, int flags) noexcept {
    return pass(&::faccessat, "faccessat", folder, path, mode, flags);
}

int stat(const char* path, struct stat* status) noexcept {
    look(path);
    return pass(&::stat, "stat", path, status);
}

ssize_t readlink(const char* path, char* target, std::size_t size) noexcept {
    look(path);
    return pass(&::readlink, "readlink", path, target, size);
}

}  // extern "C"
