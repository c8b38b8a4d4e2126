// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/SegmentedControlBrick.h"

#include <QButtonGroup>
#include <QStyle>
#include <algorithm>
#include <numeric>
#include <utility>

#include "toolkit/bricks/CallIfSet.h"
#include "toolkit/bricks/PlainToolTip.h"
#include "toolkit/bricks/Segment.h"
#include "toolkit/bricks/SegmentWidths.h"
#include "toolkit/bricks/SegmentsPainting.h"

namespace marquell::toolkit {
namespace {

constexpr double capsulePadding = 12;
constexpr double tabPadding = 8;
constexpr double leastPadding = 3;

}  // namespace

SegmentedControlBrick::SegmentedControlBrick(QWidget* parent)
    : Brick<QWidget>(parent), group_(new QButtonGroup(this)) {
    connect(group_, &QButtonGroup::idClicked, this, [this](int index) {
        if (tellUserListeners(index)) callIfSet(selectionChangedFunction, index);
    });
    connect(group_, &QButtonGroup::idToggled, this, [this](int index, bool isOn) {
        if (isOn) moveFocusTo(segment(index));
        update();  // also the lines between segments
    });
}

SegmentedControlBrick::SegmentedControlBrick(const QStringList& titles, QWidget* parent)
    : SegmentedControlBrick(parent) {
    for (const QString& title : titles) addSegment(title);
}

Segment* SegmentedControlBrick::segment(int index) const {
    const bool isThere = index >= 0 && index < segmentCount();
    return isThere ? segments_[static_cast<std::size_t>(index)] : nullptr;
}

void SegmentedControlBrick::addSegment(const QString& title) {
    auto* const added = new Segment(this);
    group_->addButton(added, segmentCount());
    segments_.push_back(added);
    if (focusProxy() == nullptr) setFocusProxy(added);
    added->setTitle(title);
    added->show();
    segmentsChanged();
}

void SegmentedControlBrick::setTitle(const QString& title, int forSegment) {
    if (Segment* const changed = segment(forSegment)) changed->setTitle(title);
    segmentsChanged();
}

QString SegmentedControlBrick::title(int ofSegment) const {
    const Segment* const asked = segment(ofSegment);
    return asked == nullptr ? QString() : asked->title();
}

void SegmentedControlBrick::setImage(TemplateImage image, int forSegment) {
    if (Segment* const changed = segment(forSegment)) changed->setImage(std::move(image));
    segmentsChanged();
}

void SegmentedControlBrick::setSegmentToolTip(const QString& text, int forSegment) {
    if (Segment* const changed = segment(forSegment)) setPlainToolTip(*changed, text);
}

void SegmentedControlBrick::setSegmentEnabled(bool isEnabled, int forSegment) {
    if (Segment* const changed = segment(forSegment)) changed->setEnabled(isEnabled);
}

void SegmentedControlBrick::setSegmentStyle(SegmentStyle style) {
    style_ = style;
    segmentsChanged();
}

int SegmentedControlBrick::indexOfSelectedItem() const { return group_->checkedId(); }

void SegmentedControlBrick::selectSegment(int index) {
    if (Segment* const chosen = segment(index)) {
        chosen->setChecked(true);
    } else if (QAbstractButton* const selected = group_->checkedButton()) {
        group_->setExclusive(false);
        selected->setChecked(false);
        group_->setExclusive(true);
    }
}

void SegmentedControlBrick::selectBeside(Segment* focused, int by) {
    int index = indexOfSelectedItem();
    if (index < 0) index = group_->id(focused);
    do {
        index += by;
    } while (segment(index) != nullptr && !segment(index)->isEnabled());
    Segment* const next = segment(index);
    if (next == nullptr) return;
    next->setFocus(by > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    next->click();
}

/// The row is one stop of the keyboard: its selected segment.
void SegmentedControlBrick::moveFocusTo(Segment* selected) {
    setFocusProxy(selected);
    const auto hasFocus = [](const Segment* segment) { return segment->hasFocus(); };
    if (std::ranges::any_of(segments_, hasFocus)) selected->setFocus(Qt::OtherFocusReason);
}

/// The widths that the segments ask for with some padding on each side.
std::vector<int> SegmentedControlBrick::widthsWith(double padding) const {
    std::vector<int> widths;
    for (const Segment* segment : segments_) {
        widths.push_back(segment->contentWidth() + 2 * metrics().px(padding));
    }
    if (style_ == SegmentStyle::capsule && !widths.empty()) {
        const int widest = *std::max_element(widths.begin(), widths.end());
        widths.assign(widths.size(), widest);
    }
    return widths;
}

std::vector<int> SegmentedControlBrick::naturalWidths() const {
    if (style_ == SegmentStyle::capsule) return widthsWith(capsulePadding);
    std::vector<int> widths = widthsWith(tabPadding);
    for (int& width : widths) width += metrics().px(1);  // the line between it and the one before
    return widths;
}

QSize SegmentedControlBrick::sizeHint() const {
    const std::vector<int> widths = naturalWidths();
    return {std::accumulate(widths.begin(), widths.end(), 0),
            metrics().controlHeight(controlSizeOf(this))};
}

QSize SegmentedControlBrick::minimumSizeHint() const {
    const int least = fontMetrics().horizontalAdvance(u'…') + 2 * metrics().px(leastPadding);
    return {segmentCount() * least, sizeHint().height()};
}

void SegmentedControlBrick::segmentsChanged() {
    placeSegments();
    updateGeometry();
    update();
}

void SegmentedControlBrick::placeSegments() {
    const std::vector<int> widths =
        segmentWidths(naturalWidths(), widthsWith(leastPadding), width());
    int x = 0;
    for (std::size_t i = 0; i < segments_.size(); ++i) {
        const QRect place(x, 0, widths[i], height());
        segments_[i]->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
        x += widths[i];
    }
}

void SegmentedControlBrick::drawAsStyle(QPainter& painter, const QRectF& frame) {
    std::vector<const QAbstractButton*> buttons(segments_.begin(), segments_.end());
    if (layoutDirection() == Qt::RightToLeft) std::ranges::reverse(buttons);
    painter.translate(frame.topLeft());
    style_ == SegmentStyle::capsule ? paintCapsule(painter, *this, buttons)
                                    : paintTabs(painter, *this, buttons);
}

void SegmentedControlBrick::changeEvent(QEvent* event) {
    Brick<QWidget>::changeEvent(event);
    segmentsChanged();
}

void SegmentedControlBrick::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    delegateDrawingToSuper(painter, QRectF(rect()));
}

void SegmentedControlBrick::resizeEvent(QResizeEvent*) { placeSegments(); }

}  // namespace marquell::toolkit
