// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "platform/HelperDeadline.h"
#include "platform/HelperGivenUpFiles.h"
#include "platform/HelperHealth.h"
#include "platform/HelperPool.h"
#include "platform/HelperProcess.h"
#include "platform/RegularFile.h"

namespace marquell::platform {

/// One call of HelperPool::read: its jobs, which of them are under way, and who is to blame when
/// the helper fails. One thread.
class HelperReading {
public:
    HelperReading(const HelperPool::Settings& settings, HelperHealth& health,
                  HelperGivenUpFiles& givenUp, std::span<HelperJob> jobs,
                  const HelperPool::Receiver& receive, const std::function<bool()>& shouldStop);

    /// Ends what needs no helper, up to the first job that does. False if that was all.
    bool begin();

    /// Has the helper in `process` read what is left, or an idle one, or one that is started for
    /// it; afterwards `process` holds the helper that can go on with other work, if any.
    using IdleTaker = std::function<std::unique_ptr<HelperProcess>()>;
    void run(std::unique_ptr<HelperProcess>& process, const IdleTaker& takeIdle);

    void endAll(HelperOutcome outcome);

private:
    enum class Talk { done, stopped, failed };
    enum class Opening { open, later, ended };

    Talk talkTo(HelperProcess& process);
    HelperStream::Sending sendRequests(HelperStream& stream);
    Talk takeReplies(HelperStream& stream);
    void waitFor(const HelperStream& stream, HelperStream::Sending sending) const;
    HelperStream::Sending sendRequest(HelperStream& stream, std::size_t index) const;
    bool openNext();
    Opening open(std::size_t index);
    bool isShortage(int error);
    bool isShortTime();
    void end(HelperOutcome outcome, PropertyDictionary properties);
    void finish(std::size_t index, HelperOutcome outcome, PropertyDictionary properties);
    void blame();

    const HelperPool::Settings& settings_;
    HelperHealth& health_;
    HelperGivenUpFiles& givenUp_;
    const std::span<HelperJob> jobs_;
    const HelperPool::Receiver& receive_;
    const std::function<bool()>& shouldStop_;

    std::vector<RegularFile> files_;      // of the jobs, open or not
    std::deque<std::size_t> waiting_;     // indices of jobs
    std::deque<std::size_t> underWay_;    // the one that the helper is at first
    std::optional<std::size_t> suspect_;  // failed once; is read alone
    HelperDeadline deadline_;
    std::optional<std::chrono::steady_clock::time_point> shortageEnd_;
};

}  // namespace marquell::platform
