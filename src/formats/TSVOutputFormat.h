// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formats/FormatKinds.h"

namespace marquell::formats {

/// Tab-separated values: records with a tab between the fields, laid out by the settings.
class TSVOutputFormat final : public FileFormat {
public:
    std::vector<std::string> allowedFileTypes() const override { return {"tsv", "text"}; }
    std::shared_ptr<OutputFormatOperationType> getOutputOperation(
        SharedSnapshot dataModelSnapshot, pipeline::StageOwner& owner,
        SharedList flatFileList) const override;
};

}  // namespace marquell::formats
