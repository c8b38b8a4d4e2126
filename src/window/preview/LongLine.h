// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

#include "window/preview/PageMeasure.h"
#include "window/preview/TextChunks.h"

namespace marquell::window {

/// Where the chunks of a line begin, in px. They are measured as far as is asked for; where that is
/// far, most are taken to be as wide as others near them until they come into view. Text and
/// measure have to outlive it.
class LongLine {
public:
    LongLine(const platform::LinedText& text, const PageMeasure& measure, const Line& line);

    std::size_t chunkCount() const { return chunkCount_; }
    double startOf(std::size_t chunk);
    double endOf(std::size_t chunk);
    /// The last chunk that begins at `x` or before.
    std::size_t chunkAtX(double x);

    /// `width`: of the chunk as it is laid out.
    void setWidth(std::size_t chunk, double width);

private:
    struct Width {
        float px;
        bool isMeasured;
    };

    void findWidthsUpTo(std::size_t chunk);
    void findStartsUpTo(std::size_t chunk);
    void measure(std::size_t chunk);
    float measuredWidth(std::size_t chunk) const;

    const platform::LinedText& text_;
    const PageMeasure& measure_;
    const Line line_;
    const std::size_t chunkCount_;
    std::vector<Width> widths_;
    std::vector<double> starts_;  // as many as are in force
};

}  // namespace marquell::window
