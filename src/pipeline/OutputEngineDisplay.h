// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "pipeline/FlatFileList.h"
#include "platform/LinedText.h"
#include "platform/TextEncoding.h"

namespace marquell::pipeline {

/// A character that the encoding of a file can't hold, and where the list has it.
struct LackingCharacter {
    char32_t character;
    platform::TextEncoding encoding;
    std::optional<std::size_t> row;  ///< counted from 0; absent in the titles
    std::string columnTitle;         ///< empty outside of titles and cells
};

/// What is about to be saved.
struct SaveOffer {
    std::vector<std::string> fileTypes;  ///< extensions, the usual one first
    /// The first character of the text that the file's encoding lacks. May take as long as making
    /// the text did; the dialog's end cuts it short, its place in the list is unknown then. To be
    /// called once, on any thread, also when the engine has gone.
    std::function<std::optional<LackingCharacter>()> findLackingCharacter;
};

/// What shows the work of an OutputEngine to the user. All calls come on the main thread.
class OutputEngineDisplay {
public:
    virtual ~OutputEngineDisplay() = default;

    /// A text is to come: shows `text` in its place and allows no saving.
    virtual void showWaitingText(const std::string& text) = 0;

    /// Shows a finished text; `maySave` if no other is to come and none is being saved.
    virtual void showText(std::shared_ptr<const platform::LinedText> text, bool maySave) = 0;

    /// Whether the text that is shown may be saved has changed.
    virtual void setMaySave(bool maySave) = 0;

    /// Asks the user where to save the text. Absent if they don't want to. May run the main queue
    /// meanwhile.
    virtual std::optional<std::string> showSaveDialog(const SaveOffer& offer) = 0;

    /// The list or its columns have changed. Null while there is no list.
    virtual void updateTable(std::shared_ptr<const FlatFileList> flatFileList) = 0;
};

}  // namespace marquell::pipeline
