// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/streams/PdfXmp.h"

#include <algorithm>
#include <array>
#include <pugixml.hpp>
#include <utility>
#include <vector>

#include "helpers/common/DecodedText.h"
#include "helpers/common/IndexProperties.h"
#include "helpers/common/TagDate.h"

namespace marquell::helpers {
namespace {

using platform::IndexAttribute;
using Texts = std::vector<std::string>;

constexpr std::size_t maximumLength = std::size_t{1} << 20;

enum class Form { text, list, date };

struct Field {
    std::string_view name;  ///< with the prefix that all writers use
    IndexAttribute attribute;
    Form form = Form::text;
};

constexpr std::array fields = {
    Field{"dc:title", IndexAttribute::kMDItemTitle},
    Field{"dc:description", IndexAttribute::kMDItemDescription},
    Field{"dc:rights", IndexAttribute::kMDItemCopyright},
    Field{"dc:creator", IndexAttribute::kMDItemAuthors, Form::list},
    Field{"dc:contributor", IndexAttribute::kMDItemEditors, Form::list},
    Field{"dc:subject", IndexAttribute::kMDItemKeywords, Form::list},
    Field{"xmp:CreateDate", IndexAttribute::kMDItemContentCreationDate, Form::date},
    Field{"xmp:ModifyDate", IndexAttribute::kMDItemContentModificationDate, Form::date},
};

bool isNamed(const pugi::xml_node& node, std::string_view name) { return node.name() == name; }

std::string textOf(const char* value) { return decodedText(value, Charset::likely); }

/// The members of a property, of which one in several languages has that of the default first; of
/// a plain one its text.
Texts textsOf(const pugi::xml_node& property) {
    Texts texts;
    for (const pugi::xml_node& array : property.children()) {
        if (array.type() != pugi::node_element) continue;
        for (const pugi::xml_node& item : array.children("rdf:li")) {
            if (texts.size() >= platform::maximumListLength) break;
            const bool isDefault =
                std::string_view(item.attribute("xml:lang").value()) == "x-default";
            texts.insert(isDefault ? texts.begin() : texts.end(), textOf(item.child_value()));
        }
    }
    if (texts.empty()) texts.push_back(textOf(property.child_value()));
    return texts;
}

void add(platform::PropertyDictionary& index, const Field& field, Texts texts) {
    switch (field.form) {
        case Form::text:
            addText(index, field.attribute, std::move(texts.front()));
            break;
        case Form::list:
            addTexts(index, field.attribute, std::move(texts));
            break;
        case Form::date:
            addText(index, field.attribute, isoDate(texts.front()));
            break;
    }
}

const Field* fieldNamed(std::string_view name) {
    const auto* const found = std::find_if(fields.begin(), fields.end(),
                                           [name](const Field& row) { return row.name == name; });
    return found != fields.end() ? found : nullptr;
}

/// Simple properties may be attributes of the description instead of children.
void addDescription(platform::PropertyDictionary& index, const pugi::xml_node& description) {
    for (const pugi::xml_attribute& property : description.attributes()) {
        const Field* const field = fieldNamed(property.name());
        if (field != nullptr) add(index, *field, {textOf(property.value())});
    }
    for (const pugi::xml_node& property : description.children()) {
        const Field* const field = fieldNamed(property.name());
        if (field != nullptr) add(index, *field, textsOf(property));
    }
}

}  // namespace

void addPdfXmp(platform::PropertyDictionary& index, std::string_view packet) {
    if (packet.size() > maximumLength) return;
    pugi::xml_document document;
    // What precedes a fault stands, so the result does not matter.
    document.load_buffer(packet.data(), packet.size());
    pugi::xml_node root = document.child("rdf:RDF");
    for (const pugi::xml_node& meta : document.children()) {
        if (!root) root = meta.child("rdf:RDF");
    }
    for (const pugi::xml_node& description : root.children()) {
        if (isNamed(description, "rdf:Description")) addDescription(index, description);
    }
}

}  // namespace marquell::helpers
