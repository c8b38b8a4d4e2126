// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace marquell::gallery {

/// Has all texts of pages made from now on in a language of its own: readable English with accents,
/// 40 % longer.
void setLongWords(bool areLong);

/// A text of a page.
QString words(const char* english);

}  // namespace marquell::gallery
