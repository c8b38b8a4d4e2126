// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/HelperReading.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <numeric>
#include <utility>

#include "platform/HelperStart.h"

namespace marquell::platform {
namespace {

using std::chrono::milliseconds;

// Hides the time that a message takes to the other process and back.
constexpr std::size_t windowSize = 8;

// Spare time for all that a helper does beside reading files.
constexpr auto spareCpuTime = std::chrono::seconds(5);

// How long to wait for descriptors that nobody here can free.
constexpr auto longestShortage = std::chrono::seconds(1);

}  // namespace

HelperReading::HelperReading(const HelperPool::Settings& settings, HelperHealth& health,
                             HelperGivenUpFiles& givenUp, std::span<HelperJob> jobs,
                             const HelperPool::Receiver& receive,
                             const std::function<bool()>& shouldStop)
    : settings_(settings),
      health_(health),
      givenUp_(givenUp),
      jobs_(jobs),
      receive_(receive),
      shouldStop_(shouldStop),
      files_(jobs.size()),
      waiting_(jobs.size()),
      deadline_(settings) {
    std::iota(waiting_.begin(), waiting_.end(), std::size_t{0});
}

bool HelperReading::begin() {
    // Without a descriptor to open it with it stays.
    return openNext() || !waiting_.empty();
}

/// Opens the first job that waits, and ends those that can't be. False if none could be opened now.
bool HelperReading::openNext() {
    while (!waiting_.empty()) {
        const std::size_t index = waiting_.front();
        const Opening opening = open(index);
        if (opening == Opening::open) return true;
        if (opening == Opening::later) return false;
        waiting_.pop_front();
        const bool isOpen = files_[index].descriptor.isOpen();
        finish(index, isOpen ? HelperOutcome::givenUp : HelperOutcome::unreadable, {});
    }
    return false;
}

HelperReading::Opening HelperReading::open(std::size_t index) {
    RegularFile& file = files_[index];
    HelperJob& job = jobs_[index];
    if (!file.descriptor.isOpen()) {
        file = openRegularFile(job.path, job.error);
        if (isShortage(job.error)) return Opening::later;
        if (!file.descriptor.isOpen()) return Opening::ended;
    }
    return givenUp_.contains(file.status) ? Opening::ended : Opening::open;
}

/// Whether to try later: descriptors will be had when files under way are closed, here or by other
/// callers. What lasts is no shortage but a limit.
bool HelperReading::isShortage(int error) {
    if (error != EMFILE && error != ENFILE) {
        shortageEnd_.reset();
        return false;
    }
    return !underWay_.empty() || isShortTime();
}

/// Whether what the system is short of has been missing for a short time only.
bool HelperReading::isShortTime() {
    const auto now = std::chrono::steady_clock::now();
    if (!shortageEnd_) shortageEnd_ = now + longestShortage;
    return now < *shortageEnd_;
}

void HelperReading::run(std::unique_ptr<HelperProcess>& process, const IdleTaker& takeIdle) {
    while (!waiting_.empty()) {
        if (health_.isUnavailable()) return endAll(HelperOutcome::unavailable);
        bool isStopped = false;
        if (!process) process = takeIdle();
        if (!process) process = startHelper(settings_, health_, shouldStop_, isStopped);
        if (isStopped) return endAll(HelperOutcome::stopped);
        if (!process) continue;
        process->allowCpuTime(settings_.cpuLimit * static_cast<long>(waiting_.size()) +
                              spareCpuTime);
        const Talk talk = talkTo(*process);
        if (talk == Talk::done) continue;
        if (talk == Talk::stopped) {
            // With answers still to come it is of no use to the next caller.
            if (!underWay_.empty()) health_.bury(std::exchange(process, nullptr));
            return endAll(HelperOutcome::stopped);
        }
        health_.bury(std::exchange(process, nullptr));
        if (underWay_.empty()) health_.didNotStart();
        blame();
    }
}

HelperReading::Talk HelperReading::talkTo(HelperProcess& process) {
    HelperStream& stream = process.stream();
    shortageEnd_.reset();
    for (;;) {
        if (shouldStop_()) return Talk::stopped;
        const HelperStream::Sending sending = sendRequests(stream);
        if (underWay_.empty()) {
            if (waiting_.empty()) return stream.isSettled() ? Talk::done : Talk::failed;
            // Nothing is awaited that would make room, but others may.
            if (sending == HelperStream::Sending::closed) return Talk::failed;
            if (sending != HelperStream::Sending::sent && !isShortTime()) return Talk::failed;
        }
        waitFor(stream, sending);
        const std::size_t answersDue = underWay_.size();
        const bool isOpen = stream.receive();
        const Talk talk = takeReplies(stream);
        if (talk != Talk::done) return talk;
        const bool isAllDone = underWay_.empty() && waiting_.empty();
        if (!isOpen && !isAllDone) return Talk::failed;
        const bool isQuiet = answersDue > 0 && underWay_.size() == answersDue;
        if (isQuiet && deadline_.isOver(process)) return Talk::failed;
    }
}

HelperStream::Sending HelperReading::sendRequests(HelperStream& stream) {
    const std::size_t window = suspect_ ? 1 : windowSize;
    while (underWay_.size() < window && openNext()) {
        const auto sending = sendRequest(stream, waiting_.front());
        if (sending != HelperStream::Sending::sent) return sending;
        if (underWay_.empty()) deadline_.restart();
        underWay_.push_back(waiting_.front());
        waiting_.pop_front();
    }
    return HelperStream::Sending::sent;
}

HelperStream::Sending HelperReading::sendRequest(HelperStream& stream, std::size_t index) const {
    const HelperJob& job = jobs_[index];
    const RegularFile& file = files_[index];
    HelperRequest request;
    request.task = jobs_[index].task;
    request.size = static_cast<std::uint64_t>(file.status.st_size);
    if (job.extension.size() <= request.extension.size()) {
        std::copy(job.extension.begin(), job.extension.end(), request.extension.begin());
    }
    return stream.send(request, file.descriptor.get());
}

void HelperReading::waitFor(const HelperStream& stream, HelperStream::Sending sending) const {
    // Often enough to keep short limits.
    const milliseconds limit = std::min(settings_.wallLimit, settings_.cpuLimit) / 4;
    const milliseconds slice = std::clamp(limit, milliseconds(1), longestHelperWait);
    const bool isFull = sending == HelperStream::Sending::full;
    const int events = isFull ? POLLIN | POLLOUT : POLLIN;
    pollfd ready = {stream.descriptor(), static_cast<short>(events), 0};
    ::poll(&ready, 1, static_cast<int>(slice.count()));
}

HelperReading::Talk HelperReading::takeReplies(HelperStream& stream) {
    for (;;) {
        HelperReply reply;
        std::string_view content;
        const HelperStream::Taking taking = stream.take(reply, content);
        if (taking == HelperStream::Taking::incomplete) return Talk::done;
        if (taking == HelperStream::Taking::nonsense) return Talk::failed;
        if (reply.status == HelperStatus::values) {
            auto properties = decodeProperties(content);
            if (!properties) return Talk::failed;
            end(HelperOutcome::values, *std::move(properties));
        } else {
            end(HelperOutcome::nothing, {});
        }
        if (shouldStop_()) return Talk::stopped;
    }
}

/// The oldest job under way was answered.
void HelperReading::end(HelperOutcome outcome, PropertyDictionary properties) {
    health_.answered();
    const std::size_t index = underWay_.front();
    underWay_.pop_front();
    suspect_.reset();
    shortageEnd_.reset();
    deadline_.restart();
    finish(index, outcome, std::move(properties));
}

/// Puts what was under way back, before the rest, and gives up what has failed twice.
void HelperReading::blame() {
    if (underWay_.empty()) return;
    waiting_.insert(waiting_.begin(), underWay_.begin(), underWay_.end());
    underWay_.clear();
    const std::size_t oldest = waiting_.front();
    if (suspect_ != oldest) {
        suspect_ = oldest;
        return;
    }
    suspect_.reset();
    waiting_.pop_front();
    givenUp_.add(files_[oldest].status);
    finish(oldest, HelperOutcome::givenUp, {});
}

void HelperReading::endAll(HelperOutcome outcome) {
    for (auto* indices : {&underWay_, &waiting_}) {
        while (!indices->empty()) {
            const std::size_t index = indices->front();
            indices->pop_front();
            finish(index, outcome, {});
        }
    }
}

void HelperReading::finish(std::size_t index, HelperOutcome outcome,
                           PropertyDictionary properties) {
    files_[index].descriptor = FileDescriptor();
    receive_(index, outcome, std::move(properties));
}

}  // namespace marquell::platform
