// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/SmartTimerWrapper.h"

#include <QCoreApplication>
#include <QObject>
#include <utility>

#include "shell/TimerInterval.h"

namespace marquell::shell {

// The timer belongs to the application, so that one which is put off for deletion when no event
// loop comes any more goes away with that.
SmartTimerWrapper::SmartTimerWrapper(Block block)
    : block_(std::make_shared<const Block>(std::move(block))),
      timer_(new QTimer(QCoreApplication::instance())) {
    timer_->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer_, &QTimer::timeout, timer_, [this] { execute(); });
}

std::unique_ptr<SmartTimerWrapper> SmartTimerWrapper::wrapTimer(
    std::chrono::duration<double> withSystemTimeInterval, bool repeats, Block block) {
    std::unique_ptr<SmartTimerWrapper> wrapper(new SmartTimerWrapper(std::move(block)));
    wrapper->timer_->setSingleShot(!repeats);
    wrapper->timer_->start(timerInterval(withSystemTimeInterval));
    return wrapper;
}

void SmartTimerWrapper::execute() const {
    // Stays until the block is done, also if that ends this wrapper.
    const std::shared_ptr<const Block> block = block_;
    (*block)(*timer_);
}

void SmartTimerWrapper::invalidate() {
    if (timer_ == nullptr) return;
    timer_->stop();
    timer_->disconnect();
    timer_->deleteLater();
    timer_ = nullptr;
}

}  // namespace marquell::shell
