// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MacOSVersionType.h"

#include <array>
#include <optional>

namespace marquell::shell {
namespace {

struct Row {
    int major = 0;
    std::optional<int> minor;  // any, without one
    MacOSVersionType type = MacOSVersionType::asYetUnknownLaterVersion;
};

/// The first row that fits counts.
constexpr std::array rows = {
    Row{10, 9, MacOSVersionType::mavericks},   Row{10, 10, MacOSVersionType::yosemite},
    Row{10, 11, MacOSVersionType::elCapitan},  Row{10, 12, MacOSVersionType::sierra},
    Row{10, 13, MacOSVersionType::highSierra}, Row{10, 14, MacOSVersionType::mojave},
    Row{10, {}, MacOSVersionType::catalina},   Row{11, {}, MacOSVersionType::bigSur},
    Row{12, {}, MacOSVersionType::monterey},   Row{13, {}, MacOSVersionType::ventura},
};

}  // namespace

MacOSVersionType versionType(int major, int minor) {
    for (const Row& row : rows) {
        if (row.major == major && row.minor.value_or(minor) == minor) return row.type;
    }
    return MacOSVersionType::asYetUnknownLaterVersion;
}

}  // namespace marquell::shell
