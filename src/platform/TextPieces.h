// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string_view>

namespace marquell::platform {

// Where text may be cut without parting what composing would join. All take well-formed UTF-8.

/// The end of the piece of `limit` bytes at most (and 4 at least) that begins at `start`, behind
/// which composing may stop. Long runs of ASCII make pieces of their own. A piece also ends behind
/// an escape sequence whose last letter a mark would join: `\n` and the marks of a value are none
/// of each other's business. Only a run of marks that is longer than a whole piece is cut anywhere.
std::size_t pieceEnd(std::string_view text, std::size_t start, std::size_t limit);

/// Length of what composes with the first code point of `text` and with nothing behind.
std::size_t compositionLength(std::string_view text);

}  // namespace marquell::platform
