// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QString>
#include <optional>

namespace marquell::shell {

/// The font of a description as GNOME's settings have it: families, words for weight, style and
/// width, and the size in points ("Noto Sans Mono Medium 10.5"). Nothing without a family or a
/// sensible size. Such a word counts as part of a family if something else follows, at least a
/// comma ("Arial Black, 11").
std::optional<QFont> fontFromDescription(const QString& description);

}  // namespace marquell::shell
