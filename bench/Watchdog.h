// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/FileDescriptor.h"

namespace marquell::bench {

/// Asks the main thread for a sign of life every millisecond and notes how long it takes: as long
/// as a key that the user presses at that moment waits for its turn. To be made on the main thread.
class Watchdog : public QObject {
public:
    Watchdog();
    ~Watchdog() override;

    /// In milliseconds.
    struct Answers {
        double longest = 0;
        double p99 = 0;
        /// The longest without the time that the main thread spent waiting for a core, which on a
        /// busy machine others have.
        double longestAtWork = 0;
    };

    /// The answers since the last call. One that is still awaited counts by the time it has taken.
    Answers takeAnswers();

protected:
    bool event(QEvent* event) override;

private:
    using Clock = std::chrono::steady_clock;

    struct Question {
        Clock::time_point asked;
        double waitedBefore = 0;  ///< for a core, in ms
    };
    struct Answer {
        double took;    ///< ms
        double waited;  ///< of it for a core, in ms
    };

    void ask();
    double waitedForCore() const;
    Answer answerNow() const;

    const platform::FileDescriptor schedule_;  // of the main thread
    std::atomic<bool> isAnswered_ = true;
    std::atomic<bool> stops_ = false;
    std::mutex mutex_;
    Question question_;            // guarded by mutex_
    std::vector<Answer> answers_;  // guarded by mutex_
    std::thread thread_;           // last: uses all the others
};

}  // namespace marquell::bench
