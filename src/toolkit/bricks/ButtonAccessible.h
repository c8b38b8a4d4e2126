// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessibleWidget>

class QAbstractButton;

namespace marquell::toolkit {

class PullDownButtonBrick;

/// A button that Qt does not know, or that it would turn without a click, which nobody would hear.
/// Without a title it is named by its description.
class ButtonAccessible : public QAccessibleWidget {
public:
    ButtonAccessible(QAbstractButton& button, QAccessible::Role role);

    QString text(QAccessible::Text part) const override;
    QAccessible::State state() const override;

    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

protected:
    virtual QString mainAction() const;
    virtual void doMainAction();

private:
    QString name() const;

    QAbstractButton& button_;
};

/// A button whose press opens its menu.
class PullDownAccessible : public ButtonAccessible {
public:
    explicit PullDownAccessible(PullDownButtonBrick& button);

    QAccessible::State state() const override;

    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

protected:
    QString mainAction() const override { return showMenuAction(); }
    void doMainAction() override;

private:
    PullDownButtonBrick& pullDown_;
};

}  // namespace marquell::toolkit
