// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formats/FormatKinds.h"

namespace marquell::formats {

/// An HTML document with one table, always in UTF-8.
class HTMLOutputFormat final : public FileFormat {
public:
    std::vector<std::string> allowedFileTypes() const override { return {"html"}; }
    std::shared_ptr<OutputFormatOperationType> getOutputOperation(
        SharedSnapshot dataModelSnapshot, pipeline::StageOwner& owner,
        SharedList flatFileList) const override;
    platform::TextEncoding fileEncoding(const pipeline::DataModelSnapshot&) const override {
        return platform::TextEncoding::utf8;
    }
};

}  // namespace marquell::formats
