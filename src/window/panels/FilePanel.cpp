// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/panels/FilePanel.h"

#include <QAbstractItemView>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTreeView>
#include <utility>

#include "platform/Localization.h"
#include "toolkit/look/Metrics.h"

namespace marquell::window {
namespace {

struct PartName {
    const char* part;
    const char* name;
};

/// Parts that Qt leaves without a name for assistive programs.
constexpr PartName partNames[] = {
    {"listView", "Files"},
    {"treeView", "Files"},
    {"sidebar", "Places"},
    {"lookInCombo", "Folder"},
};

template <typename Part>
Part* partOf(const QFileDialog& dialog, const char* name) {
    return dialog.findChild<Part*>(QLatin1String(name));
}

QSize suitableSize(const QScreen* screen) {
    const QSize wanted(toolkit::metrics().px(760), toolkit::metrics().px(480));
    return screen == nullptr ? wanted : wanted.boundedTo(screen->availableSize() * 0.9);
}

}  // namespace

FilePanel::FilePanel(QWidget* parent, const QString& title, const QString& folder)
    : QFileDialog(parent, title, QFileInfo(folder).isDir() ? folder : QDir::homePath()) {
    setOption(QFileDialog::DontUseNativeDialog);
    setWindowModality(Qt::WindowModal);
    setSizeGripEnabled(false);
    setLabelText(QFileDialog::LookIn, panelText("Folder:", "label"));
    resize(suitableSize(screen()));
    takeParts();
    arrangeViews();
    const auto* hiddenKeys = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_H), this);
    connect(hiddenKeys, &QShortcut::activated, this, [this] { toggleHiddenFiles(); });
}

/// Which Qt makes only for a dialog of its own.
void FilePanel::takeParts() {
    nameField_ = partOf<QLineEdit>(*this, "fileNameEdit");
    folders_ = findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
    for (const PartName& row : partNames) {
        auto* part = partOf<QWidget>(*this, row.part);
        part->setAccessibleName(panelText(row.name, "accessible name"));
    }
    for (const char* name : {"listView", "treeView"}) {
        auto* view = partOf<QAbstractItemView>(*this, name);
        view->installEventFilter(this);
        selection_ = view->selectionModel();
    }
}

/// Qt cuts most of the dates, leaves a third of the width to nothing, and puts a line between two
/// frames.
void FilePanel::arrangeViews() {
    QHeaderView& header = *partOf<QTreeView>(*this, "treeView")->header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(0, QHeaderView::Stretch);
    for (const auto& [section, points] : {std::pair{1, 80}, {2, 120}, {3, 150}}) {
        header.resizeSection(section, toolkit::metrics().px(points));
    }
    const int places = toolkit::metrics().px(130);
    auto* splitter = partOf<QSplitter>(*this, "splitter");
    splitter->setSizes({places, width() - places});
    if (isRightToLeft()) return;  // where Qt would lay the panes over one frame about both
    splitter->setFrameShape(QFrame::StyledPanel);
    for (const char* name : {"sidebar", "listView", "treeView"}) {
        partOf<QFrame>(*this, name)->setFrameShape(QFrame::NoFrame);
    }
}

QPushButton* FilePanel::replaceButton(QDialogButtonBox::StandardButton replaced,
                                      const QString& title) {
    auto* box = partOf<QDialogButtonBox>(*this, "buttonBox");
    delete box->button(replaced);
    QPushButton* button = box->addButton(title, QDialogButtonBox::AcceptRole);
    button->setDefault(true);
    return button;
}

QLabel* FilePanel::addLine(LinePlace place) {
    auto* line = new QLabel(this);
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    auto& grid = dynamic_cast<QGridLayout&>(*layout());
    if (place == LinePlace::atTheEnd) {
        grid.addWidget(line, grid.rowCount(), 0, 1, grid.columnCount());
        return line;
    }
    auto* types = partOf<QWidget>(*this, "fileTypeCombo");
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid.getItemPosition(grid.indexOf(types), &row, &column, &rows, &columns);
    for (QWidget* part : {types, partOf<QWidget>(*this, "fileTypeLabel")}) part->hide();
    grid.addWidget(line, row, column, rows, columns);
    return line;
}

bool FilePanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (key.modifiers() == Qt::AltModifier && key.key() == Qt::Key_Down) {
            enterCurrentFolder();
            return true;
        }
        if (handleListKey(key.key())) return true;
    }
    return QFileDialog::eventFilter(watched, event);
}

void FilePanel::toggleHiddenFiles() { setFilter(filter() ^ QDir::Hidden); }

void FilePanel::enterCurrentFolder() {
    const QString path = selection_->currentIndex().data(QFileSystemModel::FilePathRole).toString();
    if (QFileInfo(path).isDir()) setDirectory(path);
}

}  // namespace marquell::window
