// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/CopyToHTMLEditorOutputFormat.h"

#include <utility>

#include "formats/HTMLOutputOperation.h"

namespace marquell::formats {
namespace {

class CopyToHTMLEditorOutputOperation final : public HTMLOutputOperation {
public:
    using HTMLOutputOperation::HTMLOutputOperation;

private:
    int disIndentBy() const override { return 2; }
    void htmlHeader(platform::TextBuffer&) const override {}
    void htmlFooter(platform::TextBuffer&) const override {}
};

}  // namespace

std::shared_ptr<OutputFormatOperationType> CopyToHTMLEditorOutputFormat::getOutputOperation(
    SharedSnapshot dataModelSnapshot, pipeline::StageOwner& owner, SharedList flatFileList) const {
    return std::make_shared<CopyToHTMLEditorOutputOperation>(std::move(dataModelSnapshot), owner,
                                                             std::move(flatFileList));
}

std::vector<platform::PasteboardType> CopyToHTMLEditorOutputFormat::filledTypes() const {
    return {platform::PasteboardType::string};
}

}  // namespace marquell::formats
