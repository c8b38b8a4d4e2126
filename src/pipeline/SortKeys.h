// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marquell::pipeline {

class Node;

/// The key by which texts compare without regard to case, as bytes.
std::string textSortKey(std::string_view text);

/// Makes the keys of one sort mode: byte strings whose plain comparison orders the nodes ascending.
class SortKeyMaker {
public:
    /// `mode` from 0 to 15; any other is not known and has no keys.
    explicit SortKeyMaker(int mode);

    bool isKnown() const { return mode_ != nullptr; }
    bool isDescending() const;
    bool hasSameKeyAs(const SortKeyMaker& other) const;
    /// The column that keys come from, so that making one may read the file; empty if the path
    /// says all.
    std::string_view column() const;

    /// Appends the node's key; extracts what it needs on the caller's thread. Any thread.
    void append(std::string& key, Node& node) const;
    std::string key(Node& node) const;

    struct Mode;

private:
    const Mode* mode_;
};

}  // namespace marquell::pipeline
