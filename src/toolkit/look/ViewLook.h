// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <optional>

#include "toolkit/look/ButtonRole.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/Surface.h"

namespace marquell::toolkit {

/// What a single view was told of its look. Kept beside the views, for it is read at each paint.
struct ViewLook {
    QWidget* view = nullptr;
    std::optional<Appearance> appearance;
    std::optional<FontRole> fontRole;
    ControlSize controlSize = ControlSize::regular;
    ButtonRole buttonRole = ButtonRole::plain;
};

/// The look of a view that nothing was told is that of a new ViewLook.
const ViewLook& lookOf(const QWidget* view);

/// The entry of the view, made if there is none; it goes with the view.
ViewLook& changeLookOf(QWidget* view);

/// All views that were told something.
QHash<const QWidget*, ViewLook>& viewLooks();

}  // namespace marquell::toolkit
