// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/panels/AlertPanel.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "toolkit/look/Metrics.h"

namespace marquell::window {
namespace {

constexpr double textWidth = 320;  // points

}  // namespace

void showAlertPanel(QWidget* parent, const lists::Alert& alert) {
    auto* panel = new QMessageBox(parent);
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setWindowModality(Qt::WindowModal);
    panel->setIcon(QMessageBox::Warning);
    panel->setTextFormat(Qt::PlainText);
    panel->setText(QString::fromStdString(alert.message));
    panel->setInformativeText(QString::fromStdString(alert.informativeText));
    QPushButton* button =
        panel->addButton(QString::fromStdString(alert.button), QMessageBox::AcceptRole);
    panel->setDefaultButton(button);
    panel->setEscapeButton(button);
    auto* message = panel->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    toolkit::setFontRole(message, toolkit::FontRole::title);
    message->setMinimumWidth(toolkit::metrics().px(textWidth));  // of both texts
    panel->show();
}

}  // namespace marquell::window
