// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/HelperStart.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <string_view>

namespace marquell::platform {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// How long a system may take to have what it is short of, when nobody else can do the work.
constexpr milliseconds shortageLimit = std::chrono::seconds(2);

enum class Step { done, waiting, failed };

/// Whether the system may have what was missing in a moment.
bool mayPass(int error) {
    return error == EAGAIN || error == ENOMEM || error == EMFILE || error == ENFILE;
}

Step spawn(const HelperPool::Settings& settings, std::unique_ptr<HelperProcess>& process) {
    SpawnedHelper spawned;
    const int error = spawnHelper(settings.program, settings.arguments, spawned);
    if (error != 0) return mayPass(error) ? Step::waiting : Step::failed;
    process = std::make_unique<HelperProcess>(std::move(spawned));
    return Step::done;
}

Step awaitReady(HelperStream& stream, HelperReply& reply) {
    const bool isOpen = stream.receive();
    std::string_view none;
    switch (stream.take(reply, none)) {
        case HelperStream::Taking::reply:
            return stream.isSettled() ? Step::done : Step::failed;
        case HelperStream::Taking::incomplete:
            return isOpen ? Step::waiting : Step::failed;
        case HelperStream::Taking::nonsense:
            break;
    }
    return Step::failed;
}

}  // namespace

std::unique_ptr<HelperProcess> startHelper(const HelperPool::Settings& settings,
                                           HelperHealth& health,
                                           const std::function<bool()>& shouldStop,
                                           bool& isStopped) {
    const auto begin = steady_clock::now();
    std::unique_ptr<HelperProcess> process;
    HelperReply ready;
    for (;;) {
        // Others that are ready can take this one's work over meanwhile.
        const milliseconds patience = health.isAnyReady() ? longestHelperWait : shortageLimit;
        const auto due = begin + (process ? settings.startLimit : patience);
        const auto rest = std::chrono::ceil<milliseconds>(due - steady_clock::now());
        isStopped = shouldStop();
        if (isStopped || rest.count() <= 0) break;
        Step step = process ? Step::done : spawn(settings, process);
        if (step == Step::done) step = awaitReady(process->stream(), ready);
        if (step == Step::done) {
            health.started(ready.protections);
            process->hold(health.mark());
            return process;
        }
        if (step == Step::failed) {
            health.bury(std::move(process));
            health.didNotStart();
            return nullptr;
        }
        pollfd arrival = {process ? process->stream().descriptor() : -1, POLLIN, 0};
        ::poll(&arrival, 1, static_cast<int>(std::min(rest, longestHelperWait).count()));
    }
    const bool isOnlyShort = process == nullptr && health.isAnyReady();
    health.bury(std::move(process));
    if (!isStopped && !isOnlyShort) health.didNotStart();
    return nullptr;
}

}  // namespace marquell::platform
