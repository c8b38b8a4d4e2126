// SPDX-License-Identifier: GPL-3.0-or-later
#include "Rows.h"

#include <QAbstractButton>
#include <QListView>
#include <QPainter>
#include <QScrollBar>

#include "Words.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/bricks/SmartMenuItem.h"
#include "toolkit/drawing/MarquellStyleKit.h"
#include "toolkit/look/Glyph.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/TextLine.h"

namespace marquell::gallery {

using namespace toolkit;

namespace {

LayoutClosure fillWithin(double across, double down) {
    return [across, down](LayoutConstraintMaker& make) {
        using enum LayoutAttribute;
        make.container().pin(left, left, across).pin(right, right, -across);
        make.container().pin(top, top, down).pin(bottom, bottom, -down);
    };
}

/// A row of a list: a title, smaller behind it where it comes from, and a cross.
void drawRow(QPainter& painter, const QRectF& row, const QString& title, const QString& origin,
             const QWidget* list, bool isSelected) {
    const QColor ink = color(isSelected ? ColorRole::selectionText : ColorRole::text, list);
    painter.fillRect(row, color(isSelected ? ColorRole::selection : ColorRole::base, list));
    painter.setFont(metrics().font(FontRole::small));
    painter.setPen(ink);
    const double start = row.left() + metrics().px(8);
    drawTextLine(painter, row.adjusted(metrics().px(8), 0, -metrics().px(28), 0), title);
    const double width = QFontMetricsF(painter.font()).horizontalAdvance(title);
    const double baseline = row.center().y() + baselineOffset(QFontMetricsF(painter.font()));
    painter.setFont(metrics().font(FontRole::abbreviation));
    painter.setPen(
        color(isSelected ? ColorRole::selectionSecondaryText : ColorRole::secondaryText, list));
    drawTextOnBaseline(painter, row.adjusted(start + width + metrics().px(5), 0, 0, 0), baseline,
                       origin);
    const double side = metrics().px(12);
    const QRectF box(row.right() - metrics().px(20), row.center().y() - side / 2, side, side);
    drawGlyph(painter, Glyph::cross, box, ink);
}

/// A list of two rows as the column has them, with the second one selected.
void addList(Sheet& sheet, Appearance appearance, double y) {
    auto* frame = new RoleWall(std::nullopt, ColorRole::listFrame);
    sheet.put(frame, 16, y, 366, 50);
    auto* list = new Wall;
    setAppearance(list, appearance);
    list->backgroundDrawingFunc = [list](QPainter& painter, const QRectF& bounds) {
        const QRectF row(bounds.left(), bounds.top(), bounds.width(), bounds.height() / 2);
        drawRow(painter, row, words("Exposure Time"), QStringLiteral("EXIF"), list, false);
        drawRow(painter, row.translated(0, row.height()), words("Latitude"), QStringLiteral("GPS"),
                list, true);
    };
    frame->factory().internalAddBrick(list, fillWithin(1, 1));
}

QScrollBar* scrollBar(bool isHovered) {
    auto* bar = new QScrollBar(Qt::Horizontal);
    bar->setRange(0, 1);
    bar->setPageStep(1000000);
    bar->setAttribute(Qt::WA_UnderMouse, isHovered);
    return bar;
}

void addRow(Sheet& sheet, double x, const char* text, ColorRole ground, ColorRole ink) {
    const QString shown = words(text);
    sheet.put(new Picture([=, &wall = sheet.wall()](QPainter& painter, const QRectF& frame) {
                  painter.fillRect(frame, color(ground, &wall));
                  painter.setFont(metrics().font(FontRole::small));
                  painter.setPen(color(ink, &wall));
                  drawTextLine(painter, frame.adjusted(6, 0, -2, 0), shown);
              }),
              x, 442, 66, 24);
}

/// The open list of a popup, with the third item chosen.
void addOpenList(Sheet& sheet) {
    auto* popUp = new PopUpButtonBrick(&sheet.wall());
    popUp->addItem(words("By name and sequence number"), words("(from A to Z)"));
    popUp->addItem(words("By name and sequence number"), words("(from Z to A)"));
    popUp->addItem(words("By full path and sequence number"), words("(from A to Z)"));
    popUp->addSeparator();
    popUp->addItem(words("By creation date"), words("(from newest to oldest)"));
    popUp->hide();

    auto* frame = new RoleWall(ColorRole::menu, ColorRole::menuBorder);
    sheet.put(frame, 16, 480, 330, 116);
    auto* list = new QListView;
    list->setFrameShape(QFrame::NoFrame);
    list->setModel(popUp->model());
    list->setItemDelegate(popUp->itemDelegate());
    setAppearance(list,
                  surfaceOf(&sheet.wall()) == Surface::dark ? Appearance::dark : Appearance::light);
    frame->factory().internalAddBrick(list, fillWithin(1, 5));
    list->setCurrentIndex(list->model()->index(2, 0));
}

}  // namespace

void addColumnRows(Sheet& sheet) {
    sheet.put(new Picture([](QPainter& painter, const QRectF& frame) {
                  MarquellStyleKit::drawFragmentBottom(painter, frame);
              }),
              0, 466, 400, 15);
    sheet.caption(words("separator"), 16, 487);
    sheet.put(scrollBar(false), 16, 513, 120);
    sheet.caption(words("scroll thumb"), 16, 523);
    addList(sheet, Appearance::light, 556);
    sheet.caption(words("list row, selected row, light"), 16, 613);
    addList(sheet, Appearance::dark, 644);
    sheet.caption(words("the same in dark"), 16, 701);
}

void addPageRows(Sheet& sheet) {
    addRow(sheet, 16, "Row", ColorRole::base, ColorRole::text);
    addRow(sheet, 90, "Row alt", ColorRole::alternateBase, ColorRole::text);
    addRow(sheet, 164, "Selected", ColorRole::selection, ColorRole::selectionText);
    addRow(sheet, 238, "waiting...", ColorRole::base, ColorRole::waitingText);
    addRow(sheet, 312, "n/a", ColorRole::base, ColorRole::secondaryText);
    addOpenList(sheet);
    sheet.put(scrollBar(false), 16, 620, 124);
    sheet.caption(words("scroll thumb"), 18, 632);
    sheet.put(scrollBar(true), 158, 620, 124);
    sheet.caption(words("hover"), 160, 632);

    auto* frame = new RoleWall(std::nullopt, ColorRole::divider);
    sheet.put(frame, 16, 681, 330, 40);
    auto* tabs = new SegmentedControlBrick({words("Image"), words("EXIF"), words("GPS")});
    tabs->mini();
    tabs->setSegmentStyle(SegmentStyle::smallSquare);
    tabs->selectSegment(1);
    tabs->findChildren<QAbstractButton*>().last()->setAttribute(Qt::WA_UnderMouse);
    sheet.put(tabs, 16, 664);
}

}  // namespace marquell::gallery
