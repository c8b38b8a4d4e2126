// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <QRectF>
#include <QTimer>
#include <QWidget>

namespace marquell::toolkit {

class FocusRingView;

/// How the ring lies about a control: outside it by 2 px, outside with 1 px of ground between, or
/// drawn inside the control's own rectangle.
enum class FocusRingPlace { outside, outsideWithGap, inside };

/// For controls whose ring is not the usual one, or lies about a part of them only.
class FocusRingShaped {
public:
    virtual ~FocusRingShaped() = default;
    virtual FocusRingPlace focusRingPlace() const { return FocusRingPlace::outside; }
    /// What the ring lies about, in the control's own coordinates.
    virtual QRectF focusRingRect() const = 0;
    virtual double focusRingRadius() const = 0;
};

/// Shows which control takes the keyboard, for as long as the user is at the keyboard: the ring
/// comes with focus by key and goes with the next press of the mouse; fields to write in keep it.
/// It lies above all siblings, so no neighbour cuts it off. One for the application, made by
/// furnish() as a filter of all events.
class FocusRing : public QObject {
public:
    explicit FocusRing(QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void controlChanged(QWidget* control);
    void setAtKeyboard(bool atKeyboard);
    void follow(const QWidget* changed, const QEvent& event);
    void place();

    QPointer<QWidget> control_;
    QPointer<FocusRingView> ring_;  // owned by the view that it lies in
    QTimer placing_;                // after the control has painted itself
    bool atKeyboard_ = false;
};

}  // namespace marquell::toolkit
