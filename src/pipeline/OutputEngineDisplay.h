// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "pipeline/FlatFileList.h"
#include "platform/TextBuffer.h"

namespace marquell::pipeline {

/// What shows the work of an OutputEngine to the user. All calls come on the main thread.
class OutputEngineDisplay {
public:
    virtual ~OutputEngineDisplay() = default;

    /// A text is to come: shows `text` in its place and allows no saving.
    virtual void showWaitingText(const std::string& text) = 0;

    /// Shows a finished text; `maySave` if no other is to come.
    virtual void showText(std::shared_ptr<const platform::TextBuffer> text, bool maySave) = 0;

    /// No other text than the one shown is to come.
    virtual void allowSaving() = 0;

    /// Asks the user where to save the text, with the current format's extensions to choose from
    /// and any other allowed. Absent if they don't want to. May run the main queue meanwhile.
    virtual std::optional<std::string> showSaveDialog() = 0;

    /// The list or its columns have changed. Null while there is no list.
    virtual void updateTable(std::shared_ptr<const FlatFileList> flatFileList) = 0;
};

}  // namespace marquell::pipeline
