// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <utility>

#include "toolkit/bricks/BricksFactory.h"
#include "toolkit/drawing/DrawingStack.h"
#include "variables/EndOfLifeBag.h"

namespace marquell::toolkit {

class NiblessViewController;

/// How a wall is split in two: the first part takes a share of it, or a fixed number of points.
enum class SplittingSize { relative, absolute };
/// `horizontal`: the parts stand side by side; `vertical`: one above the other.
enum class SplitDirection { horizontal, vertical };

/// The container view: paints a background and up to four borders of one point, places bricks on
/// itself through its factory, and runs the closures of its bag when it goes away.
class Wall : public QWidget {
public:
    using BackgroundDrawingFunc = std::function<void(QPainter& painter, const QRectF& frame)>;
    using BorderDrawingFunc = std::function<void(QPainter& painter, const QRectF& frame, bool top,
                                                 bool bottom, bool left, bool right)>;

    explicit Wall(QWidget* parent = nullptr);
    ~Wall() override;

    BricksFactory& factory() { return factory_; }

    /// What the wall answers to isFlipped: FragmentStackView's order turns with it.
    bool isFlipped() const { return inheritsFlipped; }
    bool allowsVibrancy() const { return inheritsVibrancy; }

    const std::optional<QColor>& backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(std::optional<QColor> color);
    const QColor& borderColor() const { return borderColor_; }
    void setBorderColor(const QColor& color);

    bool drawTopBorder() const { return drawTopBorder_; }
    void setDrawTopBorder(bool drawTopBorder);
    bool drawBottomBorder() const { return drawBottomBorder_; }
    void setDrawBottomBorder(bool drawBottomBorder);
    bool drawLeftBorder() const { return drawLeftBorder_; }
    void setDrawLeftBorder(bool drawLeftBorder);
    bool drawRightBorder() const { return drawRightBorder_; }
    void setDrawRightBorder(bool drawRightBorder);
    void setBorders(bool top, bool bottom, bool left, bool right);

    /// Paints into the wall's bounds: the drawing stack, else the drawing function, else the
    /// background colour; then the borders, the horizontal ones owning the corners.
    virtual void draw(QPainter& painter);

    /// A wall in the middle of this one, as large as its content.
    Wall* createCenteredWallInside();
    /// Puts the controller's view on this wall, and has it fill the wall. A view that is not built
    /// yet is built first; nothing happens if there is none then either.
    void fillWallWith(NiblessViewController& viewController);
    /// Two walls that fill this one, left and right or top and bottom. `factor` is the first one's
    /// share (0 to 1) or its length in points.
    std::pair<Wall*, Wall*> split(SplittingSize size, double factor, SplitDirection direction);

    bool inheritsVibrancy = false;
    bool inheritsFlipped = false;
    std::optional<DrawingStack> drawingStack;
    BackgroundDrawingFunc backgroundDrawingFunc;
    BorderDrawingFunc borderDrawingFunc;  // for subclasses; draw() does not consult it
    variables::EndOfLifeBag endOfLifeBag;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawBorders(QPainter& painter) const;

    BricksFactory factory_;
    std::optional<QColor> backgroundColor_;
    QColor borderColor_ = Qt::transparent;
    bool drawTopBorder_ = false;
    bool drawBottomBorder_ = false;
    bool drawLeftBorder_ = false;
    bool drawRightBorder_ = false;
};

}  // namespace marquell::toolkit
