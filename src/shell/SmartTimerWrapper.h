// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>

namespace marquell::shell {

/// A timer with a block and an owner: it runs until `invalidate` is called or the wrapper goes
/// away, both of which the block itself may bring about. It goes on while a menu or a modal dialog
/// is open. Main thread only.
class SmartTimerWrapper {
public:
    using Block = std::function<void(QTimer& timer)>;

    /// The timer runs from now on, and fires for the first time when the interval has passed.
    static std::unique_ptr<SmartTimerWrapper> wrapTimer(
        std::chrono::duration<double> withSystemTimeInterval, bool repeats, Block block);

    SmartTimerWrapper(const SmartTimerWrapper&) = delete;
    SmartTimerWrapper& operator=(const SmartTimerWrapper&) = delete;
    ~SmartTimerWrapper() { invalidate(); }

    void invalidate();

    /// Null once it is invalidated.
    QTimer* timer() const { return timer_; }

private:
    explicit SmartTimerWrapper(Block block);

    void execute() const;

    const std::shared_ptr<const Block> block_;
    QPointer<QTimer> timer_;
};

}  // namespace marquell::shell
