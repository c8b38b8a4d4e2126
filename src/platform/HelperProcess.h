// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <utility>

#include "platform/HelperSpawn.h"
#include "platform/HelperStream.h"

namespace marquell::platform {

/// A running helper, killed and reaped with this object. One thread at a time.
class HelperProcess {
public:
    explicit HelperProcess(SpawnedHelper&& spawned);
    HelperProcess(const HelperProcess&) = delete;
    HelperProcess& operator=(const HelperProcess&) = delete;
    ~HelperProcess() { end(); }

    HelperStream& stream() { return stream_; }

    /// Keeps something until the process is to end.
    void hold(std::shared_ptr<const void> thing) { held_ = std::move(thing); }

    /// Kills and reaps it. False if the kernel holds on to it, as it may while a file system does
    /// not answer: the first time after a second, then at once.
    bool end();

    /// CPU time that it has taken so far; absent if it has ended.
    std::optional<std::chrono::nanoseconds> cpuTime() const;

    /// Has the kernel end it when it has taken that much CPU time more, in case this program is
    /// not there to watch, being stopped itself.
    void allowCpuTime(std::chrono::nanoseconds more) const;

private:
    ::pid_t process_;  // -1 once reaped
    FileDescriptor lifeline_;
    HelperStream stream_;
    bool isKilled_ = false;
    std::shared_ptr<const void> held_;
};

}  // namespace marquell::platform
