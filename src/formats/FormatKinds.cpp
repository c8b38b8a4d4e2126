// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/FormatKinds.h"

#include "platform/Localization.h"

namespace marquell::formats {

using platform::PasteboardType;

std::string FileFormat::actionButtonTitle() const {
    return platform::localized("Save", "button title");
}

platform::TextEncoding FileFormat::fileEncoding(
    const pipeline::DataModelSnapshot& dataModelSnapshot) const {
    return dataModelSnapshot.currentFileEncoding();
}

void FileFormat::performCommitAction(pipeline::OutputDelivery& delivery) const {
    delivery.askForDestinantionAndWriteToFile();
}

std::string ClipboardFormat::actionButtonTitle() const {
    return platform::localized("Copy to Clipboard", "button title");
}

void ClipboardFormat::performCommitAction(pipeline::OutputDelivery& delivery) const {
    const SharedText text = delivery.currentOutputString();
    if (text == nullptr) return;
    platform::Pasteboard& pasteboard = delivery.pasteboard();
    pasteboard.clearContents();
    pasteboard.declareTypes({PasteboardType::tabularText, PasteboardType::string});
    for (const PasteboardType type : filledTypes()) pasteboard.setData(type, text);
}

}  // namespace marquell::formats
