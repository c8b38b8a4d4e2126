// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/LackingCharacterSearch.h"

#include <utility>

#include "metadata/TagManager.h"
#include "platform/EncodedText.h"

namespace marquell::pipeline {

std::function<std::optional<LackingCharacter>()> lackingCharacterSearch(
    formats::SharedText text, platform::TextEncoding encoding,
    std::shared_ptr<formats::OutputFormatOperationType> origin) {
    return [text = std::move(text), encoding,
            origin = std::move(origin)]() -> std::optional<LackingCharacter> {
        const auto found = platform::EncodedText(text->view(), encoding).unencodable();
        if (!found) return std::nullopt;
        LackingCharacter lacking{found->character, encoding, std::nullopt, ""};
        if (origin->isAbandoned()) return lacking;
        const formats::TextPlace place = origin->placeOf(found->offset);
        lacking.row = place.row;
        if (!place.columnId.empty()) {
            lacking.columnTitle = metadata::TagManager::shared().displayName(place.columnId);
        }
        return lacking;
    };
}

}  // namespace marquell::pipeline
