// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLayout>
#include <QStringList>
#include <memory>

namespace marquell::toolkit {

/// Solves the constraints of a view and everything below it down to the next roots, and places the
/// views: the layout of that view as Qt sees it. Its smallest size is the smallest that the
/// constraints allow, so a window cannot be made smaller, and a root inside another root keeps its
/// room. A view outside any root keeps its place and its constraints wait.
class LayoutRoot : public QLayout {
public:
    /// Makes `view` a root, which owns it.
    static LayoutRoot* install(QWidget* view);
    /// The root that places `view`: that of the nearest view above it; null if there is none.
    static LayoutRoot* above(const QWidget* view);
    /// The root of the nearest view above, `view` itself counting.
    static LayoutRoot* at(const QWidget* view);

    ~LayoutRoot() override;

    /// The constraints that contradict others and are left out for as long as they do.
    QStringList conflicts() const;

    /// Places everything now, for those who need to know where views stand before they are shown.
    void layoutNow();

    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect& rect) override;
    void invalidate() override;
    Qt::Orientations expandingDirections() const override;

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit LayoutRoot(QWidget* view);

    struct Parts;
    const std::unique_ptr<Parts> parts_;
};

/// Has the layout look at `view` anew: at its constraints, its measures and what is below it.
void layoutChanged(const QWidget* view);

}  // namespace marquell::toolkit
