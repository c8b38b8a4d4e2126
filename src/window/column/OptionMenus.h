// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "pipeline/DataModel.h"

namespace marquell::window {

/// A menu of which the index of the choice is a setting. Texts are English; a title that is null is
/// a separator, which counts as an index.
struct OptionMenu {
    const char* label;
    std::vector<const char*> titles;
};

/// A setting of the model, as a part of it.
template <typename T>
using Setting = const std::shared_ptr<variables::UserDefaultsVariable<T>> pipeline::DataModel::*;

/// A row of a panel: a menu and the setting that it is for.
struct OptionRow {
    const OptionMenu& menu;
    Setting<int> setting;
};

/// A box below the menus.
struct OptionBox {
    const char* title;
    Setting<bool> setting;
};

/// What a format lets the user choose, from top to bottom.
struct OptionPanel {
    std::vector<OptionRow> rows;
    std::vector<OptionBox> boxes;
};

const OptionPanel& csvOptions();  // also those of TSV
const OptionPanel& jsonOptions();
const OptionPanel& htmlOptions();  // in a file and on the clipboard
const OptionPanel& spreadsheetOptions();

/// What the menu of encodings calls one of them, in English.
const char* titleOf(platform::TextEncoding wanted);

}  // namespace marquell::window
