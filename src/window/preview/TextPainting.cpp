// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextPainting.h"

#include <algorithm>
#include <cmath>

#include "toolkit/look/ColorRole.h"
#include "toolkit/look/Glyph.h"

namespace marquell::window {
namespace {

using toolkit::ColorRole;

/// Paints the rows of a page one after the other.
class PagePainter {
public:
    PagePainter(QPainter& painter, const TextPage& page, const QRect& area, const QWidget* view)
        : painter_(painter),
          page_(page),
          inView_{static_cast<double>(area.left()), area.right() + 1.0},
          measure_(page.geometry.measure()),
          view_(view),
          plain_{roleColor(ColorRole::text), roleColor(ColorRole::secondaryText)},
          selected_{roleColor(ColorRole::selectionText),
                    roleColor(ColorRole::selectionSecondaryText)} {}

    void paintRow(std::size_t line) {
        const int top = page_.topOf(line);
        const double origin = measure_.margin - page_.scrolledX;
        page_.geometry.forEachChunk(line, inView_.left - origin, inView_.right - origin,
                                    [&](const TextRange& range, double x) {
                                        return paintChunk(range, QPointF(origin + x, top));
                                    });
        paintSelectedBreak(line, top);
    }

    void paintCaret(std::size_t offset) { painter_.fillRect(page_.caretRect(offset), plain_.text); }

private:
    using Spans = std::vector<Span>;

    QColor roleColor(ColorRole role) const { return toolkit::color(role, view_); }

    double paintChunk(const TextRange& range, const QPointF& topLeft) {
        const TextRange selected = common(page_.selection, range);
        const bool isAllSelected = selected == range && !range.isEmpty();
        const ChunkLayout layout = layoutIn(isAllSelected ? selected_ : plain_, range);
        const QRegion whole = rowOf(topLeft, layout.width());
        if (isAllSelected) {
            paintSelected(layout, whole, topLeft);
            return layout.width();
        }
        paintHits(layout, range, topLeft);
        const QRegion region = regionOf(layout.spansOf(relative(selected, range)), topLeft);
        paintIn(whole - region, [&] { drawText(layout, topLeft); });
        if (!region.isEmpty()) paintSelected(layoutIn(selected_, range), region, topLeft);
        return layout.width();
    }

    ChunkLayout layoutIn(const TextColors& colors, const TextRange& range) const {
        const auto piece = page_.geometry.text().text().substr(range.start, range.length());
        return {piece, measure_, colors};
    }

    void paintSelected(const ChunkLayout& layout, const QRegion& region, const QPointF& topLeft) {
        paintIn(region, [&] {
            painter_.fillRect(region.boundingRect(), roleColor(ColorRole::selection));
            drawText(layout, topLeft);
        });
    }

    void drawText(const ChunkLayout& layout, const QPointF& topLeft) {
        const QPointF baseline = topLeft + QPointF(0, measure_.baseline);
        layout.draw(painter_, toolkit::snapped(painter_, baseline), inView_);
    }

    template <typename Paint>
    void paintIn(const QRegion& region, Paint paint) {
        painter_.save();
        painter_.setClipRegion(region, Qt::IntersectClip);
        paint();
        painter_.restore();
    }

    void paintHits(const ChunkLayout& layout, const TextRange& range, const QPointF& topLeft) {
        if (!page_.hitsIn) return;
        for (const TextRange& hit : page_.hitsIn(range)) {
            const Spans spans = layout.spansOf(relative(common(hit, range), range));
            for (const QRect& each : regionOf(spans, topLeft)) {
                painter_.fillRect(each, roleColor(ColorRole::selectedSegmentFill));
            }
        }
    }

    /// A selected break shows as a blank.
    void paintSelectedBreak(std::size_t line, int top) {
        const Line bounds = page_.geometry.text().line(line);
        const TextRange lineBreak = {bounds.end, bounds.next};
        if (common(page_.selection, lineBreak).isEmpty()) return;
        const int left = page_.caretRect(bounds.end).left();
        const int width = static_cast<int>(std::lround(measure_.averageWidth));
        painter_.fillRect(left, top, width, measure_.rowHeight, roleColor(ColorRole::selection));
    }

    QRegion regionOf(const Spans& spans, const QPointF& topLeft) const {
        QRegion region;
        for (const Span& span : spans) {
            const int left = px(topLeft.x() + span.left);
            region += QRect(left, px(topLeft.y()), px(topLeft.x() + span.right) - left,
                            measure_.rowHeight);
        }
        return region;
    }

    QRect rowOf(const QPointF& topLeft, double width) const {
        const int left = px(topLeft.x());
        return {left, px(topLeft.y()), px(topLeft.x() + width) - left, measure_.rowHeight};
    }

    static int px(double length) {
        constexpr double farAway = 1e6;  // beyond any view, and within what a region can hold
        return static_cast<int>(std::lround(std::clamp(length, -farAway, farAway)));
    }

    static TextRange common(const TextRange& a, const TextRange& b) {
        const std::size_t start = std::max(a.start, b.start);
        return {start, std::max(start, std::min(a.end, b.end))};
    }

    static TextRange relative(const TextRange& range, const TextRange& chunk) {
        return {range.start - chunk.start, range.end - chunk.start};
    }

    QPainter& painter_;
    const TextPage& page_;
    const Span inView_;
    const PageMeasure& measure_;
    const QWidget* view_;
    const TextColors plain_;
    const TextColors selected_;
};

}  // namespace

int TextPage::topOf(std::size_t line) const {
    const auto rows = static_cast<std::ptrdiff_t>(line) - static_cast<std::ptrdiff_t>(firstLine);
    constexpr std::ptrdiff_t farAway = 1 << 20;
    const PageMeasure& measure = geometry.measure();
    return measure.margin +
           static_cast<int>(std::clamp(rows, -farAway, farAway)) * measure.rowHeight;
}

QRect TextPage::caretRect(std::size_t offset) const {
    const TextGeometry::Place place = geometry.placeOf(offset);
    const PageMeasure& measure = geometry.measure();
    const double x = std::clamp(measure.margin + place.x - scrolledX, -1e6, 1e6);
    return {static_cast<int>(std::lround(x)), topOf(place.line), 1, measure.rowHeight};
}

void paintTextPage(QPainter& painter, const TextPage& page, const QRect& area,
                   const QWidget* view) {
    painter.fillRect(area, toolkit::color(ColorRole::page, view));
    const std::size_t lineCount = page.geometry.text().lineCount();
    PagePainter rows(painter, page, area, view);
    for (std::size_t line = page.firstLine - std::min<std::size_t>(page.firstLine, 1);
         line < lineCount && page.topOf(line) <= area.bottom(); ++line) {
        const bool isAbove = page.topOf(line) + page.geometry.measure().rowHeight <= area.top();
        if (!isAbove) rows.paintRow(line);
    }
    if (page.caret) rows.paintCaret(*page.caret);
}

}  // namespace marquell::window
