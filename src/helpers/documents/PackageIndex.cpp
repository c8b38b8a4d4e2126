// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "helpers/documents/DocumentFields.h"
#include "helpers/documents/DocumentReaders.h"
#include "helpers/documents/EpubMetadata.h"
#include "helpers/documents/XmlElements.h"
#include "helpers/documents/ZipArchive.h"

namespace marquell::helpers {
namespace {

using Attribute = platform::IndexAttribute;

/// How much is looked at of a member: parsed it takes up to 32 times that.
constexpr std::size_t maximumMember = std::size_t{1024} * 1024;

constexpr std::string_view epubContainer = "META-INF/container.xml";
constexpr std::string_view openDocumentMetadata = "meta.xml";
constexpr std::string_view officeTypes = "[Content_Types].xml";
constexpr std::string_view officeRelations = "_rels/.rels";

constexpr std::array officeFields = {
    DocumentField{"title", Attribute::kMDItemTitle, FieldForm::line},
    DocumentField{"subject", Attribute::kMDItemHeadline, FieldForm::line},
    DocumentField{"description", Attribute::kMDItemDescription, FieldForm::officeParagraphs},
    DocumentField{"creator", Attribute::kMDItemAuthors, FieldForm::people},
    DocumentField{"lastModifiedBy", Attribute::kMDItemEditors, FieldForm::people},
    DocumentField{"keywords", Attribute::kMDItemKeywords, FieldForm::words},
    DocumentField{"version", Attribute::kMDItemVersion, FieldForm::line},
    DocumentField{"created", Attribute::kMDItemContentCreationDate, FieldForm::date},
    DocumentField{"modified", Attribute::kMDItemContentModificationDate, FieldForm::date},
};

constexpr std::array openDocumentFields = {
    DocumentField{"title", Attribute::kMDItemTitle, FieldForm::line},
    DocumentField{"subject", Attribute::kMDItemHeadline, FieldForm::line},
    DocumentField{"description", Attribute::kMDItemDescription, FieldForm::paragraphs},
    DocumentField{"initial-creator", Attribute::kMDItemAuthors, FieldForm::member},
    DocumentField{"creator", Attribute::kMDItemEditors, FieldForm::member},
    DocumentField{"keyword", Attribute::kMDItemKeywords, FieldForm::member},
    DocumentField{"rights", Attribute::kMDItemCopyright, FieldForm::line},
    DocumentField{"creation-date", Attribute::kMDItemContentCreationDate, FieldForm::date},
    DocumentField{"date", Attribute::kMDItemContentModificationDate, FieldForm::date},
};

bool isOpenDocument(const ZipArchive& archive) {
    constexpr std::string_view type = "application/vnd.oasis.opendocument";
    return archive.contains(openDocumentMetadata) ||
           archive.member("mimetype", type.size()) == type;
}

/// The part that has the properties, as the relations of the package tell.
std::string officeProperties(const ZipArchive& archive) {
    pugi::xml_document relations;
    parseXml(relations, archive.member(officeRelations, maximumMember));
    std::string target = "docProps/core.xml";
    forEachElement(relations.root(), [&target](pugi::xml_node element) {
        // What precedes it differs between the editions of the standard.
        if (attributeOf(element, "Type").ends_with("/metadata/core-properties")) {
            target = attributeOf(element, "Target");
        }
        return false;
    });
    return target.substr(target.starts_with('/') ? 1 : 0);
}

std::string epubPackage(const ZipArchive& archive) {
    pugi::xml_document container;
    parseXml(container, archive.member(epubContainer, maximumMember));
    return std::string(attributeOf(findElement(container.root(), "rootfile"), "full-path"));
}

void addFields(DocumentFields& fields, std::span<const DocumentField> known, pugi::xml_node root) {
    forEachElement(root, [&](pugi::xml_node element) { return addField(fields, known, element); });
}

}  // namespace

std::optional<platform::PropertyDictionary> packageIndex(Input& input) {
    const ZipArchive archive(input);
    DocumentFields fields;
    pugi::xml_document document;
    const auto parseMember = [&](std::string_view name) {
        parseXml(document, archive.member(name, maximumMember));
    };
    if (archive.contains(epubContainer)) {
        parseMember(epubPackage(archive));
        addEpubMetadata(fields, document.root());
    } else if (isOpenDocument(archive)) {
        parseMember(openDocumentMetadata);
        addFields(fields, openDocumentFields, findElement(document.root(), "meta"));
        fields.takeEditorsForAuthors();
    } else if (archive.contains(officeTypes) || archive.contains(officeRelations)) {
        parseMember(officeProperties(archive));
        addFields(fields, officeFields, findElement(document.root(), "coreProperties"));
    } else {
        return std::nullopt;
    }
    return fields.properties();
}

}  // namespace marquell::helpers
