// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>

#include "window/preview/FindBar.h"
#include "window/preview/TextOutputView.h"
#include "window/preview/TextSearch.h"

namespace marquell::window {

/// Finds in the text of a view what its user writes into a bar: marks all places, selects one after
/// the other and tells how many there are. A new text is searched anew, and the view stays where it
/// is. View and bar have to outlive it, but do not call it after its end.
class TextFinder {
public:
    TextFinder(TextOutputView& view, FindBar& bar);
    ~TextFinder();
    TextFinder(const TextFinder&) = delete;
    TextFinder& operator=(const TextFinder&) = delete;

    /// Opens the bar with the words that are selected in the view.
    void open();
    void close();
    void next();
    void previous();

private:
    enum class Direction { forward, backward };
    /// What is to be selected as soon as it is found.
    struct Wish {
        Direction direction;
        std::size_t from;
    };

    void search(std::optional<Wish> wish);
    void go(Direction direction);
    void grant();
    void showStatus();
    QString status() const;

    TextOutputView& view_;
    FindBar& bar_;
    std::optional<Wish> wish_;
    TextSearch search_;
};

}  // namespace marquell::window
