// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "helpers/documents/CharacterReferences.h"
#include "helpers/documents/CharsetName.h"
#include "helpers/documents/DocumentFields.h"
#include "helpers/documents/DocumentReaders.h"
#include "helpers/documents/DocumentText.h"
#include "helpers/documents/HtmlTags.h"

namespace marquell::helpers {
namespace {

using Attribute = platform::IndexAttribute;

/// How much of a page is looked at.
constexpr std::size_t maximumPage = std::size_t{256} * 1024;

/// The text of the element of that name.
constexpr std::string_view titleElement = "title";

/// By the name or property of a `meta` element. Of those that mean the same the first one here
/// counts, wherever they stand; but all of a list do that have its first name.
constexpr std::array knownFields = {
    DocumentField{titleElement, Attribute::kMDItemTitle, FieldForm::line},
    DocumentField{"dcterms.title", Attribute::kMDItemTitle, FieldForm::line},
    DocumentField{"dc.title", Attribute::kMDItemTitle, FieldForm::line},
    DocumentField{"og:title", Attribute::kMDItemTitle, FieldForm::line},
    DocumentField{"description", Attribute::kMDItemDescription, FieldForm::line},
    DocumentField{"dcterms.description", Attribute::kMDItemDescription, FieldForm::line},
    DocumentField{"dc.description", Attribute::kMDItemDescription, FieldForm::line},
    DocumentField{"og:description", Attribute::kMDItemDescription, FieldForm::line},
    DocumentField{"author", Attribute::kMDItemAuthors, FieldForm::people},
    DocumentField{"dcterms.creator", Attribute::kMDItemAuthors, FieldForm::people},
    DocumentField{"dc.creator", Attribute::kMDItemAuthors, FieldForm::people},
    DocumentField{"article:author", Attribute::kMDItemAuthors, FieldForm::people},
    DocumentField{"keywords", Attribute::kMDItemKeywords, FieldForm::words},
    DocumentField{"dcterms.subject", Attribute::kMDItemKeywords, FieldForm::words},
    DocumentField{"dc.subject", Attribute::kMDItemKeywords, FieldForm::words},
    DocumentField{"copyright", Attribute::kMDItemCopyright, FieldForm::line},
    DocumentField{"dcterms.rights", Attribute::kMDItemCopyright, FieldForm::line},
    DocumentField{"dc.rights", Attribute::kMDItemCopyright, FieldForm::line},
    DocumentField{"dcterms.created", Attribute::kMDItemContentCreationDate, FieldForm::date},
    DocumentField{"dc.date.created", Attribute::kMDItemContentCreationDate, FieldForm::date},
    DocumentField{"created", Attribute::kMDItemContentCreationDate, FieldForm::date},
    DocumentField{"article:published_time", Attribute::kMDItemContentCreationDate, FieldForm::date},
    DocumentField{"dcterms.issued", Attribute::kMDItemContentCreationDate, FieldForm::date},
    DocumentField{"dcterms.date", Attribute::kMDItemContentCreationDate, FieldForm::date},
    DocumentField{"dc.date", Attribute::kMDItemContentCreationDate, FieldForm::date},
    DocumentField{"date", Attribute::kMDItemContentCreationDate, FieldForm::date},
    DocumentField{"dcterms.modified", Attribute::kMDItemContentModificationDate, FieldForm::date},
    DocumentField{"dc.date.modified", Attribute::kMDItemContentModificationDate, FieldForm::date},
    DocumentField{"article:modified_time", Attribute::kMDItemContentModificationDate,
                  FieldForm::date},
    DocumentField{"changed", Attribute::kMDItemContentModificationDate, FieldForm::date},
};

/// What a page says in its head, as it stands there.
struct PageHead {
    Charset charset = Charset::likely;
    std::array<std::vector<std::string_view>, knownFields.size()> found;
};

void take(PageHead& head, std::string_view name, std::string_view text) {
    for (std::size_t i = 0; i < knownFields.size(); ++i) {
        if (isSameName(knownFields.at(i).name, name)) head.found.at(i).push_back(text);
    }
}

/// The name behind "charset=" in the content type that an http-equiv has.
std::string_view charsetOfType(std::string_view type) {
    constexpr std::string_view key = "charset=";
    for (std::size_t i = 0; i + key.size() < type.size(); ++i) {
        if (!isSameName(type.substr(i, key.size()), key)) continue;
        const std::string_view name = type.substr(i + key.size());
        return name.substr(0, name.find_first_of("; \t\"'"));
    }
    return {};
}

void takeMeta(PageHead& head, const HtmlTag& tag) {
    const std::string_view content = tag.attribute("content");
    std::string_view name = tag.attribute("name");
    if (name.empty()) name = tag.attribute("property");
    if (!isSameName(name, titleElement)) take(head, name, content);
    std::string_view charset = tag.attribute("charset");
    const bool isType = isSameName(tag.attribute("http-equiv"), "content-type");
    if (charset.empty() && isType) charset = charsetOfType(content);
    if (charset.empty() || head.charset != Charset::likely) return;
    head.charset = charsetNamed(charset);
}

PageHead readHead(std::string_view page) {
    PageHead head;
    HtmlTags tags(page);
    for (HtmlTag tag; tags.next(tag);) {
        if (isSameName(tag.name, "meta")) {
            takeMeta(head, tag);
        } else if (isSameName(tag.name, titleElement)) {
            take(head, titleElement, tags.textUntilEndOf(titleElement).value_or(""));
        } else if (isSameName(tag.name, "body") || isSameName(tag.name, "svg")) {
            break;  // a drawing has titles of its own
        }
    }
    return head;
}

bool looksLikePage(std::string_view page) {
    constexpr std::array<std::string_view, 6> beginnings = {"<!doctype html", "<html", "<head",
                                                            "<title",         "<meta", "<body"};
    const std::string start = lowerCase(page.substr(0, 1024));
    return std::ranges::any_of(beginnings, [&start](std::string_view beginning) {
        return start.find(beginning) != std::string::npos;
    });
}

/// The beginning of the page without its mark of the encoding; one that has such a mark as UTF-8.
std::string beginningOf(Input& input, bool& isMarked) {
    std::string page = input.bytesAt(0, maximumPage);
    isMarked = true;
    if (page.starts_with("\xEF\xBB\xBF")) return page.substr(3);
    if (page.starts_with("\xFE\xFF")) return decodedText(page, Charset::utf16BigEndian);
    if (page.starts_with("\xFF\xFE")) return decodedText(page, Charset::utf16LittleEndian);
    isMarked = false;
    return page;
}

bool isAddress(std::string_view text) { return text.find("://") != std::string_view::npos; }

}  // namespace

std::optional<platform::PropertyDictionary> webPageIndex(Input& input) {
    bool isMarked = false;
    const std::string page = beginningOf(input, isMarked);
    if (!looksLikePage(page)) return std::nullopt;
    const PageHead head = readHead(page);
    // What was read as bytes of one kind can't declare to be of two.
    const bool isWide =
        head.charset == Charset::utf16BigEndian || head.charset == Charset::utf16LittleEndian;
    const Charset charset = isMarked || isWide ? Charset::likely : head.charset;
    DocumentFields fields;
    for (std::size_t i = 0; i < knownFields.size(); ++i) {
        const DocumentField& field = knownFields.at(i);
        if (fields.has(field.attribute)) continue;
        for (const std::string_view text : head.found.at(i)) {
            const std::string clean = withoutReferences(decodedText(text, charset));
            if (!isAddress(clean) || field.form != FieldForm::people) {
                fields.add(field.attribute, field.form, clean);
            }
        }
    }
    return fields.properties();
}

}  // namespace marquell::helpers
