// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "window/preview/PreviewTableCellView.h"

namespace marquell::window {

/// A value of the node on show: waits for it and refills itself as a cell of the preview does.
class InfoPanePreviewTableCellView final : public PreviewTableCellView {};

}  // namespace marquell::window
