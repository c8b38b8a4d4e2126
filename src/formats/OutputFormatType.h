// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "pipeline/DataModelSnapshot.h"
#include "pipeline/FlatFileList.h"
#include "pipeline/OutputDelivery.h"
#include "pipeline/OutputEngineOperationType.h"
#include "pipeline/StageOwner.h"
#include "platform/TextBuffer.h"

namespace marquell::formats {

using SharedSnapshot = std::shared_ptr<const pipeline::DataModelSnapshot>;
using SharedList = std::shared_ptr<const pipeline::FlatFileList>;
using SharedText = std::shared_ptr<const platform::TextBuffer>;

/// What a place in the text of a list was made from.
struct TextPlace {
    std::optional<std::size_t> row;        ///< index in the list; absent outside of the nodes' rows
    const pipeline::Node* node = nullptr;  ///< that of the row, owned by the list
    std::string columnId;                  ///< empty outside of titles and cells
};

/// The last stage: from a sorted list to one text in UTF-8.
class OutputFormatOperationType : public pipeline::OutputEngineOperationType {
public:
    /// The result; complete and unchanging once the owner is told.
    virtual SharedText outputString() const = 0;

    virtual const pipeline::DataModelSnapshot& dataModelSnapshot() const = 0;

    /// Where the byte at `offset` of the result comes from. Takes as long as making the text; to be
    /// asked only after the end of the stage.
    virtual TextPlace placeOf(std::size_t offset) = 0;
};

/// A format: an object without state, safe to use from any thread.
class OutputFormatType {
public:
    virtual ~OutputFormatType() = default;

    /// Makes the operation, which the caller starts.
    virtual std::shared_ptr<OutputFormatOperationType> getOutputOperation(
        SharedSnapshot dataModelSnapshot, pipeline::StageOwner& owner,
        SharedList flatFileList) const = 0;

    /// The extensions to offer for a file of the format, the usual one first; none if it is not
    /// for files.
    virtual std::vector<std::string> allowedFileTypes() const = 0;

    /// What to call the button that commits a text, in the user's language.
    virtual std::string actionButtonTitle() const = 0;

    /// The encoding that the text is written to a file with.
    virtual platform::TextEncoding fileEncoding(
        const pipeline::DataModelSnapshot& dataModelSnapshot) const = 0;

    /// What the commit button does with the finished text. Main thread only.
    virtual void performCommitAction(pipeline::OutputDelivery& delivery) const = 0;

    /// What a preview shows for a finished text of this format.
    virtual SharedText displayStringFor(SharedText textOutput) const { return textOutput; }
};

/// The format of each index; that of CSV for a number that is no index.
const OutputFormatType& outputFormat(pipeline::OutputFormatIndexEnum index);

}  // namespace marquell::formats
