// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marquell::helpers {

/// Whether this is a build with a sanitizer that takes memory and opens files as it likes, so that
/// it cannot be confined.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool isSanitized = true;
#else
inline constexpr bool isSanitized = false;
#endif

}  // namespace marquell::helpers
