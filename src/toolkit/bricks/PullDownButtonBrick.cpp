// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/PullDownButtonBrick.h"

#include <QKeyEvent>
#include <QMenu>
#include <QStyleOptionToolButton>
#include <cmath>
#include <utility>

#include "toolkit/bricks/CallIfSet.h"
#include "toolkit/bricks/CutTextToolTip.h"
#include "toolkit/bricks/PlainToolTip.h"
#include "toolkit/bricks/SmartMenuItem.h"
#include "toolkit/drawing/ControlSkin.h"
#include "toolkit/look/ButtonRole.h"
#include "toolkit/look/ControlBox.h"
#include "toolkit/look/TextLine.h"

namespace marquell::toolkit {
namespace {

constexpr double glyphBox = 12;
constexpr double glyphMargin = 4;
constexpr double glyphWidth = 40;
constexpr double imageGap = 6;

}  // namespace

PullDownButtonBrick::PullDownButtonBrick(const QString& title, QWidget* parent)
    : PressedBrick<QToolButton>(parent) {
    auto* const items = new QMenu(this);
    keepUpdated(items, [this] { callIfSet(buttonPressFunction); });
    setMenu(items);
    setPopupMode(QToolButton::InstantPopup);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setFocusPolicy(Qt::StrongFocus);
    setTitle(title);
}

PullDownButtonBrick::PullDownButtonBrick(const QIcon& image, QWidget* parent)
    : PullDownButtonBrick(QString(), parent) {
    setIcon(image);
}

void PullDownButtonBrick::setGlyph(Glyph glyph, const QString& name) {
    glyph_ = glyph;
    setButtonRole(this, ButtonRole::glyph);
    setControlSize(this, ControlSize::mini);  // for the corners
    setAccessibleName(name);
    setPlainToolTip(*this, name);
}

SmartMenuItem* PullDownButtonBrick::addItem(SmartMenuItem* item) {
    item->setParent(menu());
    menu()->addAction(item);
    return item;
}

SmartMenuItem* PullDownButtonBrick::addItem(const QString& title,
                                            std::function<void()> actionFunc) {
    return addItem(new SmartMenuItem(title, std::move(actionFunc)));
}

void PullDownButtonBrick::addSeparator() { menu()->addSeparator(); }

QSize PullDownButtonBrick::sizeHint() const {
    if (glyph_) return {metrics().px(glyphWidth), metrics().controlHeight(ControlSize::small)};
    QSize size = minimumSizeHint();
    size.rwidth() += static_cast<int>(std::ceil(titleWidth()));
    return size;
}

QSize PullDownButtonBrick::minimumSizeHint() const {
    if (glyph_) return sizeHint();
    const ControlSize size = controlSizeOf(this);
    const int chrome = popupPadding(size) + imageWidth() + popupFieldWidth(size);
    return {chrome, metrics().controlHeight(size)};
}

double PullDownButtonBrick::titleWidth() const {
    return QFontMetricsF(font()).horizontalAdvance(title());
}

/// With the gap behind it.
int PullDownButtonBrick::imageWidth() const {
    if (icon().isNull()) return 0;
    return iconSize().width() + (title().isEmpty() ? 0 : metrics().px(imageGap));
}

void PullDownButtonBrick::apply(const ControlSkin& skin) {
    normalDrawing.stack = skin.pullDownButtonDrawingStack(*this);
    highlightedDrawing.stack = skin.highlightedPullDownButtonDrawingStack(*this);
    update();
}

void PullDownButtonBrick::drawAsStyle(QPainter& painter, const QRectF& frame) {
    QStyleOptionToolButton option;
    initStyleOption(&option);
    const ButtonRole role = buttonRoleOf(this);
    const ControlState state = controlStateOf(option);
    const ControlColors colors = controlColors(state, surfaceOf(this), role);
    drawControlBox(painter, frame, controlRadius(controlSizeOf(this)), state, surfaceOf(this),
                   role);
    // From here on as if from left to right.
    const auto placed = [&](const QRectF& part) {
        return layoutDirection() == Qt::LeftToRight
                   ? part
                   : part.translated(frame.left() + frame.right() - part.left() - part.right(), 0);
    };
    drawGlyph(painter, Glyph::chevronDown, placed(popupChevronBox(frame)), colors.text);
    QRectF content = frame;
    if (glyph_) {
        content.setLeft(frame.left() + metrics().px(glyphMargin));
        content.setWidth(metrics().px(glyphBox));
        drawGlyph(painter, *glyph_, placed(content), colors.text);
        return;
    }
    const ControlSize size = controlSizeOf(this);
    content.adjust(popupPadding(size), 0, -popupFieldWidth(size), 0);
    if (!icon().isNull()) {
        const QRectF image(content.x(), content.y(), iconSize().width(), content.height());
        icon().paint(&painter, placed(image).toRect(), Qt::AlignCenter,
                     isEnabled() ? QIcon::Normal : QIcon::Disabled);
    }
    content.setLeft(content.left() + imageWidth());
    painter.setPen(colors.text);
    drawTextLine(painter, placed(content), title());
}

bool PullDownButtonBrick::event(QEvent* event) {
    const bool hasTitle = !title().isEmpty();
    // Beside an image nothing of a name is shown.
    if (event->type() == QEvent::ToolTip && !glyph_ &&
        showCutText(this, event, hasTitle ? title() : accessibleName(), sizeHint().width(),
                    hasTitle ? width() : 0)) {
        return true;
    }
    return PressedBrick<QToolButton>::event(event);
}

void PullDownButtonBrick::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
        showMenu();
        return;
    }
    PressedBrick<QToolButton>::keyPressEvent(event);
}

}  // namespace marquell::toolkit
