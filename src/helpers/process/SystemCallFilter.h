// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marquell::helpers {

/// Has the kernel refuse the system calls by which a process reaches beyond its own memory and its
/// open files, for good. What only reads, computes or takes memory is left alone, so that a newer
/// C library goes on working. False if the kernel has no such filter.
bool filterSystemCalls();

}  // namespace marquell::helpers
