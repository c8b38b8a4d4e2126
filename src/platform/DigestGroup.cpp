// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DigestGroup.h"

#include <atomic>
#include <cstddef>
#include <thread>

#include "platform/Workers.h"

namespace marquell::platform {
namespace {

/// Begun in this order, the digests of a piece end on all threads at about the same time: the cheap
/// ones are left to fill the gaps. True of processors with and without instructions for SHA.
constexpr std::array dearestFirst{DigestAlgorithm::md5, DigestAlgorithm::sha384,
                                  DigestAlgorithm::sha512, DigestAlgorithm::sha256,
                                  DigestAlgorithm::sha1};

/// Below it a thread, which costs about 30 us to start, takes a noticeable part of what it saves.
constexpr std::size_t worthSharing = std::size_t{256} * 1024;

/// Threads inside update() right now, helpers included.
std::atomic<unsigned> busyThreads = 0;

/// True if a core is idle, which then counts as busy.
bool takeIdleCore() {
    if (busyThreads.fetch_add(1, std::memory_order_relaxed) < workerCount()) return true;
    busyThreads.fetch_sub(1, std::memory_order_relaxed);
    return false;
}

}  // namespace

DigestGroup::DigestGroup(DigestSet wanted) {
    for (const DigestAlgorithm algorithm : dearestFirst) {
        if (!wanted.test(static_cast<std::size_t>(algorithm))) continue;
        members_.push_back({algorithm, Digest(algorithm)});
    }
}

void DigestGroup::update(std::string_view bytes) {
    busyThreads.fetch_add(1, std::memory_order_relaxed);
    std::atomic<std::size_t> next = 0;
    const auto work = [this, bytes, &next] {
        for (std::size_t i = next++; i < members_.size(); i = next++) {
            members_[i].digest.update(bytes);
        }
        busyThreads.fetch_sub(1, std::memory_order_relaxed);
    };
    const std::size_t most = bytes.size() < worthSharing ? 1 : members_.size();
    std::vector<std::thread> helpers;
    while (helpers.size() + 1 < most && takeIdleCore()) {
        if (startThread(helpers, work)) continue;
        busyThreads.fetch_sub(1, std::memory_order_relaxed);
        break;
    }
    work();
    for (std::thread& helper : helpers) helper.join();
}

DigestTexts DigestGroup::finish() {
    DigestTexts texts;
    for (Member& member : members_) {
        texts[static_cast<std::size_t>(member.algorithm)] = member.digest.finish();
    }
    return texts;
}

}  // namespace marquell::platform
