// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "pipeline/DataModelSnapshot.h"
#include "pipeline/FlatFileList.h"
#include "pipeline/OutputEngineOperationType.h"
#include "pipeline/StageOwner.h"
#include "platform/TextBuffer.h"

namespace marquell::formats {

/// The last stage: from a sorted list to one text in UTF-8.
class OutputFormatOperationType : public pipeline::OutputEngineOperationType {
public:
    /// The result; complete and unchanging once the owner is told.
    virtual std::shared_ptr<const platform::TextBuffer> outputString() const = 0;

    virtual const pipeline::DataModelSnapshot& dataModelSnapshot() const = 0;
};

/// A format: an object without state, safe to use from any thread.
class OutputFormatType {
public:
    virtual ~OutputFormatType() = default;

    /// Makes the operation, which the caller starts.
    virtual std::shared_ptr<OutputFormatOperationType> getOutputOperation(
        std::shared_ptr<const pipeline::DataModelSnapshot> dataModelSnapshot,
        pipeline::StageOwner& owner,
        std::shared_ptr<const pipeline::FlatFileList> flatFileList) const = 0;

    /// What a preview shows for a finished text of this format.
    virtual std::shared_ptr<const platform::TextBuffer> displayStringFor(
        std::shared_ptr<const platform::TextBuffer> textOutput) const {
        return textOutput;
    }

    /// The encoding that the text is written to a file with.
    virtual pipeline::TextEncoding fileEncoding(
        const pipeline::DataModelSnapshot& snapshot) const = 0;
};

/// The format of the index; null for one that has none yet.
const OutputFormatType* outputFormat(pipeline::OutputFormatIndexEnum index);

}  // namespace marquell::formats
