// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "window/Text.h"

namespace marquell::window {

/// What the program's file dialogs have in common: Qt's own dialog, whose parts are known and hence
/// may be extended, with a button of ours in place of the one that changes its title by itself.
/// Alt+Down enters the folder that is current in the list, Ctrl+H shows hidden files or hides them.
class FilePanel : public QFileDialog {
public:
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    /// Begins in `folder`; in the user's home if that is gone.
    FilePanel(QWidget* parent, const QString& title, const QString& folder);

    /// Puts our button, which accepts, in place of Qt's. After the last change of the mode.
    QPushButton* replaceButton(QDialogButtonBox::StandardButton replaced, const QString& title);

    /// A line of text across the dialog, in place of the types of files or below them.
    enum class LinePlace { insteadOfTypes, atTheEnd };
    QLabel* addLine(LinePlace place);

    QLineEdit& nameField() const { return *nameField_; }
    QFileSystemModel& folders() const { return *folders_; }
    /// The one that both views of a folder share.
    const QItemSelectionModel& selection() const { return *selection_; }

    /// For a key that was pressed in the list; true if that is all that it is to do.
    virtual bool handleListKey(int /*key*/) { return false; }

private:
    void takeParts();
    void arrangeViews();
    void toggleHiddenFiles();
    void enterCurrentFolder();

    QLineEdit* nameField_ = nullptr;
    QFileSystemModel* folders_ = nullptr;
    QItemSelectionModel* selection_ = nullptr;
};

/// The user's text.
inline QString panelText(const char* english, const char* context = "file panel") {
    return localizedText(english, context);
}

}  // namespace marquell::window
