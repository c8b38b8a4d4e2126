// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "formats/OutputFormatType.h"
#include "platform/Pasteboard.h"

namespace marquell::formats {

/// A format whose texts are saved in files, in the encoding that the settings choose.
class FileFormat : public OutputFormatType {
public:
    std::string actionButtonTitle() const override;
    platform::TextEncoding fileEncoding(
        const pipeline::DataModelSnapshot& dataModelSnapshot) const override;
    void performCommitAction(pipeline::OutputDelivery& delivery) const override;
};

/// A format whose texts are put on the clipboard. Written to a file they are UTF-8.
class ClipboardFormat : public OutputFormatType {
public:
    std::vector<std::string> allowedFileTypes() const override { return {}; }
    std::string actionButtonTitle() const override;
    platform::TextEncoding fileEncoding(const pipeline::DataModelSnapshot&) const override {
        return platform::TextEncoding::utf8;
    }
    /// Declares tabular text and plain text, and sets the types of filledTypes() to the text.
    void performCommitAction(pipeline::OutputDelivery& delivery) const override;

private:
    virtual std::vector<platform::PasteboardType> filledTypes() const = 0;
};

}  // namespace marquell::formats
