// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/CopyToExcelFormat.h"

#include <utility>

#include "formats/DelimitedOutputOperation.h"
#include "platform/Localization.h"

namespace marquell::formats {
namespace {

class CopyToExcelOutputOperation final : public DelimitedOutputOperation {
public:
    CopyToExcelOutputOperation(const SharedSnapshot& snapshot, pipeline::StageOwner& owner,
                               SharedList list)
        : DelimitedOutputOperation(snapshot, owner, std::move(list),
                                   {.fieldSeparator = '\t',
                                    .quotesFields = true,
                                    .escapes = doubledQuotes,
                                    .recordTerminator = "\n"}) {}
};

}  // namespace

std::shared_ptr<OutputFormatOperationType> CopyToExcelFormat::getOutputOperation(
    SharedSnapshot dataModelSnapshot, pipeline::StageOwner& owner, SharedList flatFileList) const {
    return std::make_shared<CopyToExcelOutputOperation>(std::move(dataModelSnapshot), owner,
                                                        std::move(flatFileList));
}

SharedText CopyToExcelFormat::displayStringFor(SharedText) const {
    const auto shown = std::make_shared<platform::TextBuffer>();
    shown->append(platform::localized("Ready.", "text preview"));
    return shown;
}

std::vector<platform::PasteboardType> CopyToExcelFormat::filledTypes() const {
    return {platform::PasteboardType::tabularText, platform::PasteboardType::string};
}

}  // namespace marquell::formats
