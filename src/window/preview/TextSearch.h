// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "platform/LinedText.h"
#include "platform/OperationQueue.h"
#include "window/preview/SearchRun.h"
#include "window/preview/TextPattern.h"
#include "window/preview/TextRange.h"

namespace marquell::window {

/// Looks for words in a text of any length, on a thread of its own. Main thread only.
class TextSearch {
public:
    TextSearch();
    ~TextSearch();
    TextSearch(const TextSearch&) = delete;
    TextSearch& operator=(const TextSearch&) = delete;

    /// Called when more is known: after the first hit, now and then, and at the end.
    std::function<void()> progressed;

    /// Begins at the byte `from` and goes on from the text's beginning. Ends the search before.
    void start(std::shared_ptr<const platform::LinedText> text, TextPattern pattern,
               std::size_t from);
    void stop();

    bool isActive() const { return run_ != nullptr; }

    // What follows is for an active search.

    bool isFinished() const { return run_->isFinished(); }
    /// Hits so far.
    std::size_t hitCount() const { return run_->hitCount(); }

    struct Answer {
        bool isKnown = true;  ///< false: it will be when more is searched
        std::optional<TextRange> hit = std::nullopt;
    };
    /// The first hit that begins at a byte or behind it, and the last that begins before it. Beyond
    /// either end of the text they are looked for at the other.
    Answer hitFrom(std::size_t offset) const;
    Answer hitBefore(std::size_t offset) const;

    /// Those that touch a range.
    std::vector<TextRange> hitsIn(const TextRange& range) const;

    /// How many hits begin before a byte, once the search is finished.
    std::size_t numberBefore(std::size_t offset) const;

private:
    class Operation;

    void tell(const SearchRun* run) const;
    const std::vector<TextRange>& hitsOf(std::size_t block) const;

    std::shared_ptr<SearchRun> run_;
    mutable std::unordered_map<std::size_t, std::vector<TextRange>> hits_;  // of a few blocks
    QObject receiver_;  // of what the thread tells, so the thread has to end before it
    platform::OperationQueue queue_;
};

}  // namespace marquell::window
