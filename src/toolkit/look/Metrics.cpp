// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/look/Metrics.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QPointer>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "toolkit/look/ViewLook.h"

namespace marquell::toolkit {
namespace {

constexpr int smallestFont = 10;      // px
constexpr double unscaledFont = 15;   // px; larger interface fonts enlarge the layout
constexpr double roomAboutALine = 4;  // px
constexpr double controlHeights[] = {24, 20, 18};

struct TypeSize {
    double ofInterfaceFont;
    int atLeast;  // px
    QFont::Weight weight;
};

constexpr TypeSize smallSize = {0.85, 11, QFont::Normal};

int roundedPx(double px) { return std::max(static_cast<int>(std::lround(px)), smallestFont); }

QFont sized(QFont font, double px, QFont::Weight weight) {
    font.setPixelSize(roundedPx(px));
    font.setStyleName(QString());  // it would outdo the weight
    font.setWeight(weight);
    return font;
}

QFont sized(const QFont& font, double interfaceFontPx, const TypeSize& size) {
    const double px = std::max<double>(size.ofInterfaceFont * interfaceFontPx, size.atLeast);
    return sized(font, px, size.weight);
}

double interfaceFontPx(const QFont& font) {
    return std::max(QFontInfo(font).pixelSize(), smallestFont);
}

std::array<QFont, 7> fontsFor(const QFont& interfaceFont, const QFont& monospacedFont, double u,
                              double scale) {
    const TypeSize mini = {0.77, smallestFont, QFont::Normal};
    const TypeSize title = {0.92, smallestFont, QFont::DemiBold};
    const TypeSize header = {smallSize.ofInterfaceFont, smallSize.atLeast, QFont::Medium};
    return {
        sized(interfaceFont, u, QFont::Normal),
        sized(interfaceFont, u, smallSize),
        sized(interfaceFont, u, mini),
        sized(interfaceFont, u, title),
        sized(interfaceFont, u, header),
        sized(interfaceFont, smallestFont * scale, QFont::Normal),
        sized(monospacedFont, u, smallSize),
    };
}

Metrics& metricsInForce() {
    static Metrics inForce(QGuiApplication::font(),
                           QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return inForce;
}

}  // namespace

Metrics::Metrics(const QFont& interfaceFont, const QFont& monospacedFont)
    : scale_(std::max(1.0, interfaceFontPx(interfaceFont) / unscaledFont)),
      fonts_(fontsFor(interfaceFont, monospacedFont, interfaceFontPx(interfaceFont), scale_)),
      heights_() {
    for (std::size_t i = 0; i < heights_.size(); ++i) {
        const QFontMetrics line(font(fontRoleOf(static_cast<ControlSize>(i))));
        heights_.at(i) = px(std::max(controlHeights[i], (line.height() + roomAboutALine) / scale_));
    }
}

int Metrics::px(double points) const { return static_cast<int>(std::lround(points * scale_)); }

const QFont& Metrics::font(FontRole role) const {
    return fonts_.at(static_cast<std::size_t>(role));
}

int Metrics::controlHeight(ControlSize size) const {
    return heights_.at(static_cast<std::size_t>(size));
}

int Metrics::rowHeight() const { return controlHeight(ControlSize::regular); }

const Metrics& metrics() { return metricsInForce(); }

void setInterfaceFonts(const QFont& interfaceFont, const QFont& monospacedFont) {
    metricsInForce() = Metrics(interfaceFont, monospacedFont);
    QApplication::setFont(metrics().font(FontRole::regular));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationFontChange);
    const auto looks = viewLooks();  // a view may react by telling another one its look
    for (const ViewLook& look : looks) {
        if (look.fontRole && viewLooks().contains(look.view)) {
            look.view->setFont(metrics().font(*look.fontRole));
        }
    }
    // The sizes that views remember hold no longer, even where a font stayed as it was.
    const QWidgetList all = QApplication::allWidgets();
    const QList<QPointer<QWidget>> views(all.begin(), all.end());  // one may delete another
    for (const QPointer<QWidget>& view : views) {
        if (view == nullptr) continue;
        QEvent change(QEvent::StyleChange);
        QCoreApplication::sendEvent(view, &change);
    }
}

FontRole fontRoleOf(ControlSize size) {
    switch (size) {
        case ControlSize::small:
            return FontRole::small;
        case ControlSize::mini:
            return FontRole::mini;
        case ControlSize::regular:
            break;
    }
    return FontRole::regular;
}

void setFontRole(QWidget* view, FontRole role) {
    changeLookOf(view).fontRole = role;
    view->setFont(metrics().font(role));
}

void setControlSize(QWidget* control, ControlSize size) {
    changeLookOf(control).controlSize = size;
    setFontRole(control, fontRoleOf(size));
    control->updateGeometry();
}

ControlSize controlSizeOf(const QWidget* control) { return lookOf(control).controlSize; }

}  // namespace marquell::toolkit
