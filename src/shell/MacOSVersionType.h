// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace marquell::shell {

enum class MacOSVersionType : std::uint32_t {
    mavericks = 9,
    yosemite,
    elCapitan,
    sierra,
    highSierra,
    mojave,
    catalina,
    bigSur,
    monterey,
    ventura,
    asYetUnknownLaterVersion,
};

/// What the numbers stand for; for those of no known version `asYetUnknownLaterVersion`.
MacOSVersionType versionType(int major, int minor);

}  // namespace marquell::shell
