// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/ViewMeasures.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QFontMetricsF>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <algorithm>

#include "toolkit/bricks/BrickType.h"
#include "toolkit/layout/LayoutRoot.h"
#include "toolkit/layout/ViewRecord.h"
#include "toolkit/look/TextLine.h"

namespace marquell::toolkit {
namespace {

ViewRecord::Priorities prioritiesSet(const QWidget* view, Qt::Orientation orientation) {
    const ViewRecord* record = existingRecordOf(view);
    return record ? record->priorities[orientation == Qt::Vertical] : ViewRecord::Priorities();
}

}  // namespace

bool isControl(const QWidget* view) {
    return qobject_cast<const QAbstractButton*>(view) || qobject_cast<const QLabel*>(view) ||
           qobject_cast<const QLineEdit*>(view) || qobject_cast<const QComboBox*>(view) ||
           qobject_cast<const QAbstractSlider*>(view) ||
           qobject_cast<const QAbstractSpinBox*>(view) || qobject_cast<const QProgressBar*>(view) ||
           dynamic_cast<const BrickType*>(view);
}

IntrinsicSize intrinsicSizeOf(const QWidget* view) {
    if (const auto* own = dynamic_cast<const IntrinsicallySized*>(view)) {
        return own->intrinsicContentSize();
    }
    if (!isControl(view)) return {};
    const QSize hint = view->sizeHint();
    return {double(hint.width()), double(hint.height())};
}

double firstBaselineOffsetOf(const QWidget* view) {
    return baselineOffset(QFontMetricsF(view->font()));
}

QSize requiredMinimumOf(const QWidget* view) {
    QSize least = view->minimumSize();
    if (const auto* own = dynamic_cast<const MinimumProviding*>(view)) {
        least = least.expandedTo(own->minimumContentSize());
    } else if (const auto* root = dynamic_cast<const LayoutRoot*>(view->layout())) {
        least = least.expandedTo(root->totalMinimumSize());
    }
    return least;
}

LayoutPriority contentHuggingPriority(const QWidget* view, Qt::Orientation orientation) {
    const auto set = prioritiesSet(view, orientation).hugging;
    if (set) return *set;
    if (orientation == Qt::Vertical) return LayoutPriority::high;
    return qobject_cast<const QLabel*>(view) ? LayoutPriority::labelHugging : LayoutPriority::low;
}

void setContentHuggingPriority(QWidget* view, Qt::Orientation orientation,
                               LayoutPriority priority) {
    recordOf(view).priorities[orientation == Qt::Vertical].hugging = priority;
    layoutChanged(view);
}

LayoutPriority contentCompressionResistancePriority(const QWidget* view,
                                                    Qt::Orientation orientation) {
    return prioritiesSet(view, orientation).compressionResistance.value_or(LayoutPriority::high);
}

void setContentCompressionResistancePriority(QWidget* view, Qt::Orientation orientation,
                                             LayoutPriority priority) {
    recordOf(view).priorities[orientation == Qt::Vertical].compressionResistance = priority;
    layoutChanged(view);
}

}  // namespace marquell::toolkit
