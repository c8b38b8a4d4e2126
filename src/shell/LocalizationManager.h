// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace marquell::shell {

/// In which language to address the user.
class LocalizationManager {
public:
    /// `localeName` as platform::localeName gives it for "LC_MESSAGES": "de_AT.UTF-8".
    explicit LocalizationManager(std::string_view localeName);

    const bool german;
    const bool english;

    /// Whether something that is there in German too is to be shown in German.
    bool useGerman() const { return german; }
};

}  // namespace marquell::shell
