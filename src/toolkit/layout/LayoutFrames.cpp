// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/LayoutFrames.h"

#include "toolkit/layout/ViewMeasures.h"

namespace marquell::toolkit {
namespace {

bool followsReading(LayoutAttribute attribute) {
    return attribute == LayoutAttribute::leading || attribute == LayoutAttribute::trailing;
}

}  // namespace

void LayoutExpression::add(Simplex::Variable variable, double coefficient) {
    terms.push_back({variable, coefficient});
}

void LayoutExpression::add(const LayoutExpression& other, double factor) {
    for (const auto& term : other.terms) add(term.variable, factor * term.coefficient);
    constant += factor * other.constant;
}

LayoutFrames::LayoutFrames(Simplex& simplex, const QWidget* rootView)
    : simplex_(simplex),
      rootView_(rootView),
      root_{0, 0, simplex.addNonNegativeVariable(), simplex.addNonNegativeVariable()} {}

const LayoutFrames::Frame& LayoutFrames::frameOf(const QWidget* view) {
    const auto found = frames_.find(view);
    if (found != frames_.end()) return found->second;
    if (spare_.empty()) {
        spare_.push_back({simplex_.addVariable(), simplex_.addVariable(),
                          simplex_.addNonNegativeVariable(), simplex_.addNonNegativeVariable()});
    }
    const Frame frame = spare_.back();
    spare_.pop_back();
    return frames_.emplace(view, frame).first->second;
}

void LayoutFrames::forget(const QWidget* view) {
    const auto found = frames_.find(view);
    if (found == frames_.end()) return;
    spare_.push_back(found->second);
    frames_.erase(found);
}

LayoutExpression LayoutFrames::positionOf(const QWidget* view, Qt::Orientation orientation,
                                          double share) {
    const bool isRoot = view == rootView_;
    const Frame& frame = isRoot ? root_ : frameOf(view);
    const bool across = orientation == Qt::Horizontal;
    LayoutExpression position;
    if (!isRoot) position.add(across ? frame.left : frame.top, 1);
    if (share != 0) position.add(across ? frame.width : frame.height, share);
    return position;
}

LayoutExpression LayoutFrames::attributeOf(const QWidget* view, LayoutAttribute attribute,
                                           bool inReadingDirection) {
    const bool mirrored = rootView_->layoutDirection() == Qt::RightToLeft;
    // Counted in the direction of reading, so that distances need not change their sign.
    LayoutExpression mirroredEdge;
    if (followsReading(attribute)) {
        const bool starts = (attribute == LayoutAttribute::leading) != mirrored;
        const auto edge = positionOf(view, Qt::Horizontal, starts ? 0 : 1);
        mirroredEdge.add(edge, mirrored && inReadingDirection ? -1 : 1);
        return mirroredEdge;
    }
    const Frame& frame = view == rootView_ ? root_ : frameOf(view);
    switch (attribute) {
        case LayoutAttribute::width:
            return {{{frame.width, 1}}, 0};
        case LayoutAttribute::height:
            return {{{frame.height, 1}}, 0};
        case LayoutAttribute::right:
            return positionOf(view, Qt::Horizontal, 1);
        case LayoutAttribute::top:
            return positionOf(view, Qt::Vertical, 0);
        case LayoutAttribute::bottom:
            return positionOf(view, Qt::Vertical, 1);
        case LayoutAttribute::centerX:
            return positionOf(view, Qt::Horizontal, 0.5);
        case LayoutAttribute::centerY:
            return positionOf(view, Qt::Vertical, 0.5);
        case LayoutAttribute::firstBaseline: {
            auto position = positionOf(view, Qt::Vertical, 0.5);
            position.constant = firstBaselineOffsetOf(view);
            return position;
        }
        default:
            return positionOf(view, Qt::Horizontal, 0);
    }
}

LayoutExpression LayoutFrames::differenceOf(const LayoutConstraint& constraint) {
    const bool inReadingDirection =
        followsReading(constraint.firstAttribute()) &&
        (!constraint.hasSecondItem() || followsReading(constraint.secondAttribute()));
    auto difference =
        attributeOf(constraint.firstItem(), constraint.firstAttribute(), inReadingDirection);
    if (constraint.hasSecondItem()) {
        difference.add(
            attributeOf(constraint.secondItem(), constraint.secondAttribute(), inReadingDirection),
            -constraint.multiplier());
    }
    return difference;
}

QRect LayoutFrames::solvedRect(const QWidget* view) const {
    const Frame& frame = frames_.at(view);
    const double left = simplex_.value(frame.left);
    const double top = simplex_.value(frame.top);
    const QPoint start(qRound(left), qRound(top));
    const QPoint end(qRound(left + simplex_.value(frame.width)),
                     qRound(top + simplex_.value(frame.height)));
    return {start, QSize(end.x() - start.x(), end.y() - start.y())};
}

}  // namespace marquell::toolkit
