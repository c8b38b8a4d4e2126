// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QString>

#include "pipeline/OutputEngineViewModel.h"

namespace marquell::window {

/// What the status line says of the engine's progress, with numbers as the locale writes them.
/// `cycle`, 0 to 3, is how far the dots have grown of work that nobody knows the end of.
QString statusText(const pipeline::OutputEngineViewModel& model, int cycle, const QLocale& locale);

}  // namespace marquell::window
