// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/ColumnFitting.h"

#include <algorithm>
#include <utility>

#include "toolkit/look/Metrics.h"
#include "toolkit/tables/ColumnWidths.h"

namespace marquell::toolkit {
namespace {

// Points.
constexpr double smallestShare = 88;
constexpr double largestFirst = 320;

constexpr qint64 soon = 2000;  // ms

}  // namespace

ColumnFitting::ColumnFitting(QHeaderView& header, const std::vector<TableColumn>& columns,
                             NaturalWidth naturalWidth)
    : header_(header), columns_(columns), naturalWidth_(std::move(naturalWidth)) {
    QObject::connect(&header_, &QHeaderView::sectionResized, &header_, [this] {
        // Who has chosen a width is not to lose it.
        if (!isApplying_) sinceFit_.invalidate();
    });
}

void ColumnFitting::start(bool withHeaders, int room) {
    withHeaders_ = withHeaders;
    isFitted_ = false;
    sinceFit_.invalidate();
    room_ = 0;
    roomChanged(room);
}

void ColumnFitting::roomChanged(int room) {
    if (room <= 0 || room == room_) return;
    const int before = std::exchange(room_, room);
    if (withHeaders_ && before > 0) {
        apply(widthsAfterResize(widths(), before, room, metrics().px(smallestShare)));
    } else {
        apply(firstWidths(room));
    }
}

std::vector<int> ColumnFitting::firstWidths(int room) const {
    if (withHeaders_) return equalWidths(header_.count(), room, metrics().px(smallestShare));
    std::vector<int> widths;
    int sharing = 0;
    for (const TableColumn& column : columns_) {
        widths.push_back(metrics().px(column.width));
        room -= widths.back();
        if (column.width <= 0) ++sharing;
    }
    const std::vector<int> shares = equalWidths(sharing, std::max(room, 0), 0);
    auto share = shares.begin();
    for (int& width : widths) {
        if (width == 0) width = *share++;
    }
    return widths;
}

void ColumnFitting::cellsShown(const std::function<bool()>& areComplete) {
    if (!withHeaders_ || room_ <= 0 || isApplying_) return;
    if (!isFitted_) {
        isFitted_ = true;
        fitToContents();
        if (!areComplete()) sinceFit_.start();
    } else if (sinceFit_.isValid() && areComplete()) {
        if (sinceFit_.elapsed() < soon) fitToContents();
        sinceFit_.invalidate();
    }
}

void ColumnFitting::fitToContents() {
    std::vector<int> widths;
    for (int i = 0; i < header_.count(); ++i) {
        widths.push_back(
            std::clamp(naturalWidth_(i), metrics().px(smallestShare), metrics().px(largestFirst)));
    }
    apply(stretchedWidths(std::move(widths), room_));
}

std::vector<int> ColumnFitting::widths() const {
    std::vector<int> widths;
    for (int i = 0; i < header_.count(); ++i) widths.push_back(header_.sectionSize(i));
    return widths;
}

void ColumnFitting::apply(const std::vector<int>& widths) {
    const bool wasApplying = std::exchange(isApplying_, true);
    for (int i = 0; i < header_.count(); ++i) {
        header_.resizeSection(i, widths.at(static_cast<std::size_t>(i)));
    }
    isApplying_ = wasApplying;
}

}  // namespace marquell::toolkit
