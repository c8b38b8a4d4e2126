// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/documents/EpubMetadata.h"

#include <array>
#include <map>
#include <string_view>

#include "helpers/documents/XmlElements.h"

namespace marquell::helpers {
namespace {

using Attribute = platform::IndexAttribute;

constexpr std::array plainFields = {
    DocumentField{"title", Attribute::kMDItemTitle, FieldForm::line},
    DocumentField{"description", Attribute::kMDItemDescription, FieldForm::markup},
    DocumentField{"rights", Attribute::kMDItemCopyright, FieldForm::line},
    DocumentField{"subject", Attribute::kMDItemKeywords, FieldForm::member},
};

/// What people did, by the identifiers of the elements that name them, as EPUB 3 has it.
using Roles = std::map<std::string_view, std::string_view>;

Roles rolesOf(pugi::xml_node metadata) {
    Roles roles;
    forEachElement(metadata, [&roles](pugi::xml_node element) {
        const std::string_view refined = attributeOf(element, "refines");
        if (refined.starts_with('#') && attributeOf(element, "property") == "role") {
            roles.emplace(refined.substr(1), element.child_value());
        }
        return false;
    });
    return roles;
}

void addPerson(DocumentFields& fields, pugi::xml_node element, const Roles& roles) {
    std::string_view role = attributeOf(element, "role");
    const auto refined = roles.find(attributeOf(element, "id"));
    if (refined != roles.end()) role = refined->second;
    if (role == "edt") {
        fields.add(Attribute::kMDItemEditors, FieldForm::member, textOf(element));
    } else if (localName(element.name()) == "creator") {
        fields.add(Attribute::kMDItemAuthors, FieldForm::member, textOf(element));
    }
}

void addDate(DocumentFields& fields, pugi::xml_node element) {
    const bool isModification = attributeOf(element, "event") == "modification";
    fields.add(isModification ? Attribute::kMDItemContentModificationDate
                              : Attribute::kMDItemContentCreationDate,
               FieldForm::date, textOf(element));
}

}  // namespace

void addEpubMetadata(DocumentFields& fields, pugi::xml_node package) {
    const pugi::xml_node metadata = findElement(package, "metadata");
    const Roles roles = rolesOf(metadata);
    forEachElement(metadata, [&](pugi::xml_node element) {
        const std::string_view name = localName(element.name());
        if (name == "creator" || name == "contributor") {
            addPerson(fields, element, roles);
        } else if (name == "date") {
            addDate(fields, element);
        } else if (attributeOf(element, "property") == "dcterms:modified") {
            fields.add(Attribute::kMDItemContentModificationDate, FieldForm::date, textOf(element));
        } else {
            return addField(fields, plainFields, element);
        }
        return true;
    });
}

}  // namespace marquell::helpers
