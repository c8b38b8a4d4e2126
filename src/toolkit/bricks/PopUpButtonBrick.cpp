// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/PopUpButtonBrick.h"

#include <QKeyEvent>
#include <QListView>
#include <QPointer>
#include <QStandardItemModel>
#include <QStyleOptionComboBox>
#include <algorithm>
#include <utility>

#include "toolkit/bricks/CutTextToolTip.h"
#include "toolkit/bricks/PopUpItemDelegate.h"
#include "toolkit/bricks/SmartMenuItem.h"
#include "toolkit/look/ColorRole.h"
#include "toolkit/look/ControlBox.h"

namespace marquell::toolkit {
namespace {

/// Whether the key types a character, rather than being part of a shortcut.
bool typesText(const QKeyEvent& event) {
    constexpr auto shortcuts = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !event.text().isEmpty() && event.text().at(0).isPrint() &&
           !(event.modifiers() & shortcuts);
}

}  // namespace

PopUpButtonBrick::PopUpButtonBrick(QWidget* parent) : ListBrick(parent) {
    setItemDelegate(new PopUpItemDelegate(this));
    connect(this, &QComboBox::activated, this, [this](int index) {
        if (!tellUserListeners(index)) return;
        if (SmartMenuItem* const item = itemAt(index)) item->trigger();
    });
}

PopUpButtonBrick::~PopUpButtonBrick() { deleteItems(); }

SmartMenuItem* PopUpButtonBrick::addItem(SmartMenuItem* item) {
    item->setParent(this);
    items_.push_back(item);
    QComboBox::addItem(item->title());
    showItem(item);
    connect(item, &QAction::changed, this, [this, item] { showItem(item); });
    connect(item, &QObject::destroyed, this, [this, item] { forgetItem(item); });
    return item;
}

SmartMenuItem* PopUpButtonBrick::addItem(const QString& title, const QString& subtitle) {
    auto* const item = new SmartMenuItem(title);
    item->setSubtitle(subtitle);
    return addItem(item);
}

void PopUpButtonBrick::addSeparator() {
    items_.push_back(nullptr);
    insertSeparator(count());
    deselectSeparator();
}

void PopUpButtonBrick::removeAllItems() {
    clear();
    deleteItems();
    updateGeometry();
}

void PopUpButtonBrick::deleteItems() {
    for (SmartMenuItem* const item : std::exchange(items_, {})) delete item;
}

SmartMenuItem* PopUpButtonBrick::itemAt(int index) const {
    if (index < 0 || index >= static_cast<int>(items_.size())) return nullptr;
    return items_[static_cast<std::size_t>(index)];
}

void PopUpButtonBrick::selectItemAt(int index) {
    setCurrentIndex(itemAt(index) == nullptr ? -1 : index);
}

bool PopUpButtonBrick::selectItemWithTag(int tag) {
    const auto found = std::find_if(items_.begin(), items_.end(), [tag](const SmartMenuItem* item) {
        return item != nullptr && item->tag == tag;
    });
    if (found == items_.end()) return false;
    selectItemAt(static_cast<int>(found - items_.begin()));
    return true;
}

int PopUpButtonBrick::rowOf(const SmartMenuItem* item) const {
    const auto found = std::find(items_.begin(), items_.end(), item);
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

/// The item is gone, without the popup.
void PopUpButtonBrick::forgetItem(const SmartMenuItem* item) {
    const int row = rowOf(item);
    if (row < 0) return;
    items_.erase(items_.begin() + row);
    removeItem(row);
    deselectSeparator();
    updateGeometry();
}

/// Qt may come to select one as what is there first, or next to what is gone.
void PopUpButtonBrick::deselectSeparator() {
    if (selectedItem() == nullptr) selectItemAt(-1);
}

/// Brings the item's row of the list up to date.
void PopUpButtonBrick::showItem(const SmartMenuItem* item) {
    const QModelIndex index = model()->index(rowOf(item), modelColumn());
    model()->setData(index, item->title(), Qt::DisplayRole);
    model()->setData(index, item->subtitle(), PopUpItemDelegate::subtitleRole);
    model()->setData(index, PopUpItemDelegate::textOf(index).whole(), Qt::AccessibleTextRole);
    if (auto* items = qobject_cast<QStandardItemModel*>(model())) {
        items->itemFromIndex(index)->setEnabled(item->isEnabled() && item->isVisible());
    }
    updateGeometry();
    update();
}

TwoPartText PopUpButtonBrick::selectedText() const {
    const SmartMenuItem* const item = selectedItem();
    return item == nullptr ? TwoPartText() : TwoPartText{item->title(), item->subtitle()};
}

QSize PopUpButtonBrick::sizeFor(double textWidth) const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize contents(static_cast<int>(textWidth), fontMetrics().height());
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, this);
}

QSize PopUpButtonBrick::sizeHint() const {
    const TwoPartFonts fonts(controlSizeOf(this));
    double width = 0;
    for (const SmartMenuItem* item : items_) {
        if (item == nullptr) continue;
        width = std::max(width, widthOf({item->title(), item->subtitle()}, fonts));
    }
    return sizeFor(width);
}

QSize PopUpButtonBrick::minimumSizeHint() const {
    return sizeFor(widthOf({QStringLiteral("…"), {}}, TwoPartFonts(controlSizeOf(this))));
}

void PopUpButtonBrick::prepareList() {
    // A function may add and remove items, or end the popup.
    const QPointer<PopUpButtonBrick> self(this);
    const std::vector<QPointer<SmartMenuItem>> items(items_.begin(), items_.end());
    for (const QPointer<SmartMenuItem>& item : items) {
        if (item) item->prepareForDisplay();
    }
    if (!self) return;
    auto* const list = qobject_cast<QListView*>(view());
    for (int i = 0; i < count(); ++i) {
        const SmartMenuItem* const item = itemAt(i);
        list->setRowHidden(i, item != nullptr && !item->isVisible());
    }
    list->setMinimumWidth(list->sizeHintForColumn(modelColumn()));
}

void PopUpButtonBrick::apply(const ControlSkin&) {
    normalDrawing.stack.reset();
    highlightedDrawing.stack.reset();
    update();
}

std::vector<DrawingAsset> PopUpButtonBrick::assets() const { return {selectedText().whole()}; }

QRectF PopUpButtonBrick::textRect(const QRectF& frame) const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.rect = frame.toAlignedRect();
    return QRectF(
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this));
}

void PopUpButtonBrick::drawAsStyle(QPainter& painter, const QRectF& frame) {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.rect = frame.toAlignedRect();
    style()->drawComplexControl(QStyle::CC_ComboBox, &option, &painter, this);
    const QColor text = controlColors(controlStateOf(option), surfaceOf(this)).text;
    const TwoPartColors colors = {text, isEnabled() ? color(ColorRole::secondaryText, this) : text};
    drawTwoPartText(painter, textRect(frame), selectedText(), TwoPartFonts(controlSizeOf(this)),
                    colors);
}

bool PopUpButtonBrick::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return ListBrick::event(event);
    const double textWidth = widthOf(selectedText(), TwoPartFonts(controlSizeOf(this)));
    return showCutText(this, event, selectedText().whole(), textWidth,
                       textRect(QRectF(rect())).width()) ||
           ListBrick::event(event);
}

/// A key of a closed list opens it and changes nothing, so that a choice is made once.
void PopUpButtonBrick::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Space:
        case Qt::Key_F4:
            showPopup();
            return;
        default:
            break;
    }
    if (!typesText(*event)) {
        event->ignore();
        return;
    }
    showPopup();
    view()->keyboardSearch(QString());  // forgets what was typed into the list before
    view()->keyboardSearch(event->text());
}

}  // namespace marquell::toolkit
