// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <map>
#include <pugixml.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/IndexAttributes.h"
#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

/// What a text of a document becomes.
enum class FieldForm : std::uint8_t {
    line,
    paragraphs,        ///< keeps its lines
    officeParagraphs,  ///< the same, with "_x000d_" for a carriage return
    markup,            ///< keeps its lines unless it is marked up like a page
    date,              ///< nothing if it is none
    member,            ///< of a list
    people,            ///< members between ";"
    words,             ///< members between "," or ";", or on lines of their own
};

/// By its name in the document, what it is of a file.
struct DocumentField {
    std::string_view name;
    platform::IndexAttribute attribute;
    FieldForm form;
};

/// Gathers texts of a document. Of what is no list the first that is not empty counts.
class DocumentFields {
public:
    /// The text must be clean UTF-8.
    void add(platform::IndexAttribute attribute, FieldForm form, std::string_view text);

    /// Whether something was added to the attribute that is not empty.
    bool has(platform::IndexAttribute attribute) const;

    /// Where there are no authors, editors were the authors too.
    void takeEditorsForAuthors();

    platform::PropertyDictionary properties() const;

private:
    std::map<platform::IndexAttribute, std::string> texts_;
    std::map<platform::IndexAttribute, std::vector<std::string>> lists_;
};

/// Adds the text of an element whose name is among those known. False if it isn't.
bool addField(DocumentFields& fields, std::span<const DocumentField> known, pugi::xml_node element);

}  // namespace marquell::helpers
