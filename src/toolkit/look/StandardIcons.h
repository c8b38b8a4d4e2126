// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QStyle>
#include <optional>

namespace marquell::toolkit {

/// The house's icon in place of one of the style's, in strokes of the text's colour; absent if the
/// house has none. Icons of ways onwards and back follow the direction of reading.
std::optional<QIcon> standardIconFor(QStyle::StandardPixmap standard,
                                     Qt::LayoutDirection direction);

}  // namespace marquell::toolkit
