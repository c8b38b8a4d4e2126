// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

#include "toolkit/bricks/Label.h"
#include "toolkit/walls/Wall.h"

namespace marquell::gallery {

/// A wall on which views are put at fixed places. Lengths in points.
class Sheet {
public:
    explicit Sheet(toolkit::Wall& wall) : wall_(wall) {}

    /// In its own size where none is given.
    template <typename View>
    View* put(View* view, double x, double y, std::optional<double> width = {},
              std::optional<double> height = {}) {
        place(view, x, y, width, height);
        return view;
    }

    toolkit::Label* title(const QString& text, double x, double y);
    /// Small, and grey where that can be read; centred about `x` + `width` / 2 where a width is
    /// given.
    toolkit::Label* caption(const QString& text, double x, double y,
                            std::optional<double> width = {});

    /// Room that the wall keeps right of and below everything.
    void end(double width, double height);

    toolkit::Wall& wall() { return wall_; }

private:
    void place(QWidget* view, double x, double y, std::optional<double> width,
               std::optional<double> height);

    toolkit::Wall& wall_;
};

/// Fills the wall with a colour that follows the mode.
void fillWith(toolkit::Wall* wall, toolkit::ColorRole role);

/// A wall whose ground and border are of roles, so that they follow the mode.
class RoleWall : public toolkit::Wall {
public:
    explicit RoleWall(std::optional<toolkit::ColorRole> ground,
                      std::optional<toolkit::ColorRole> border = {});

protected:
    void changeEvent(QEvent* event) override;

private:
    void takeColors();

    const std::optional<toolkit::ColorRole> ground_;
    const std::optional<toolkit::ColorRole> border_;
};

/// A view that draws by a function.
class Picture : public QWidget {
public:
    using Draw = std::function<void(QPainter& painter, const QRectF& frame)>;
    explicit Picture(Draw draw, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Draw draw_;
};

}  // namespace marquell::gallery
