// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <vector>

#include "toolkit/bricks/Brick.h"
#include "toolkit/bricks/UserListeners.h"

class QButtonGroup;

namespace marquell::toolkit {

class Segment;

/// `capsule`: segments of equal width in one rounded frame; `smallSquare`: tabs that stand on the
/// upper edge of a frame below them.
enum class SegmentStyle { capsule, smallSquare };

/// Draws an image of 19 by 19 points into a box in the given colour.
using TemplateImage =
    std::function<void(QPainter& painter, const QRectF& box, const QColor& color)>;

/// A row of segments, at most one of which is selected. Arrow keys go from one to the next. Where
/// there is no room for all titles, the longest are cut.
class SegmentedControlBrick : public Brick<QWidget>, public UserListeners<int> {
public:
    explicit SegmentedControlBrick(QWidget* parent = nullptr);
    explicit SegmentedControlBrick(const QStringList& titles, QWidget* parent = nullptr);

    void addSegment(const QString& title);
    int segmentCount() const { return int(segments_.size()); }

    void setTitle(const QString& title, int forSegment);
    QString title(int ofSegment) const;
    void setImage(TemplateImage image, int forSegment);
    /// It also names the segment for assistive programs, if that has no title.
    void setSegmentToolTip(const QString& text, int forSegment);
    void setSegmentEnabled(bool isEnabled, int forSegment);
    void setSegmentStyle(SegmentStyle style);
    SegmentStyle segmentStyle() const { return style_; }

    /// -1 for none; selecting what is no segment selects none.
    int indexOfSelectedItem() const;
    void selectSegment(int index);
    /// As the user: goes from the selected segment, or from the one with the focus if none is, to
    /// the next enabled one in the direction of `by`, 1 or -1, if there is one.
    void selectBeside(Segment* focused, int by);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// Called when the user selects a segment, be it the one that was selected.
    std::function<void(int index)> selectionChangedFunction;

protected:
    void drawAsStyle(QPainter& painter, const QRectF& frame) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void moveFocusTo(Segment* selected);
    void segmentsChanged();
    void placeSegments();
    Segment* segment(int index) const;
    std::vector<int> widthsWith(double padding) const;
    std::vector<int> naturalWidths() const;

    SegmentStyle style_ = SegmentStyle::capsule;
    QButtonGroup* group_;
    std::vector<Segment*> segments_;
};

}  // namespace marquell::toolkit
