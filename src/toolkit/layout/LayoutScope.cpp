// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/LayoutScope.h"

#include <QAbstractScrollArea>

#include "toolkit/layout/LayoutRoot.h"
#include "toolkit/layout/ViewMeasures.h"
#include "toolkit/layout/ViewRecord.h"

namespace marquell::toolkit {
namespace {

bool lost(const LayoutConstraint& constraint, const QWidget* container) {
    const QWidget* subject = constraint.firstItem();
    if (!subject || (constraint.hasSecondItem() && !constraint.secondItem())) return true;
    return subject != container && !container->isAncestorOf(subject);
}

void takeConstraints(const QWidget* container, LayoutScope& scope) {
    ViewRecord* record = existingRecordOf(container);
    if (!record) return;
    std::erase_if(record->constraints, [&](const auto& held) { return lost(*held, container); });
    scope.constraints.insert(scope.constraints.end(), record->constraints.begin(),
                             record->constraints.end());
}

/// Hidden by somebody, not merely not shown yet.
bool isHiddenByHand(const QWidget* view) {
    return view->isHidden() && view->testAttribute(Qt::WA_WState_ExplicitShowHide);
}

bool hasInsideOfItsOwn(const QWidget* view) {
    return isControl(view) || qobject_cast<const QAbstractScrollArea*>(view) ||
           dynamic_cast<const LayoutRoot*>(view->layout());
}

void goBelow(const QWidget* container, LayoutScope& scope) {
    takeConstraints(container, scope);
    for (QObject* child : container->children()) {
        auto* view = qobject_cast<QWidget*>(child);
        if (!view || view->isWindow() || isHiddenByHand(view)) continue;
        scope.views.push_back(view);
        if (!hasInsideOfItsOwn(view)) goBelow(view, scope);
    }
}

}  // namespace

LayoutScope scopeBelow(const QWidget* rootView) {
    LayoutScope scope;
    goBelow(rootView, scope);
    return scope;
}

}  // namespace marquell::toolkit
