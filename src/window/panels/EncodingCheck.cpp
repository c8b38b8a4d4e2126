// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/panels/EncodingCheck.h"

#include <chrono>
#include <memory>
#include <utility>

#include "platform/OperationQueue.h"

namespace marquell::window {
namespace {

using namespace std::chrono_literals;

class Search final : public platform::Operation {
public:
    explicit Search(std::packaged_task<EncodingCheck::Answer()> task) : task_(std::move(task)) {}

    void main() override { task_(); }

private:
    std::packaged_task<EncodingCheck::Answer()> task_;
};

void runOnWorker(std::packaged_task<EncodingCheck::Answer()> task) {
    static platform::OperationQueue queue("encodingCheck");
    const auto search = std::make_shared<Search>(std::move(task));
    // Without a thread the user has to wait.
    if (!queue.addOperation(search)) search->main();
}

}  // namespace

EncodingCheck::EncodingCheck(std::function<Answer()> search, std::function<void()> answered)
    : answered_(std::move(answered)) {
    std::packaged_task<Answer()> task(std::move(search));
    coming_ = task.get_future();
    runOnWorker(std::move(task));
    // Looked for rather than sent, so that the search needs nothing that may be gone at its end.
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
    timer_.start(20ms);
}

void EncodingCheck::look() {
    if (coming_.wait_for(0s) != std::future_status::ready) return;
    timer_.stop();
    answer_ = coming_.get();
    isAnswered_ = true;
    answered_();
}

}  // namespace marquell::window
