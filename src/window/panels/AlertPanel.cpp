// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/panels/AlertPanel.h"

#include <QMessageBox>
#include <QPushButton>

namespace marquell::window {

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
    panel->show();
}

}  // namespace marquell::window
