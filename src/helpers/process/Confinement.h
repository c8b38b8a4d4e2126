// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace marquell::helpers {

/// Takes from this process, for good, what reading open files does not need: other files, other
/// processes, the network, new programs. Whoever takes the process over by a crafted file gains
/// what is left. To be called before the first file and after all that opens files of its own.
///
/// Returns the protections that the kernel had, as bits of HelperProtocol.h: none in builds with
/// sanitizers, which could not report.
std::uint32_t confine();

}  // namespace marquell::helpers
