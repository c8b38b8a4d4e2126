// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formats/FormatKinds.h"

namespace marquell::formats {

/// An array with one object for each node, and in it one member for each column in their order.
/// With I for a level of indentation, every line but the last ends in a line break:
///
///     [
///     I{
///     IIkey:value,        without the comma behind the last column
///     I},                 without the comma behind the last node
///     ]
///
/// The key is the column id. Texts and dates stand in quotes; numbers, `true`, `false` and `null`
/// don't, whatever the settings say of such values.
class JSONOutputFormat final : public FileFormat {
public:
    std::vector<std::string> allowedFileTypes() const override { return {"json", "text"}; }
    std::shared_ptr<OutputFormatOperationType> getOutputOperation(
        SharedSnapshot dataModelSnapshot, pipeline::StageOwner& owner,
        SharedList flatFileList) const override;
};

}  // namespace marquell::formats
