// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <functional>
#include <future>
#include <optional>

#include "pipeline/OutputEngineDisplay.h"

namespace marquell::window {

/// Runs the search of an offer for a lacking character in the background. It may go before there
/// is an answer: the search then comes to its end on its own.
class EncodingCheck {
public:
    using Answer = std::optional<pipeline::LackingCharacter>;

    /// Calls `answered` once, on the main thread, from its event loop.
    EncodingCheck(std::function<Answer()> search, std::function<void()> answered);

    bool isAnswered() const { return isAnswered_; }
    /// What the encoding lacks, as far as that is known.
    const Answer& answer() const { return answer_; }

private:
    void look();

    const std::function<void()> answered_;
    std::future<Answer> coming_;
    bool isAnswered_ = false;
    Answer answer_;
    QTimer timer_;
};

}  // namespace marquell::window
