// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QMarginsF>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "toolkit/layout/LayoutConstraint.h"

class QPainter;

namespace marquell::toolkit {

class FragmentWall;

/// The two priorities with which a stack shows a view or does without it. Nothing is ever left out
/// for lack of room.
enum class VisibilityPriority { notVisible = 0, detachOnlyIfNecessary = 900 };

/// A column of views, one below the other at its left edge, each in its own size; the stack is as
/// high as they are together and at least as wide as the widest. A view that is hidden, or whose
/// visibility priority says so, leaves no gap. Lengths in points.
class FragmentStackView : public QWidget {
public:
    using BackgroundDrawingFunc = std::function<void(QPainter& painter, const QRectF& frame)>;

    explicit FragmentStackView(QWidget* parent = nullptr);
    ~FragmentStackView() override;

    /// A flipped stack counts its views from the top downwards, another from the bottom upwards.
    bool isFlipped() const { return inheritsFlipped_; }
    void setInheritsFlipped(bool inheritsFlipped);

    void setSpacing(double spacing);
    void setEdgeInsets(const QMarginsF& edgeInsets);

    /// The stack owns the view from now on. One that it has already moves to the new place.
    void addArrangedSubview(QWidget* view);
    /// `at`: 0 is the first place; a place beyond the last is the last.
    void insertArrangedSubview(QWidget* view, int at);
    /// The views in their order, the hidden ones among them.
    std::vector<QWidget*> arrangedSubviews() const;

    /// Does nothing for a view that is not arranged here. A view shows when both its priority and
    /// its own hide() or show() allow it. A show() while it is `notVisible` counts from the next
    /// change of the priority on; a hide() in the meantime does not, as Qt tells nobody of hiding
    /// what is hidden.
    void setVisibilityPriority(VisibilityPriority priority, QWidget* view);
    /// `notVisible` for a view that is not arranged here.
    VisibilityPriority visibilityPriority(const QWidget* view) const;

    // Arrange a fragment and install it.
    void addFragment(FragmentWall* fragment);
    void insertFragmentAtTop(FragmentWall* fragment);
    void insertFragmentAsSecondLast(FragmentWall* fragment);
    void hideFragment(FragmentWall* fragment);
    void showFragment(FragmentWall* fragment);

    void setBackgroundColor(std::optional<QColor> color);

    /// Paints the background into the stack's bounds: the drawing function, else the colour.
    virtual void draw(QPainter& painter);

    BackgroundDrawingFunc backgroundDrawingFunc;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void childEvent(QChildEvent* event) override;

private:
    struct Arranged {
        QWidget* view = nullptr;
        VisibilityPriority priority = VisibilityPriority::detachOnlyIfNecessary;
        bool isHiddenByItself = false;  // kept while the priority hides it, too
    };

    Arranged* find(const QObject* view);
    void chainUp();
    std::vector<QWidget*> shownFromTop() const;

    std::vector<Arranged> arranged_;
    LayoutConstraints chain_;  // in force
    double spacing_ = 0;
    QMarginsF edgeInsets_;
    bool inheritsFlipped_ = false;
    bool isChangingVisibility_ = false;
    std::optional<QColor> backgroundColor_;
};

}  // namespace marquell::toolkit
