// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "platform/Pasteboard.h"
#include "platform/TextBuffer.h"

namespace marquell::pipeline {

/// Where a format delivers the finished text to when the user commits it. Main thread only.
class OutputDelivery {
public:
    virtual ~OutputDelivery() = default;

    /// Null while there is no text.
    virtual std::shared_ptr<const platform::TextBuffer> currentOutputString() const = 0;

    /// Writes the text to a file that the user chooses, if they choose one. This object may have
    /// gone when it returns: the user may close the window meanwhile.
    virtual void askForDestinantionAndWriteToFile() = 0;

    virtual platform::Pasteboard& pasteboard() = 0;
};

}  // namespace marquell::pipeline
