// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formats/FormatKinds.h"

namespace marquell::formats {

/// The source of an HTML table without a document around it, for pasting into an HTML editor: plain
/// text to the clipboard.
class CopyToHTMLEditorOutputFormat final : public ClipboardFormat {
public:
    std::shared_ptr<OutputFormatOperationType> getOutputOperation(
        SharedSnapshot dataModelSnapshot, pipeline::StageOwner& owner,
        SharedList flatFileList) const override;

private:
    std::vector<platform::PasteboardType> filledTypes() const override;
};

}  // namespace marquell::formats
