// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marquell::helpers {

/// Closes what the program has left open beside the descriptors of the protocol, bounds what this
/// process may take of memory, files and stack, and lets it be the first to go when memory is
/// short. CPU time is bounded by the program.
void limitResources();

/// Has the kernel kill this process once the other end of the pipe is closed, whatever it is doing
/// then. Only the program holds that end, so this is when the program ends. False if there is no
/// such pipe or the program is gone already.
bool dieWithProgram(int lifeline);

}  // namespace marquell::helpers
