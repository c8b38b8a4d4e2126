// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/fragments/FragmentStackView.h"

#include <QChildEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <algorithm>

#include "toolkit/bricks/BricksFactory.h"
#include "toolkit/fragments/FragmentWall.h"

namespace marquell::toolkit {

FragmentStackView::FragmentStackView(QWidget* parent) : QWidget(parent) {}

FragmentStackView::~FragmentStackView() = default;

void FragmentStackView::setInheritsFlipped(bool inheritsFlipped) {
    inheritsFlipped_ = inheritsFlipped;
    chainUp();
}

void FragmentStackView::setSpacing(double spacing) {
    spacing_ = spacing;
    chainUp();
}

void FragmentStackView::setEdgeInsets(const QMarginsF& edgeInsets) {
    edgeInsets_ = edgeInsets;
    chainUp();
}

void FragmentStackView::addArrangedSubview(QWidget* view) {
    insertArrangedSubview(view, static_cast<int>(arranged_.size()));
}

void FragmentStackView::insertArrangedSubview(QWidget* view, int at) {
    Arranged entry{.view = view};
    if (const Arranged* present = find(view)) {
        entry = *present;
        std::erase_if(arranged_, [&](const Arranged& each) { return each.view == view; });
    } else {
        addSubview(this, view);
        view->installEventFilter(this);
    }
    arranged_.insert(arranged_.begin() + std::clamp(at, 0, static_cast<int>(arranged_.size())),
                     entry);
    chainUp();
}

std::vector<QWidget*> FragmentStackView::arrangedSubviews() const {
    std::vector<QWidget*> views;
    for (const Arranged& each : arranged_) views.push_back(each.view);
    return views;
}

void FragmentStackView::setVisibilityPriority(VisibilityPriority priority, QWidget* view) {
    Arranged* entry = find(view);
    if (entry == nullptr || entry->priority == priority) return;
    entry->priority = priority;
    const bool isShown = priority != VisibilityPriority::notVisible;
    if (!isShown) entry->isHiddenByItself = view->isHidden();
    {
        const QScopedValueRollback changing(isChangingVisibility_, true);
        view->setVisible(isShown && !entry->isHiddenByItself);
    }
    chainUp();
}

VisibilityPriority FragmentStackView::visibilityPriority(const QWidget* view) const {
    for (const Arranged& each : arranged_) {
        if (each.view == view) return each.priority;
    }
    return VisibilityPriority::notVisible;
}

void FragmentStackView::addFragment(FragmentWall* fragment) {
    addArrangedSubview(fragment);
    fragment->install(this);
}

void FragmentStackView::insertFragmentAtTop(FragmentWall* fragment) {
    insertArrangedSubview(fragment, isFlipped() ? 0 : static_cast<int>(arranged_.size()));
    fragment->install(this);
}

void FragmentStackView::insertFragmentAsSecondLast(FragmentWall* fragment) {
    insertArrangedSubview(fragment, static_cast<int>(arranged_.size()) - 1);
    fragment->install(this);
}

void FragmentStackView::hideFragment(FragmentWall* fragment) {
    setVisibilityPriority(VisibilityPriority::notVisible, fragment);
}

void FragmentStackView::showFragment(FragmentWall* fragment) {
    setVisibilityPriority(VisibilityPriority::detachOnlyIfNecessary, fragment);
}

FragmentStackView::Arranged* FragmentStackView::find(const QObject* view) {
    const auto entry = std::find_if(arranged_.begin(), arranged_.end(),
                                    [&](const Arranged& each) { return each.view == view; });
    return entry == arranged_.end() ? nullptr : &*entry;
}

std::vector<QWidget*> FragmentStackView::shownFromTop() const {
    std::vector<QWidget*> shown;
    for (const Arranged& each : arranged_) {
        if (!each.view->isHidden()) shown.push_back(each.view);
    }
    if (!isFlipped()) std::reverse(shown.begin(), shown.end());
    return shown;
}

void FragmentStackView::chainUp() {
    using enum LayoutAttribute;
    removeConstraints(this, chain_);
    chain_.clear();
    const auto state = [this](QWidget* view, LayoutAttribute attribute, Relation relation,
                              QWidget* other, LayoutAttribute otherAttribute, double constant) {
        chain_.push_back(std::make_shared<LayoutConstraint>(view, attribute, relation, other,
                                                            otherAttribute, 1, constant));
    };
    QWidget* above = nullptr;
    for (QWidget* view : shownFromTop()) {
        state(view, left, Relation::equal, this, left, edgeInsets_.left());
        state(this, right, Relation::greaterThanOrEqual, view, right, edgeInsets_.right());
        if (above == nullptr) {
            state(view, top, Relation::equal, this, top, edgeInsets_.top());
        } else {
            state(view, top, Relation::equal, above, bottom, spacing_);
        }
        above = view;
    }
    if (above != nullptr) {
        state(this, bottom, Relation::equal, above, bottom, edgeInsets_.bottom());
    }
    addConstraints(this, chain_);
}

bool FragmentStackView::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    const bool changesVisibility =
        (type == QEvent::ShowToParent || type == QEvent::HideToParent) && !isChangingVisibility_;
    if (Arranged* entry = changesVisibility ? find(watched) : nullptr) {
        if (entry->priority == VisibilityPriority::notVisible) {
            entry->isHiddenByItself = type == QEvent::HideToParent;
            const QScopedValueRollback changing(isChangingVisibility_, true);
            entry->view->hide();
        } else {
            chainUp();
        }
    }
    return QWidget::eventFilter(watched, event);
}

void FragmentStackView::childEvent(QChildEvent* event) {
    QWidget::childEvent(event);
    if (!event->removed()) return;
    const auto isTheOne = [&](const Arranged& each) { return each.view == event->child(); };
    if (std::erase_if(arranged_, isTheOne) > 0) chainUp();
}

void FragmentStackView::setBackgroundColor(std::optional<QColor> color) {
    backgroundColor_ = color;
    update();
}

void FragmentStackView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    draw(painter);
}

void FragmentStackView::draw(QPainter& painter) {
    const QRectF bounds = rect();
    if (backgroundDrawingFunc) {
        backgroundDrawingFunc(painter, bounds);
    } else if (backgroundColor_) {
        painter.fillRect(bounds, *backgroundColor_);
    }
}

}  // namespace marquell::toolkit
