// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/TextBuffer.h"

namespace marquell::platform {

/// A text that will not change any more, and where its lines are: they end at LF, CR LF or CR, or
/// at the end of the text. There is always one, if only an empty one; a break at the very end is
/// followed by an empty line. Any thread may read it. Offsets in bytes, lines count from 0.
class LinedText {
public:
    /// Reads the text once, at two GB a second and more; the index takes little memory, however
    /// short the lines are.
    explicit LinedText(std::shared_ptr<const TextBuffer> text);

    struct Line {
        std::size_t start;
        std::size_t end;   ///< before the break
        std::size_t next;  ///< behind the break; the start of the next line if there is one
    };

    std::string_view text() const { return text_->view(); }
    std::size_t lineCount() const { return lineCount_; }
    Line line(std::size_t index) const;
    /// The line that the byte is in; a break belongs to the line that it ends.
    std::size_t lineAt(std::size_t offset) const;
    /// Of the longest line in bytes, without its break.
    std::size_t longestLineLength() const { return longestLineLength_; }

private:
    /// Where a line starts. There is one for every 16 KB and every 256 lines, so that a line is
    /// found by reading a little: one that is longer is the last before the next place.
    struct Place {
        std::size_t line;
        std::size_t start;
    };
    using Places = std::vector<Place>;

    void addLine(std::size_t start);
    /// `behind`: the first place behind the one given.
    std::size_t nextStart(const Place& at, Places::const_iterator behind) const;

    std::shared_ptr<const TextBuffer> text_;
    Places places_ = {{0, 0}};
    std::size_t lineCount_ = 1;
    std::size_t longestLineLength_ = 0;
};

}  // namespace marquell::platform
