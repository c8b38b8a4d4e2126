// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <array>
#include <optional>

#include "toolkit/layout/LayoutConstraint.h"

namespace marquell::toolkit {

/// What the layout keeps of a view, beside the view: it goes when the view goes.
struct ViewRecord {
    struct Priorities {
        std::optional<LayoutPriority> hugging;
        std::optional<LayoutPriority> compressionResistance;
    };

    LayoutConstraints constraints;         // that the view holds as their container
    std::array<Priorities, 2> priorities;  // horizontal, vertical; what was set
};

ViewRecord& recordOf(const QWidget* view);

/// Null as long as nothing was kept.
ViewRecord* existingRecordOf(const QWidget* view);

}  // namespace marquell::toolkit
