// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/PreviewTableCellView.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "metadata/DataCoordinator.h"
#include "metadata/TagManager.h"
#include "platform/Localization.h"
#include "window/preview/TableText.h"

namespace marquell::window {
namespace {

using metadata::DisplayStringWrapper;
using toolkit::ColorRole;

// UTF-16 units: what a tool tip shows. A value may have millions.
constexpr qsizetype longestText = 2000;

// Of a unit of UTF-16, in UTF-8.
constexpr std::size_t mostBytes = 3;

/// What tells one name or path from another is also at its end.
constexpr std::array<std::string_view, 4> nameColumns = {"absolute_path", "absolute_parent_path",
                                                         "relative_path", "name"};

Qt::TextElideMode elideModeOf(std::string_view columnId) {
    const bool isName = std::ranges::find(nameColumns, columnId) != nameColumns.end();
    return isName ? Qt::ElideMiddle : Qt::ElideRight;
}

QString firstUnits(std::string_view text, qsizetype count) {
    const auto bytes = std::min(text.size(), mostBytes * static_cast<std::size_t>(count + 1));
    QString units = QString::fromUtf8(text.data(), static_cast<qsizetype>(bytes)).left(count);
    if (!units.isEmpty() && units.back().isHighSurrogate()) units.chop(1);
    return units;
}

QString lastUnits(std::string_view text, qsizetype count) {
    const auto bytes = std::min(text.size(), mostBytes * static_cast<std::size_t>(count + 1));
    text.remove_prefix(text.size() - bytes);
    QString units =
        QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).right(count);
    if (!units.isEmpty() && units.front().isLowSurrogate()) units.remove(0, 1);
    return units;
}

/// As much of a value as is ever shown; of a path both ends.
QString shortened(std::string_view text, Qt::TextElideMode mode) {
    QString whole = firstUnits(text, longestText + 2);  // one of them may be half a pair
    if (whole.size() <= longestText) return whole;
    const QChar ellipsis(0x2026);
    if (mode != Qt::ElideMiddle) return firstUnits(text, longestText) + ellipsis;
    return firstUnits(text, longestText / 2) + ellipsis + lastUnits(text, longestText / 2);
}

QString labelText(std::string_view english) {
    return QString::fromStdString(platform::localized(english, "table cell label"));
}

}  // namespace

void PreviewTableCellView::configureLabel() {
    if (node == nullptr || !valueKey) return;
    nameLabel.elideMode = elideModeOf(*valueKey);
    const DisplayStringWrapper answer = node->getDisplayString(*valueKey);
    switch (answer.kind) {
        case DisplayStringWrapper::Kind::string:
            setText(shortened(answer.text, nameLabel.elideMode), State::present);
            break;
        case DisplayStringWrapper::Kind::noValue:
            setText(noValueText(), State::empty);
            break;
        case DisplayStringWrapper::Kind::notRetrievedYet:
            setText(labelText("waiting…"), State::waiting);
            node->addDataObserver(shared_from_this(), *valueKey);
            break;
    }
}

void PreviewTableCellView::setText(const QString& text, State newState) {
    nameLabel.text = text;
    state = newState;
}

void PreviewTableCellView::update(metadata::MetadataSource source) {
    // First, since the values may have been cleared meanwhile: then the cell waits once more.
    if (node != nullptr) node->remove(*this, source);
    configureLabel();
    needsDisplay();
}

void PreviewTableCellView::viewMoved() {
    if (state != State::waiting || node == nullptr || !valueKey) return;
    const auto source = metadata::TagManager::shared().source(*valueKey);
    if (source) metadata::DataCoordinator::shared().retrieveDataAsynchronously(node, *source);
}

void PreviewTableCellView::setLabelColors(bool highlighted) {
    switch (state) {
        case State::waiting:
            nameLabel.textRole =
                highlighted ? ColorRole::selectionSecondaryText : ColorRole::waitingText;
            break;
        case State::present:
            nameLabel.textRole = highlighted ? ColorRole::selectionText : ColorRole::text;
            break;
        case State::empty:
            nameLabel.textRole =
                highlighted ? ColorRole::selectionSecondaryText : ColorRole::secondaryText;
            break;
    }
}

}  // namespace marquell::window
