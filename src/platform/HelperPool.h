// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/HelperProtocol.h"
#include "platform/PropertyDictionary.h"

namespace marquell::platform {

/// How the reading of one file by a helper ended.
enum class HelperOutcome {
    values,      ///< the properties hold what was found
    nothing,     ///< the content is of no kind that the helper reads, or broken
    unreadable,  ///< the file could not be opened; HelperJob::error says why
    givenUp,     ///< the helper crashed, hung or talked nonsense over this file, and so did another
    unavailable,  ///< no helper can be had; nothing was tried
    stopped,      ///< the caller wanted no more
};

/// One file for a helper to read. It is opened when its turn comes and closed when it has ended:
/// few are open at a time, however many callers there are.
struct HelperJob {
    std::string path;
    std::string extension;  ///< of its name, lower case, without the dot; a hint
    HelperTask task = HelperTask::image;
    int error = 0;  ///< errno of what is unreadable; 0 if it is no regular file
};

/// Helper processes of one program that read untrusted files for this one: a file that crashes its
/// decoder, hangs it or takes it over costs its own values and nothing else. Processes start when
/// they are first needed, serve one caller at a time, and end after a time without work, with this
/// object, and when this program dies in whatever way.
///
/// When a helper fails, the file that it was at is to blame. It is tried once more, alone in a
/// fresh process; then it is given up, also for later calls while the file stays the same. Files
/// that only waited behind it are read by another process.
class HelperPool {
public:
    struct Settings {
        std::string program;                 ///< path of the helper
        std::vector<std::string> arguments;  ///< for it, without the program's name
        std::size_t width = 1;               ///< processes at once, at least 1
        std::chrono::milliseconds wallLimit = std::chrono::seconds(30);  ///< for one file
        std::chrono::milliseconds cpuLimit = std::chrono::seconds(5);    ///< for one file
        std::chrono::milliseconds startLimit = std::chrono::seconds(10);
        std::chrono::milliseconds idleLimit = std::chrono::seconds(30);
    };

    explicit HelperPool(Settings settings);
    /// Not to be called while a read runs.
    ~HelperPool();
    HelperPool(const HelperPool&) = delete;
    HelperPool& operator=(const HelperPool&) = delete;

    /// Called once for each job, in no certain order, on the thread that called read().
    using Receiver = std::function<void(std::size_t index, HelperOutcome outcome,
                                        PropertyDictionary properties)>;

    /// Has a helper read the jobs, several under way at once, and returns when all have ended.
    /// Waits for a process to be free. Any thread, several at once. `shouldStop` is asked every
    /// tenth of a second or so and between replies; once true, what is left ends as `stopped`.
    void read(std::span<HelperJob> jobs, const Receiver& receive,
              const std::function<bool()>& shouldStop);

    /// Whether helpers were given up for good: three in a row did not get as far as their first
    /// file. All later jobs are `unavailable`. Files alone never bring that about, however many of
    /// them kill their helpers: the good ones among them are still read.
    bool isUnavailable() const;

    const std::string& program() const;

    /// The protections (bits of HelperProtocol.h) that helpers run under; starts one if there is
    /// none. Absent if none can be had.
    std::optional<std::uint32_t> protections();

    /// Ends the processes that have no work, as a program should before it ends itself.
    void endIdle();

private:
    class Implementation;
    std::unique_ptr<Implementation> implementation_;
};

/// Where a program of ours that is no command lies: beside the running program in a build tree, in
/// the libexec folder of an installation. Depends on where the running program is, not on where it
/// was meant to be installed. If there is none, where an installation has it.
std::string helperProgramPath(const std::string& name);

}  // namespace marquell::platform
