// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextPiece.h"

#include <algorithm>
#include <numeric>

#include "toolkit/look/VisibleText.h"

namespace marquell::window {
namespace {

constexpr char32_t leftToRightMark = 0x200e;
constexpr double endlessWidth = 1e7;  // px; a piece can't be as wide

bool isRightToLeft(char32_t character) {
    const QChar::Direction direction = QChar::direction(character);
    return direction == QChar::DirR || direction == QChar::DirAL;
}

/// What stands between values keeps them in their order, also where those on both sides of it are
/// written from right to left.
bool standsBetweenFields(char32_t character) {
    constexpr std::u32string_view signs = U"\"',;";
    return signs.find(character) != std::u32string_view::npos;
}

/// Makes the units a part of the last range if they follow it.
void addUnits(QList<QTextLayout::FormatRange>& ranges, qsizetype start, qsizetype length,
              const QTextCharFormat& format) {
    if (!ranges.isEmpty() && ranges.last().start + ranges.last().length == start) {
        ranges.last().length += static_cast<int>(length);
    } else {
        ranges.append({static_cast<int>(start), static_cast<int>(length), format});
    }
}

}  // namespace

TextPiece::TextPiece(std::string_view text, const PageMeasure& measure, const TextColors& colors)
    : colors_(colors) {
    QList<QTextLayout::FormatRange> marks;
    addText(text, marks);
    layOut(measure, marks);
}

void TextPiece::addText(std::string_view text, QList<QTextLayout::FormatRange>& marks) {
    QTextCharFormat markFormat;
    if (colors_.marks.isValid()) markFormat.setForeground(colors_.marks);
    forEachCodePoint(text, [&](char32_t character, std::size_t, std::size_t length) {
        if (!toolkit::isInvisible(character)) {
            shown_.add(character, length);
            hasRightToLeft_ = hasRightToLeft_ || isRightToLeft(character);
            if (hasRightToLeft_ && standsBetweenFields(character)) shown_.add(leftToRightMark, 0);
            return;
        }
        const qsizetype start = shown_.text().size();
        shown_.add(toolkit::visibleMark(character), length);
        addUnits(marks, start, shown_.text().size() - start, markFormat);
    });
}

void TextPiece::layOut(const PageMeasure& measure, const QList<QTextLayout::FormatRange>& marks) {
    QTextOption option;
    option.setTextDirection(Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    layout_.setText(shown_.text());
    layout_.setFont(measure.font);
    layout_.setTextOption(option);
    layout_.setFormats(marks);
    layout_.beginLayout();
    line_ = layout_.createLine();
    if (line_.isValid()) line_.setLineWidth(endlessWidth);
    layout_.endLayout();
}

double TextPiece::width() const { return line_.isValid() ? line_.horizontalAdvance() : 0; }

double TextPiece::xOf(std::size_t offset) const {
    return line_.isValid() ? line_.cursorToX(static_cast<int>(shown_.unitOf(offset))) : 0;
}

/// The unit that begins nearest to `x`; of several the last, since those before it are but parts of
/// characters. QTextLine::xToCursor jumps over pictures that are joined in a font that can't join.
int TextPiece::unitAt(double x) const {
    const auto end = static_cast<int>(shown_.text().size());
    const auto lastUpTo = [&](double most) {
        int last = 0;
        for (int behind = end + 1; behind - last > 1;) {
            const int middle = std::midpoint(last, behind);
            (line_.cursorToX(middle) <= most ? last : behind) = middle;
        }
        return last;
    };
    const int left = lastUpTo(x);
    if (left == end) return left;
    const int right = lastUpTo(line_.cursorToX(left + 1));
    return x - line_.cursorToX(left) < line_.cursorToX(right) - x ? left : right;
}

std::size_t TextPiece::offsetAt(double x) const {
    if (!line_.isValid()) return 0;
    const qsizetype unit = hasRightToLeft_ ? line_.xToCursor(x) : unitAt(x);
    const std::size_t offset = shown_.offsetOf(unit);
    if (unit == shown_.unitOf(offset)) return offset;
    // Within a mark, which counts as one.
    qsizetype behind = unit;
    while (behind < shown_.text().size() && shown_.offsetOf(behind) == offset) ++behind;
    const std::size_t next = shown_.offsetOf(behind);
    return x - xOf(offset) < xOf(next) - x ? offset : next;
}

std::vector<Span> TextPiece::spansOf(const TextRange& range) const {
    if (!line_.isValid() || range.isEmpty()) return {};
    const auto first = static_cast<int>(shown_.unitOf(range.start));
    const auto end = static_cast<int>(shown_.unitOf(range.end));
    if (!hasRightToLeft_) return {{line_.cursorToX(first), line_.cursorToX(end)}};
    std::vector<Span> spans;
    for (const QGlyphRun& glyphs : line_.glyphRuns(first, end - first)) {
        spans.push_back({glyphs.boundingRect().left(), glyphs.boundingRect().right()});
    }
    return spans;
}

void TextPiece::draw(QPainter& painter, const QPointF& start) const {
    if (!line_.isValid()) return;
    painter.setPen(colors_.text);
    line_.draw(&painter, start - QPointF(0, line_.ascent()));
}

}  // namespace marquell::window
