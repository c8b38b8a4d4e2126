// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/LayoutConstraint.h"

#include <algorithm>
#include <cmath>

#include "toolkit/layout/LayoutRoot.h"
#include "toolkit/layout/ViewRecord.h"

namespace marquell::toolkit {
namespace {

QString nameOf(LayoutAttribute attribute) {
    static constexpr const char* names[] = {"left",    "right",    "top",          "bottom",
                                            "leading", "trailing", "width",        "height",
                                            "centerX", "centerY",  "firstBaseline"};
    return QLatin1String(names[static_cast<std::size_t>(attribute)]);
}

QString signOf(Relation relation) {
    static constexpr const char* signs[] = {"<=", "=", ">="};
    return QLatin1String(signs[static_cast<std::size_t>(relation)]);
}

/// The view's name, else its kind with the text that it shows.
QString nameOf(const QWidget* view) {
    if (!view) return QStringLiteral("(gone)");
    if (!view->objectName().isEmpty()) return view->objectName();
    const QString kind = QLatin1String(view->metaObject()->className());
    const QString text = view->property("text").toString();
    return text.isEmpty() ? kind : QStringLiteral("%1 \"%2\"").arg(kind, text);
}

QString signedNumber(double number) {
    return (number < 0 ? QStringLiteral(" - ") : QStringLiteral(" + ")) +
           QString::number(std::abs(number));
}

}  // namespace

LayoutConstraint::LayoutConstraint(QWidget* firstItem, LayoutAttribute firstAttribute,
                                   Relation relation, QWidget* secondItem,
                                   LayoutAttribute secondAttribute, double multiplier,
                                   double constant)
    : firstItem_(firstItem),
      secondItem_(secondItem),
      relates_(true),
      firstAttribute_(firstAttribute),
      secondAttribute_(secondAttribute),
      relation_(relation),
      multiplier_(multiplier),
      constant_(constant) {}

LayoutConstraint::LayoutConstraint(QWidget* firstItem, LayoutAttribute attribute, Relation relation,
                                   double constant)
    : firstItem_(firstItem),
      relates_(false),
      firstAttribute_(attribute),
      secondAttribute_(attribute),
      relation_(relation),
      multiplier_(0),
      constant_(constant) {}

void LayoutConstraint::setConstant(double points) {
    if (constant_ == points) return;
    constant_ = points;
    changed();
}

void LayoutConstraint::setPriority(LayoutPriority priority) {
    if (priority_ == priority) return;
    priority_ = priority;
    changed();
}

void LayoutConstraint::changed() const {
    if (firstItem_) layoutChanged(firstItem_);
}

QString LayoutConstraint::description() const {
    QString text = nameOf(firstItem_) + QLatin1Char('.') + nameOf(firstAttribute_) +
                   QLatin1Char(' ') + signOf(relation_);
    if (!relates_) return text + QLatin1Char(' ') + QString::number(constant_);
    text += QLatin1Char(' ') + nameOf(secondItem_) + QLatin1Char('.') + nameOf(secondAttribute_);
    if (multiplier_ != 1) text += QStringLiteral(" * ") + QString::number(multiplier_);
    return constant_ == 0 ? text : text + signedNumber(constant_);
}

void addConstraints(QWidget* container, const LayoutConstraints& constraints) {
    auto& held = recordOf(container).constraints;
    for (const auto& constraint : constraints) {
        if (std::find(held.begin(), held.end(), constraint) == held.end()) {
            held.push_back(constraint);
        }
    }
    layoutChanged(container);
}

void removeConstraints(QWidget* container, const LayoutConstraints& constraints) {
    std::erase_if(recordOf(container).constraints, [&](const auto& held) {
        return std::find(constraints.begin(), constraints.end(), held) != constraints.end();
    });
    layoutChanged(container);
}

}  // namespace marquell::toolkit
