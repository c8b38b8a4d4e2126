// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <string_view>
#include <vector>

namespace marquell::window {

/// How wide text is without laying it out, in px: exact for writing whose letters stand beside one
/// another as they are, near for such that joins or piles them up. Text in a font of fixed pitch is
/// mostly counted, at some GB a second.
class TextAdvances {
public:
    TextAdvances(const QFont& font, double tabDistance);

    /// Of a piece of UTF-8 text without breaks. Its tabs count from its own start.
    double widthOf(std::string_view text) const;

    /// Whether text without tabs is certain to be laid out as wide.
    bool isExactFor(std::string_view text) const;

    /// The stop that a tab at `x` goes to. One that is too near for a gap to be seen is passed.
    double behindTab(double x) const;

private:
    double advanceOf(char32_t character) const;
    double measuredAdvanceOf(char32_t character) const;

    QFontMetricsF font_;
    double tabDistance_;
    double leastTab_;
    double pitch_;                         // of all printable ASCII characters, 0 if they differ
    mutable std::vector<float> advances_;  // by code point, negative: not asked for yet
};

}  // namespace marquell::window
