// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

namespace marquell::variables {

/// Closures that run, in their order, when the owner of the bag goes away.
class EndOfLifeBag {
public:
    EndOfLifeBag() = default;
    EndOfLifeBag(const EndOfLifeBag&) = delete;
    EndOfLifeBag& operator=(const EndOfLifeBag&) = delete;
    ~EndOfLifeBag();

    std::vector<std::function<void()>> closures;
};

}  // namespace marquell::variables
