// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "toolkit/layout/LayoutConstraint.h"

namespace marquell::toolkit {

/// The size that a view's content asks for, in px; -1 where it asks for none.
struct IntrinsicSize {
    double width = -1;
    double height = -1;
};

/// A view that says itself what its content asks for. It calls updateGeometry() when that changes.
class IntrinsicallySized {
public:
    virtual ~IntrinsicallySized() = default;
    virtual IntrinsicSize intrinsicContentSize() const = 0;
};

/// A view with content that has a smallest size (pages, split views): never laid out below it.
class MinimumProviding {
public:
    virtual ~MinimumProviding() = default;
    virtual QSize minimumContentSize() const = 0;
};

/// Whether the view is a control or label of Qt or ours: these ask for their size hint.
bool isControl(const QWidget* view);

/// What the view asks for: its own word, else a control's size hint, else nothing.
IntrinsicSize intrinsicSizeOf(const QWidget* view);

/// How far below the middle of the view the baseline of its text lies, in px.
double firstBaselineOffsetOf(const QWidget* view);

/// Smallest size that the view may be given, in px.
QSize requiredMinimumOf(const QWidget* view);

/// How strongly a view resists to be larger (hugging) or smaller (compression resistance) than its
/// content asks for. At first 250 for hugging across, 251 for labels, 750 for the rest.
LayoutPriority contentHuggingPriority(const QWidget* view, Qt::Orientation orientation);
void setContentHuggingPriority(QWidget* view, Qt::Orientation orientation, LayoutPriority priority);
LayoutPriority contentCompressionResistancePriority(const QWidget* view,
                                                    Qt::Orientation orientation);
void setContentCompressionResistancePriority(QWidget* view, Qt::Orientation orientation,
                                             LayoutPriority priority);

}  // namespace marquell::toolkit
