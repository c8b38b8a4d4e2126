// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/StatusLine.h"

#include <QAccessibleWidget>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <chrono>
#include <vector>

#include "toolkit/bricks/CutTextToolTip.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/TextLine.h"

namespace marquell::window {
namespace {

using namespace std::chrono_literals;

constexpr QChar ellipsis(0x2026);

class StatusLineAccessible : public QAccessibleWidget {
public:
    explicit StatusLineAccessible(StatusLine& line)
        : QAccessibleWidget(&line, QAccessible::StatusBar), line_(line) {}

    QString text(QAccessible::Text part) const override {
        return part == QAccessible::Name ? line_.text().trimmed() : QAccessibleWidget::text(part);
    }

private:
    const StatusLine& line_;
};

QAccessibleInterface* accessibleOf(const QString& /*key*/, QObject* object) {
    auto* line = dynamic_cast<StatusLine*>(object);
    return line == nullptr ? nullptr : new StatusLineAccessible(*line);
}

void tellNewName(StatusLine* line) {
    QAccessibleEvent change(line, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&change);
}

/// A stretch of text, or a digit, which takes the room of the widest one.
struct Piece {
    QString text;
    bool isDigit;
};

std::vector<Piece> piecesOf(const QString& text) {
    std::vector<Piece> pieces;
    for (const QChar character : text) {
        const bool isDigit = character.isDigit();
        if (isDigit || pieces.empty() || pieces.back().isDigit) {
            pieces.push_back({character, isDigit});
        } else {
            pieces.back().text += character;
        }
    }
    return pieces;
}

double digitWidth(const QFontMetricsF& font) {
    double widest = 0;
    for (char digit = '0'; digit <= '9'; ++digit) {
        widest = std::max(widest, font.horizontalAdvance(QLatin1Char(digit)));
    }
    return widest;
}

double widthOf(const QString& text, const QFontMetricsF& font) {
    const double digit = digitWidth(font);
    double width = 0;
    for (const Piece& piece : piecesOf(text)) {
        width += piece.isDigit ? digit : font.horizontalAdvance(piece.text);
    }
    return width;
}

/// As much of the text as there is room for, with an ellipsis for the rest.
QString cut(const QString& text, const QFontMetricsF& font, double room) {
    if (widthOf(text, font) <= room) return text;
    const double digit = digitWidth(font);
    double left = room - font.horizontalAdvance(ellipsis);
    QString kept;
    for (const Piece& piece : piecesOf(text)) {
        const double width = piece.isDigit ? digit : font.horizontalAdvance(piece.text);
        if (width > left) {
            QString part = piece.isDigit ? QString() : piece.text;
            while (font.horizontalAdvance(part) > left && !part.isEmpty()) part.chop(1);
            return kept + part + ellipsis;
        }
        left -= width;
        kept += piece.text;
    }
    return kept;
}

}  // namespace

StatusLine::StatusLine(QWidget* parent) : QWidget(parent) {
    toolkit::setFontRole(this, toolkit::FontRole::small);
    QAccessible::installFactory(accessibleOf);  // which Qt does once
    settled_.setSingleShot(true);
    settled_.setInterval(1s);
    connect(&settled_, &QTimer::timeout, this, [this] { tellNewName(this); });
}

void StatusLine::setText(const QString& text) {
    if (text == text_) return;
    text_ = text;
    settled_.start();
    update();
}

bool StatusLine::event(QEvent* event) {
    return (event->type() == QEvent::ToolTip &&
            toolkit::showCutText(this, event, text_.trimmed(),
                                 widthOf(text_.trimmed(), QFontMetricsF(font())), width())) ||
           QWidget::event(event);
}

void StatusLine::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(toolkit::color(toolkit::ColorRole::secondaryText, this));
    const QFontMetricsF font(this->font());
    const double digit = digitWidth(font);
    QRectF box(rect());
    for (const Piece& piece : piecesOf(cut(text_.trimmed(), font, box.width()))) {
        const double width = piece.isDigit ? digit : font.horizontalAdvance(piece.text);
        const auto alignment = piece.isDigit ? Qt::AlignHCenter : Qt::AlignLeft;
        // One px more, so that no rounding cuts the piece.
        const QRectF place(box.x(), box.y(), piece.isDigit ? width : width + 1, box.height());
        toolkit::drawTextLine(painter, place, piece.text, alignment, Qt::ElideNone);
        box.setLeft(box.left() + width);
    }
}

}  // namespace marquell::window
