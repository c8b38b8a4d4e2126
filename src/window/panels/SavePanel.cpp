// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/panels/SavePanel.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>
#include <QPointer>
#include <utility>

#include "window/panels/EncodingCheck.h"
#include "window/panels/FilePanel.h"
#include "window/panels/SaveRefusal.h"

namespace marquell::window {
namespace {

/// The folder used last, during this run of the program.
QString& lastFolder() {
    static QString folder;
    return folder;
}

QStringList extensionsOf(const pipeline::SaveOffer& offer) {
    QStringList all;
    for (const std::string& type : offer.fileTypes) all.append(QString::fromStdString(type));
    return all;
}

class Panel final : public FilePanel {
public:
    Panel(QWidget* parent, const pipeline::SaveOffer& offer)
        : FilePanel(parent, panelText("Save List"), lastFolder()),
          extensions_(extensionsOf(offer)),
          check_(offer.findLackingCharacter, [this] { takeAnswer(); }) {
        setAcceptMode(QFileDialog::AcceptSave);
        setFileMode(QFileDialog::AnyFile);
        setLabelText(QFileDialog::FileType, panelText("File type:", "label"));
        button_ = replaceButton(QDialogButtonBox::Save, panelText("Save", "dialog button"));
        addRefusalLine();
        offerTypes();
        suggestName();
        connect(&nameField(), &QLineEdit::textChanged, this, [this] { choiceChanged(); });
        // The dialog itself tells of some ways only into another folder.
        connect(&folders(), &QFileSystemModel::rootPathChanged, this, [this] { choiceChanged(); });
        connect(this, &QFileDialog::filterSelected, this, [this] { takeType(); });
        judge();
    }

    const QString& path() const { return path_; }

    void accept() override {
        if (isAsking_) return;  // whether to replace a file
        judge();
        if (!button_->isEnabled()) return;
        if (!isOnTheWay() && !check_.isAnswered()) {
            isWaiting_ = true;
            return judge();
        }
        if (!isOnTheWay()) nameField().setText(completeName());
        path_ = pathOf(nameField().text());
        // Qt would take a selected row of the list rather than the name, even one that is stale.
        for (auto* view : findChildren<QAbstractItemView*>()) {
            if (view->selectionModel() != nullptr) view->selectionModel()->clearSelection();
        }
        const QPointer<Panel> self = this;
        isAsking_ = true;
        QFileDialog::accept();  // enters a folder, asks before it replaces a file
        if (self == nullptr) return;
        isAsking_ = false;
        if (result() == QDialog::Accepted) {
            lastFolder() = QFileInfo(path_).absolutePath();
        } else {
            selectName();  // for another one
        }
    }

private:
    void addRefusalLine() {
        refusal_ = addLine(LinePlace::atTheEnd);
        refusal_->setObjectName(QStringLiteral("refusal"));
        // Room for it, so that nothing moves when it comes and goes while somebody types.
        refusal_->setMinimumHeight(refusal_->fontMetrics().height());
    }

    void offerTypes() {
        QStringList filters;
        for (const QString& extension : extensions_) {
            filters.append(panelText("%1 files").arg(extension.toUpper()) +
                           QStringLiteral(" (*.%1)").arg(extension));
        }
        setNameFilters(filters << panelText("All Files") + QStringLiteral(" (*)"));
        if (!extensions_.isEmpty()) suffix_ = QLatin1Char('.') + extensions_.front();
    }

    void suggestName() {
        selectFile(panelText("File List") + suffix_);
        selectName();
    }

    /// Without the folders before it and the extension behind it.
    void selectName() {
        const QString whole = nameField().text();
        const qsizetype start = whole.lastIndexOf(QLatin1Char('/')) + 1;
        const qsizetype dot = whole.lastIndexOf(QLatin1Char('.'));
        const qsizetype end = dot > start ? dot : whole.size();
        nameField().setFocus();
        nameField().setSelection(static_cast<int>(start), static_cast<int>(end - start));
    }

    /// Has the name follow another type of file, if it has an extension of ours.
    void takeType() {
        const qsizetype chosen = nameFilters().indexOf(selectedNameFilter());
        if (chosen < 0 || chosen >= extensions_.size()) return;
        suffix_ = QLatin1Char('.') + extensions_[chosen];
        const QString name = nameField().text();
        const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
        if (dot < 0 || !extensions_.contains(name.mid(dot + 1))) return;
        nameField().setText(name.left(dot) + suffix_);
    }

    /// Whether the name is that of a folder to enter, not of a file.
    bool isOnTheWay() const {
        const QString name = nameField().text();
        const bool isOfFolder = name == QLatin1String("..") || name == QLatin1String("~") ||
                                name.endsWith(QLatin1Char('/'));
        return isOfFolder && QFileInfo(pathOf(name)).isDir();
    }

    /// The name with the extension that it gets if it has none. (Qt's own default suffix depends on
    /// the folders in the one that the program was started in.)
    QString completeName() const {
        const QString name = nameField().text();
        const bool isComplete = name.section(QLatin1Char('/'), -1).contains(QLatin1Char('.')) ||
                                QFileInfo(pathOf(name)).isDir();
        return isComplete ? name : name + suffix_;
    }

    QString pathOf(const QString& name) const {
        const bool isAtHome = name == QLatin1String("~") || name.startsWith(QLatin1String("~/"));
        return QDir::cleanPath(isAtHome ? QDir::homePath() + name.mid(1)
                                        : directory().absoluteFilePath(name));
    }

    QString refusal() const {
        if (check_.answer()) return refusalOf(*check_.answer());
        if (isOnTheWay() || nameField().text().isEmpty()) return QString();
        // Qt would take them for those about one of several names.
        if (nameField().text().contains(QLatin1Char('"'))) {
            return panelText("The name can’t have quotation marks.");
        }
        return refusalOf(pathOf(completeName()));
    }

    /// Says why the present choice can't be saved to, and lets only those be accepted that can.
    void judge() {
        const QString reason = refusal();
        const bool isPossible = reason.isEmpty() && !nameField().text().isEmpty();
        button_->setEnabled(isPossible && !isWaiting_);
        const bool isDelayed = isPossible && isWaiting_;
        refusal_->setText(isDelayed ? panelText("Looking for characters that the encoding lacks…")
                                    : reason);
        button_->setAccessibleDescription(refusal_->text());
    }

    /// What waits to be accepted is what was chosen then, nothing later.
    void choiceChanged() {
        isWaiting_ = false;
        keepPath();
        judge();
    }

    /// Qt puts the bare name in place of the path of a file that it finds, if it thinks that the
    /// user is not in the field: that would be a file in another folder.
    void keepPath() {
        const QString name = nameField().text();
        const bool isCutPath =
            name_.contains(QLatin1Char('/')) && name == name_.section(QLatin1Char('/'), -1);
        const bool isByUser =
            nameField().hasFocus() || qobject_cast<QAbstractItemView*>(focusWidget()) != nullptr;
        if (isCutPath && !name.isEmpty() && !isByUser) {
            nameField().setText(name_);  // comes back here
        } else {
            name_ = name;
        }
    }

    void takeAnswer() {
        const bool wasWaiting = std::exchange(isWaiting_, false);
        judge();
        if (wasWaiting) accept();  // last, as it may end this
    }

    const QStringList extensions_;
    QString suffix_;  ///< for names without; with its dot
    QLabel* refusal_ = nullptr;
    QPushButton* button_ = nullptr;
    bool isWaiting_ = false;  // to be accepted once the answer is known
    bool isAsking_ = false;
    QString name_;  // of the field, at its last change
    QString path_;
    EncodingCheck check_;
};

}  // namespace

std::optional<std::string> runSavePanel(QWidget* parent, const pipeline::SaveOffer& offer) {
    const QPointer<Panel> panel = new Panel(parent, offer);
    const bool isAccepted = panel->exec() == QDialog::Accepted;
    if (panel == nullptr) return std::nullopt;
    std::optional<std::string> path;
    if (isAccepted) path = QFile::encodeName(panel->path()).toStdString();
    delete panel.data();
    return path;
}

}  // namespace marquell::window
