// SPDX-License-Identifier: GPL-3.0-or-later
#include "Rows.h"

#include <QListView>
#include <QPainter>
#include <QScrollBar>
#include <QStringListModel>

#include "Words.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/bricks/SmartMenuItem.h"
#include "toolkit/drawing/MarquellStyleKit.h"
#include "toolkit/look/Metrics.h"
#include "toolkit/look/TextLine.h"

namespace marquell::gallery {

using namespace toolkit;

namespace {

LayoutClosure fillWithin(double distance) {
    return [distance](LayoutConstraintMaker& make) {
        using enum LayoutAttribute;
        make.container().pin(left, left, distance).pin(right, right, -distance);
        make.container().pin(top, top, distance).pin(bottom, bottom, -distance);
    };
}

/// A list of two rows as the column has them, with the second one selected.
void addList(Sheet& sheet, Appearance appearance, double y) {
    auto* frame = new Wall;
    frame->setBorderColor(color(ColorRole::listFrame, Surface::column));
    frame->setBorders(true, true, true, true);
    sheet.put(frame, 16, y, 366, 50);
    auto* list = new QListView;
    list->setFrameShape(QFrame::NoFrame);
    list->setModel(new QStringListModel({words("Exposure Time"), words("Latitude")}, list));
    setFontRole(list, FontRole::small);
    setAppearance(list, appearance);
    frame->factory().internalAddBrick(list, fillWithin(1));
    list->setCurrentIndex(list->model()->index(1, 0));
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

    auto* frame = new Wall;
    frame->setBorderColor(color(ColorRole::menuBorder, &sheet.wall()));
    frame->setBorders(true, true, true, true);
    sheet.put(frame, 16, 480, 330, 107);
    auto* list = new QListView;
    list->setFrameShape(QFrame::NoFrame);
    list->setModel(popUp->model());
    list->setItemDelegate(popUp->itemDelegate());
    frame->factory().internalAddBrick(list, fillWithin(1));
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

    auto* frame = new Wall;
    frame->setBorderColor(color(ColorRole::divider, &sheet.wall()));
    frame->setBorders(true, true, true, true);
    sheet.put(frame, 16, 681, 330, 40);
    auto* tabs = new SegmentedControlBrick({words("Image"), words("EXIF"), words("GPS")});
    tabs->mini();
    tabs->setSegmentStyle(SegmentStyle::smallSquare);
    tabs->selectSegment(1);
    sheet.put(tabs, 16, 664);
}

}  // namespace marquell::gallery
