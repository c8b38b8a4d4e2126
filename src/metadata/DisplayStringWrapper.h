// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace marquell::metadata {

/// The answer to a display query.
struct DisplayStringWrapper {
    enum class Kind {
        notRetrievedYet,  ///< under way; observers will be told
        noValue,          ///< the source has nothing for this key, or the key has no source
        string,
    };

    Kind kind = Kind::noValue;
    std::string text = {};  ///< of `string`; without line breaks and tabs

    friend bool operator==(const DisplayStringWrapper&, const DisplayStringWrapper&) = default;
};

}  // namespace marquell::metadata
