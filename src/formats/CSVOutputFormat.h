// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formats/FormatKinds.h"

namespace marquell::formats {

/// Comma-separated values: records with "," between the fields, laid out by the settings.
class CSVOutputFormat final : public FileFormat {
public:
    std::vector<std::string> allowedFileTypes() const override { return {"csv", "text"}; }
    std::shared_ptr<OutputFormatOperationType> getOutputOperation(
        SharedSnapshot dataModelSnapshot, pipeline::StageOwner& owner,
        SharedList flatFileList) const override;
};

}  // namespace marquell::formats
