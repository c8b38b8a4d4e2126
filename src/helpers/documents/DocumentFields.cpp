// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/documents/DocumentFields.h"

#include <iterator>
#include <utility>

#include "helpers/common/IndexProperties.h"
#include "helpers/common/TagDate.h"
#include "helpers/common/TextList.h"
#include "helpers/documents/DocumentText.h"
#include "helpers/documents/MarkupText.h"
#include "helpers/documents/XmlElements.h"

namespace marquell::helpers {
namespace {

std::string withoutReturns(std::string_view text) {
    constexpr std::string_view escape = "_x000d_";
    std::string result;
    while (!text.empty()) {
        const bool isEscape = isSameName(text.substr(0, escape.size()), escape);
        if (!isEscape) result.push_back(text.front());
        text.remove_prefix(isEscape ? escape.size() : 1);
    }
    return result;
}

std::string textOfForm(FieldForm form, std::string_view text) {
    if (form == FieldForm::officeParagraphs) return withoutReturns(trimmed(text));
    if (form == FieldForm::paragraphs) return std::string(trimmed(text));
    if (form == FieldForm::markup) return textOfMarkup(text);
    if (form != FieldForm::date) return collapsed(text);
    // Years below 1000 are what programs write that know of no date.
    return trimmed(text).starts_with('0') ? std::string() : isoDate(text);
}

/// What separates the members of a list that one text has.
std::string_view separatorsOf(FieldForm form) {
    if (form == FieldForm::words) return ",;\r\n";
    return form == FieldForm::people ? ";" : "";
}

}  // namespace

void DocumentFields::add(platform::IndexAttribute attribute, FieldForm form,
                         std::string_view text) {
    if (form == FieldForm::member || form == FieldForm::people || form == FieldForm::words) {
        for (const std::string& member : listedTexts(text, separatorsOf(form))) {
            lists_[attribute].push_back(collapsed(member));
        }
        return;
    }
    auto& known = texts_[attribute];
    if (known.empty()) known = textOfForm(form, text);
}

bool DocumentFields::has(platform::IndexAttribute attribute) const {
    const auto text = texts_.find(attribute);
    const auto list = lists_.find(attribute);
    return (text != texts_.end() && !text->second.empty()) ||
           (list != lists_.end() && !list->second.empty());
}

void DocumentFields::takeEditorsForAuthors() {
    auto& authors = lists_[platform::IndexAttribute::kMDItemAuthors];
    if (authors.empty()) authors = lists_[platform::IndexAttribute::kMDItemEditors];
}

platform::PropertyDictionary DocumentFields::properties() const {
    platform::PropertyDictionary properties;
    for (const auto& [attribute, text] : texts_) addText(properties, attribute, text);
    for (const auto& [attribute, list] : lists_) addTexts(properties, attribute, list);
    return properties;
}

bool addField(DocumentFields& fields, std::span<const DocumentField> known,
              pugi::xml_node element) {
    const std::string_view name = localName(element.name());
    for (const DocumentField& field : known) {
        if (field.name != name) continue;
        fields.add(field.attribute, field.form, textOf(element));
        return true;
    }
    return false;
}

}  // namespace marquell::helpers
