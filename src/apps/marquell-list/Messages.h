// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace marquell::apps {

/// A line on standard error behind the program's name, in one write, so that lines of programs that
/// share a terminal don't mix. What comes from files or users belongs into quoted().
void printMessage(std::string_view message);

/// `text` in quotes and safe to show.
std::string quoted(std::string_view text);

/// A character by number and, safe to show, by itself.
std::string characterName(char32_t character);

/// The end of a message: asks whether the nearest of `candidates` was meant, if one is near.
template <typename Candidates>
std::string suggestion(std::string_view word, const Candidates& candidates);

/// Single-byte changes that turn one word into the other, letter case being none.
std::size_t editDistance(std::string_view word, std::string_view other);

template <typename Candidates>
std::string suggestion(std::string_view word, const Candidates& candidates) {
    std::string_view nearest;
    std::size_t nearestDistance = word.size() / 3 + 2;
    for (const std::string_view candidate : candidates) {
        // A beginning is as near as a slip of the pen.
        const bool isBeginning =
            word.size() > 2 && editDistance(word, candidate.substr(0, word.size())) == 0;
        const std::size_t distance =
            std::min<std::size_t>(editDistance(word, candidate), isBeginning ? 1 : SIZE_MAX);
        const bool isShorter = distance == nearestDistance && candidate.size() < nearest.size();
        if (distance < nearestDistance || isShorter) {
            nearest = candidate;
            nearestDistance = distance;
        }
    }
    return nearest.empty() ? "." : "; did you mean " + quoted(nearest) + "?";
}

}  // namespace marquell::apps
