// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/panels/SourcePanel.h"

#include <QFileSystemModel>
#include <QPointer>
#include <algorithm>

#include "window/panels/FilePanel.h"

namespace marquell::window {
namespace {

/// The folder used last, during this run of the program.
QString& lastFolder() {
    static QString folder;
    return folder;
}

class Panel final : public FilePanel {
public:
    explicit Panel(QWidget* parent)
        : FilePanel(parent, panelText("Add Files and Folders"), lastFolder()) {
        setFileMode(QFileDialog::ExistingFiles);
        setOption(QFileDialog::ReadOnly);  // nothing is to be deleted or renamed from here
        replaceButton(QDialogButtonBox::Open, panelText("Add", "dialog button"));
        addLine(LinePlace::insteadOfTypes)
            ->setText(panelText("Select files and folders, or nothing to add the folder shown."));
        connect(&nameField(), &QLineEdit::textEdited, this, [this] { wasEdited_ = true; });
        connect(&selection(), &QItemSelectionModel::selectionChanged, this, [this] {
            if (focusWidget() != &nameField()) wasEdited_ = false;
        });
    }

    const QStringList& paths() const { return paths_; }

    void accept() override {
        paths_ = chosenPaths();
        const bool areThere = std::ranges::all_of(
            paths_, [](const QString& path) { return QFileInfo::exists(path); });
        if (paths_.isEmpty()) return;
        if (!areThere) return QFileDialog::accept();  // which says so
        lastFolder() =
            isTyped() ? QFileInfo(paths_.front()).absolutePath() : directory().absolutePath();
        done(QDialog::Accepted);  // Qt's own would enter a folder
    }

private:
    bool handleListKey(int key) override {
        if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
        accept();
        return true;
    }

    /// Rather than put into the field when something was selected.
    bool isTyped() const { return wasEdited_ && !nameField().text().isEmpty(); }

    /// What was typed or selected, whatever came last; else the folder that is open.
    QStringList chosenPaths() const {
        if (isTyped()) return typedPaths();
        QStringList selected = selectedPaths();
        if (!selected.isEmpty()) return selected;
        const QString folder = directory().absolutePath();
        return folder.isEmpty() ? QStringList() : QStringList(folder);
    }

    QStringList typedPaths() const {
        // A name may have quotes, which Qt takes for those about one of several names.
        const QString whole = directory().absoluteFilePath(nameField().text());
        return QFileInfo::exists(whole) ? QStringList(QDir::cleanPath(whole)) : selectedFiles();
    }

    QStringList selectedPaths() const {
        QModelIndexList rows = selection().selectedRows();
        std::ranges::sort(rows, {}, &QModelIndex::row);
        QStringList paths;
        for (const QModelIndex& row : rows) {
            paths.append(row.data(QFileSystemModel::FilePathRole).toString());
        }
        return paths;
    }

    bool wasEdited_ = false;
    QStringList paths_;
};

}  // namespace

std::vector<std::string> runSourcePanel(QWidget* parent) {
    const QPointer<Panel> panel = new Panel(parent);
    std::vector<std::string> paths;
    const bool isAccepted = panel->exec() == QDialog::Accepted;
    if (panel == nullptr) return paths;
    if (isAccepted) {
        for (const QString& path : panel->paths()) {
            paths.push_back(QFile::encodeName(path).toStdString());
        }
    }
    delete panel.data();
    return paths;
}

}  // namespace marquell::window
