// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <variant>

namespace marquell::shell {

/// Once: at the first launch that is at least so many days of 24 hours after the first recorded
/// one. With 0 or less that is the first launch itself. An item that comes to the list after its
/// time was reached has missed it.
struct AfterDays {
    int days;
};

/// Once: at the launch of this number, the first recorded one being number 1.
struct AfterLaunches {
    int launches;
};

/// At each launch that finds the key without a value, be it a stored or a registered one.
struct UntilDefaultsKeyIsSet {
    std::string defaultsKey;
};

/// Once: at the first recorded launch.
struct FirstLaunch {};

struct EveryTime {};

/// At which launches of the program a task is due.
using LaunchTrigger =
    std::variant<AfterDays, AfterLaunches, UntilDefaultsKeyIsSet, FirstLaunch, EveryTime>;

}  // namespace marquell::shell
