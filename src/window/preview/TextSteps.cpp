// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextSteps.h"

#include <QTextBoundaryFinder>
#include <algorithm>
#include <vector>

#include "platform/UnicodeText.h"
#include "window/preview/DecodedText.h"

namespace marquell::window {
namespace {

using platform::LinedText;

constexpr std::size_t usualReach = 128;         // bytes
constexpr std::size_t farthestReach = 1 << 16;  // a longer run of marks is cut anywhere
constexpr std::size_t wordReach = 4096;

/// A place before or at `from`, and if possible no farther than `reach`, where a character begins
/// for sure, as ASCII ones do.
std::size_t safeStart(std::string_view text, const LinedText::Line& line, std::size_t from,
                      std::size_t reach) {
    const std::size_t least = from - std::min(reach, from - line.start);
    std::size_t start = from;
    while (start > least && !(start < line.end && platform::asciiLength(text.substr(start, 1)))) {
        --start;
    }
    while (start > line.start && !beginsCodePoint(text, start)) --start;
    return start;
}

std::size_t safeEnd(std::string_view text, const LinedText::Line& line, std::size_t from,
                    std::size_t reach) {
    std::size_t end = from + std::min(reach, line.end - from);
    while (end < line.end && !beginsCodePoint(text, end)) ++end;
    return end;
}

/// The characters of a line about a place, each by its start, and the end of the last.
std::vector<std::size_t> charactersAbout(std::string_view text, const LinedText::Line& line,
                                         std::size_t offset, std::size_t reach) {
    std::size_t at =
        safeStart(text, line, offset - std::min<std::size_t>(1, offset - line.start), reach);
    const std::size_t end = safeEnd(text, line, offset, reach);
    std::vector<std::size_t> starts = {at};
    platform::forEachCharacter(text.substr(at, end - at), [&](std::string_view character) {
        at += character.size();
        starts.push_back(at);
    });
    return starts;
}

/// What `choose` finds among the characters about a place. It is asked again with more of them as
/// long as it finds what may be the cut between what was looked at and what was not.
template <typename Choose>
std::size_t chooseCharacter(std::string_view text, const LinedText::Line& line, std::size_t offset,
                            Choose choose) {
    for (std::size_t reach = usualReach;; reach *= 8) {
        const auto starts = charactersAbout(text, line, offset, reach);
        const std::size_t chosen = choose(starts);
        const bool isCut = (chosen == starts.front() && chosen > line.start &&
                            !platform::asciiLength(text.substr(chosen, 1))) ||
                           (chosen == starts.back() && chosen < line.end);
        if (!isCut || reach >= farthestReach) return chosen;
    }
}

/// The words of a line about a place. One that reaches beyond what is looked at is cut there.
class Words {
public:
    using Reason = QTextBoundaryFinder::BoundaryReason;

    Words(const LinedText& text, const LinedText::Line& line, std::size_t offset)
        : start_(safeStart(text.text(), line, offset - std::min(wordReach, offset - line.start),
                           usualReach)),
          end_(safeEnd(text.text(), line, offset, wordReach)),
          decoded_(text.text().substr(start_, end_ - start_)),
          finder_(QTextBoundaryFinder::Word, decoded_.text()) {
        finder_.setPosition(decoded_.unitOf(offset - start_));
    }

    std::size_t toNext(Reason reason = QTextBoundaryFinder::BreakOpportunity) {
        while (finder_.toNextBoundary() >= 0) {
            if (finder_.boundaryReasons() & reason) return offset();
        }
        return end_;
    }
    std::size_t toPrevious(Reason reason = QTextBoundaryFinder::BreakOpportunity) {
        while (finder_.toPreviousBoundary() >= 0) {
            if (finder_.boundaryReasons() & reason) return offset();
        }
        return start_;
    }

private:
    std::size_t offset() const { return start_ + decoded_.offsetOf(finder_.position()); }

    std::size_t start_;
    std::size_t end_;
    DecodedText decoded_;
    QTextBoundaryFinder finder_;
};

LinedText::Line lineAbout(const LinedText& text, std::size_t offset) {
    return text.line(text.lineAt(offset));
}

}  // namespace

std::size_t nextCharacter(const LinedText& text, std::size_t offset) {
    const LinedText::Line line = lineAbout(text, offset);
    if (offset >= line.end) return line.next;
    return chooseCharacter(text.text(), line, offset, [offset](const auto& starts) {
        return *std::ranges::upper_bound(starts, offset);
    });
}

std::size_t previousCharacter(const LinedText& text, std::size_t offset) {
    const LinedText::Line line = lineAbout(text, offset);
    if (offset > line.end) return line.end;
    if (offset == line.start) return offset == 0 ? 0 : lineAbout(text, offset - 1).end;
    return chooseCharacter(text.text(), line, offset, [offset](const auto& starts) {
        return *std::prev(std::ranges::lower_bound(starts, offset));
    });
}

std::size_t characterStart(const LinedText& text, std::size_t offset) {
    const LinedText::Line line = lineAbout(text, offset);
    if (offset >= line.end) return offset == line.next ? offset : line.end;
    return chooseCharacter(text.text(), line, offset, [offset](const auto& starts) {
        return *std::prev(std::ranges::upper_bound(starts, offset));
    });
}

std::size_t nextWord(const LinedText& text, std::size_t offset) {
    const LinedText::Line line = lineAbout(text, offset);
    if (offset >= line.end) return line.next;
    return Words(text, line, offset).toNext(QTextBoundaryFinder::StartOfItem);
}

std::size_t previousWord(const LinedText& text, std::size_t offset) {
    const LinedText::Line line = lineAbout(text, offset);
    if (offset > line.end || offset == line.start) return previousCharacter(text, offset);
    return Words(text, line, offset).toPrevious(QTextBoundaryFinder::StartOfItem);
}

TextRange wordAt(const LinedText& text, std::size_t offset) {
    const LinedText::Line line = lineAbout(text, offset);
    if (line.start == line.end) return {line.start, line.start};
    Words words(text, line, offset < line.end ? offset : previousCharacter(text, line.end));
    const std::size_t end = words.toNext();
    return {words.toPrevious(), end};
}

}  // namespace marquell::window
