// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/Spinner.h"

#include <QPainter>
#include <chrono>

#include "platform/Localization.h"
#include "toolkit/bricks/BrickAccessibility.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Glyph.h"
#include "toolkit/look/Metrics.h"

namespace marquell::toolkit {
namespace {

// Lengths in points.
constexpr double side = 16;
constexpr double innerRadius = 3;
constexpr double outerRadius = 7;
constexpr double spokeWidth = 2;

constexpr int spokes = 8;
constexpr double faintest = 0.25;

// A turn takes a second, slow enough for those whom motion disturbs.
constexpr std::chrono::milliseconds step(1000 / spokes);

}  // namespace

Spinner::Spinner(QWidget* parent) : QWidget(parent) {
    provideBrickAccessibility();
    setAccessibleName(
        QString::fromStdString(platform::localized("In progress", "accessible name")));
    turning_.setInterval(step);
    connect(&turning_, &QTimer::timeout, this, [this] {
        foremostSpoke_ = (foremostSpoke_ + 1) % spokes;
        update();
    });
}

void Spinner::startAnimation() {
    isAnimating_ = true;
    if (isVisible() && !turning_.isActive()) turning_.start();
}

void Spinner::stopAnimation() {
    isAnimating_ = false;
    turning_.stop();
}

IntrinsicSize Spinner::intrinsicContentSize() const {
    const double length = metrics().px(side);
    return {length, length};
}

void Spinner::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color(ColorRole::secondaryText, this));
    // The upright and level spokes lie on whole pixels.
    const double width = sharpWidth(painter, spokeWidth * metrics().scale());
    const double start = innerRadius * metrics().scale();
    const double length = (outerRadius - innerRadius) * metrics().scale();
    const QPointF half(width / 2, width / 2);
    painter.translate(snapped(painter, QRectF(rect()).center() - half) + half);
    for (int behind = 0; behind < spokes; ++behind) {
        const int spoke = (foremostSpoke_ - behind + spokes) % spokes;
        painter.setOpacity(1 - (1 - faintest) * behind / (spokes - 1));
        painter.save();
        painter.rotate(360.0 / spokes * spoke);
        painter.drawRoundedRect(QRectF(-width / 2, -start - length, width, length), width / 2,
                                width / 2);
        painter.restore();
    }
}

void Spinner::showEvent(QShowEvent* /*event*/) {
    if (isAnimating_) turning_.start();
}

// Also when the window is minimised.
void Spinner::hideEvent(QHideEvent* /*event*/) { turning_.stop(); }

}  // namespace marquell::toolkit
