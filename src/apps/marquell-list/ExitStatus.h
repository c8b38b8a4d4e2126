// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marquell::apps {

enum class ExitStatus : int {
    success = 0,
    incomplete = 1,    ///< the list is made, but something could not be read
    wrongUsage = 2,    ///< nothing is written
    notDelivered = 3,  ///< the list could not be written
};

}  // namespace marquell::apps
