// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPainter>
#include <functional>
#include <vector>

#include "Pages.h"
#include "Sheet.h"
#include "Words.h"
#include "toolkit/drawing/Brand.h"
#include "toolkit/drawing/BricksDrawing.h"
#include "toolkit/drawing/MarquellStyleKit.h"
#include "toolkit/look/Metrics.h"

namespace marquell::gallery {

using namespace toolkit;

namespace {

struct Drawing {
    const char* name;
    QSizeF size;
    Picture::Draw draw;
};

QString title() { return words("Title"); }

/// The parts of skins.
std::vector<Drawing> brickDrawings() {
    using B = BricksDrawing;
    const QSizeF button(110, 24);
    const QSizeF square(32, 32);
    return {
        {"drawPushButton", button,
         [](auto& p, const auto& f) {
             B::drawPushButton(p, f, B::standardFill(), B::standardStroke(), B::standardText(),
                               title(), B::lightShadow());
         }},
        {"drawPushButtonWithGradient", button,
         [](auto& p, const auto& f) {
             B::drawPushButtonWithGradient(p, f, B::standardHighlightGradient(),
                                           B::standardHighlightedStroke(),
                                           B::standardHighlightedText(), title());
         }},
        {"drawRoundedRegularButton", button,
         [](auto& p, const auto& f) { B::drawRoundedRegularButton(p, f, title()); }},
        {"drawRoundedRegularButtonHighlighted", button,
         [](auto& p, const auto& f) { B::drawRoundedRegularButtonHighlighted(p, f, title()); }},
        {"drawDarkRoundedRegularButton", button,
         [](auto& p, const auto& f) { B::drawDarkRoundedRegularButton(p, f, title()); }},
        {"drawRoundedPullDownButton", button,
         [](auto& p, const auto& f) {
             B::drawRoundedPullDownButton(p, f, B::standardFill(), B::standardStroke(),
                                          B::standardText(), title());
         }},
        {"drawDarkRoundedPullDownButton", button,
         [](auto& p, const auto& f) { B::drawDarkRoundedPullDownButton(p, f, title()); }},
        {"drawCheckBoxInOnState", button,
         [](auto& p, const auto& f) {
             B::drawCheckBoxInOnState(p, f, B::standardFill(), B::standardStroke(),
                                      B::standardText(), title());
         }},
        {"drawCheckBoxInOffState", button,
         [](auto& p, const auto& f) {
             B::drawCheckBoxInOffState(p, f, B::standardFill(), B::standardStroke(),
                                       B::standardText(), title());
         }},
        {"drawCheck", square,
         [](auto& p, const auto& f) { B::drawCheck(p, f, B::standardStroke()); }},
        {"drawSliderKnob", square,
         [](auto& p, const auto& f) {
             B::drawSliderKnob(p, f, B::standardFill(), B::standardStroke());
         }},
        {"drawCanvas2", square,
         [](auto& p, const auto& f) { B::drawCanvas2(p, f, B::standardStroke()); }},
        {"drawCanvas3", square,
         [](auto& p, const auto& f) { B::drawCanvas3(p, f, B::standardStroke()); }},
    };
}

/// The window's own parts.
std::vector<Drawing> windowDrawings() {
    using K = MarquellStyleKit;
    const QSizeF panel(110, 60);
    const QSizeF icon(19, 19);
    const QSizeF large(57, 57);
    const auto pixmap = [](const auto& image) {
        return [image](QPainter& p, const QRectF& f) { p.drawPixmap(f.toRect(), image()); };
    };
    return {
        {"drawParameterWallBackground", panel,
         [](auto& p, const auto& f) { K::drawParameterWallBackground(p, f, f); }},
        {"drawRightWallBackground", panel,
         [](auto& p, const auto& f) { K::drawRightWallBackground(p, f); }},
        {"drawFragmentTop", panel, [](auto& p, const auto& f) { K::drawFragmentTop(p, f); }},
        {"drawFragmentBottom", panel, [](auto& p, const auto& f) { K::drawFragmentBottom(p, f); }},
        {"drawFragmentBackground", panel,
         [](auto& p, const auto& f) { K::drawFragmentBackground(p, f); }},
        {"drawFragmentFrame", panel,
         [](auto& p, const auto& f) { K::drawFragmentFrame(p, f, f, 20); }},
        {"drawRoundedSquareMask", panel,
         [](auto& p, const auto& f) { K::drawRoundedSquareMask(p, f); }},
        {"drawTablePreviewIcon", icon,
         [](auto& p, const auto& f) { K::drawTablePreviewIcon(p, f); }},
        {"drawTablePreviewIconMini", icon,
         [](auto& p, const auto& f) { K::drawTablePreviewIconMini(p, f); }},
        {"drawTextOutputIcon", icon, [](auto& p, const auto& f) { K::drawTextOutputIcon(p, f); }},
        {"drawTextOutputIconMini", icon,
         [](auto& p, const auto& f) { K::drawTextOutputIconMini(p, f); }},
        {"drawTablePreviewIconMini, 3 x", large,
         [](auto& p, const auto& f) { K::drawTablePreviewIconMini(p, f); }},
        {"drawTextOutputIconMini, 3 x", large,
         [](auto& p, const auto& f) { K::drawTextOutputIconMini(p, f); }},
        {"drawTablePreviewIconMini2", icon,
         [](auto& p, const auto& f) { K::drawTablePreviewIconMini2(p, f); }},
        {"drawTablePreviewIconMini3", icon,
         [](auto& p, const auto& f) { K::drawTablePreviewIconMini3(p, f); }},
        {"drawTextOutputIconMini2", icon,
         [](auto& p, const auto& f) { K::drawTextOutputIconMini2(p, f); }},
        {"drawTextOutputIconMini3", icon,
         [](auto& p, const auto& f) { K::drawTextOutputIconMini3(p, f); }},
        {"imageOfTablePreviewIconMini3", icon, pixmap(K::imageOfTablePreviewIconMini3)},
        {"imageOfTextOutputIconMini2", icon, pixmap(K::imageOfTextOutputIconMini2)},
        {"Logo",
         {196, 46},
         [](auto& p, const auto& f) {
             p.fillRect(f, K::parameterWallBlue());
             const double height = f.height() * 22 / 46;
             drawLogo(p, QRectF(f.width() * 16 / 196, (f.height() - height) / 2,
                                f.width() * 164 / 196, height));
         }},
        {"Icon", {64, 64}, [](auto& p, const auto& f) { applicationIcon().paint(&p, f.toRect()); }},
    };
}

/// In columns below a title; answers where the next may begin.
double addDrawings(Sheet& sheet, const char* name, const std::vector<Drawing>& drawings, double y) {
    constexpr std::size_t perRow = 5;
    sheet.title(words(name), 16, y);
    for (std::size_t i = 0; i < drawings.size(); ++i) {
        const double left = 16 + 220 * double(i % perRow);
        const std::size_t row = i / perRow;
        const double top = y + 36 + 100 * double(row);
        const auto& drawing = drawings[i];
        sheet.put(new Picture(drawing.draw), left, top, drawing.size.width(),
                  drawing.size.height());
        sheet.caption(QString::fromUtf8(drawing.name), left, top + 64);
    }
    const std::size_t rows = (drawings.size() + perRow - 1) / perRow;
    return y + 36 + 100 * double(rows);
}

}  // namespace

void buildDrawings(Wall& wall) {
    Sheet sheet(wall);
    setAppearance(&wall, Appearance::light);
    wall.backgroundDrawingFunc = [](QPainter& painter, const QRectF& frame) {
        painter.fillRect(frame, QColor(0xE8, 0xE8, 0xE8));
    };
    const double next = addDrawings(sheet, "Parts of the window", windowDrawings(), 16);
    sheet.end(1110, addDrawings(sheet, "Parts of skins", brickDrawings(), next + 12));
}

}  // namespace marquell::gallery
