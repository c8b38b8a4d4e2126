// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formats/FormatKinds.h"

namespace marquell::formats {

/// Text for pasting into a spreadsheet: records with a tab between the fields, every field in
/// quotes, and nothing escaped but the quotes, so that a line break stays within its cell. Of the
/// layout settings only the one for titles counts.
class CopyToExcelFormat final : public ClipboardFormat {
public:
    std::shared_ptr<OutputFormatOperationType> getOutputOperation(
        SharedSnapshot dataModelSnapshot, pipeline::StageOwner& owner,
        SharedList flatFileList) const override;

    /// Only that the text is there: nobody reads it in this form.
    SharedText displayStringFor(SharedText textOutput) const override;

private:
    std::vector<platform::PasteboardType> filledTypes() const override;
};

}  // namespace marquell::formats
