// SPDX-License-Identifier: GPL-3.0-or-later
#include <poppler-document.h>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "helpers/common/IndexProperties.h"
#include "helpers/common/TagDate.h"
#include "helpers/common/TextList.h"
#include "helpers/streams/PdfBytes.h"
#include "helpers/streams/PdfText.h"
#include "helpers/streams/PdfXmp.h"
#include "helpers/streams/StreamReaders.h"

namespace marquell::helpers {
namespace {

using platform::IndexAttribute;
using platform::PropertyDictionary;

enum class Form { text, authors, keywords, date };

/// An entry of the information dictionary.
struct Field {
    const char* name = nullptr;
    IndexAttribute attribute{};
    Form form = Form::text;
};

constexpr std::array fields = {
    Field{"Title", IndexAttribute::kMDItemTitle},
    Field{"Author", IndexAttribute::kMDItemAuthors, Form::authors},
    Field{"Subject", IndexAttribute::kMDItemDescription},
    Field{"Keywords", IndexAttribute::kMDItemKeywords, Form::keywords},
    Field{"CreationDate", IndexAttribute::kMDItemContentCreationDate, Form::date},
    Field{"ModDate", IndexAttribute::kMDItemContentModificationDate, Form::date},
};

/// "D:20240229123015+01'00'", which may end anywhere, in ISO 8601.
std::string dateOf(std::string text) {
    if (text.starts_with("D:")) text.erase(0, 2);
    std::erase(text, '\'');
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    if (digits == 10 || digits == 12) text.insert(digits, 14 - digits, '0');
    return isoDate(text);
}

void addInformation(PropertyDictionary& index, const poppler::document& document) {
    for (const Field& field : fields) {
        const std::string text = pdfText(document.info_key(field.name));
        switch (field.form) {
            case Form::text:
                addText(index, field.attribute, text);
                break;
            case Form::authors:  // a comma may stand between the names of one
                addTexts(index, field.attribute, listedTexts(text, ";"));
                break;
            case Form::keywords:
                addTexts(index, field.attribute, listedTexts(text, ",;"));
                break;
            case Form::date:
                addText(index, field.attribute, dateOf(text));
                break;
        }
    }
}

void addPacket(PropertyDictionary& index, const poppler::document& document) {
    try {
        addPdfXmp(index, pdfBytes(document.metadata()));
    } catch (const std::bad_alloc&) {  // NOLINT(bugprone-empty-catch)
        // It unpacks to more than this process may take. The rest stands.
    }
}

/// "1.7" from the header; empty if there is none in the first 1,024 bytes, where readers look.
std::string versionOf(std::string_view bytes) {
    constexpr std::string_view mark = "%PDF-";
    const std::string_view start = bytes.substr(0, 1024);
    const std::size_t begin = start.find(mark);
    if (begin == std::string_view::npos) return {};
    const std::string_view rest = start.substr(begin + mark.size());
    const std::size_t length = std::min(rest.find_first_not_of("0123456789."), rest.size());
    return std::string(rest.substr(0, length));
}

std::unique_ptr<const poppler::document> load(std::string_view bytes) {
    if (bytes.size() > std::numeric_limits<int>::max()) return nullptr;
    // Not copied.
    return std::unique_ptr<const poppler::document>(
        poppler::document::load_from_raw_data(bytes.data(), static_cast<int>(bytes.size())));
}

}  // namespace

std::optional<PropertyDictionary> pdfIndex(Input& input) {
    std::string version = versionOf(input.bytesAt(0, 1024));
    if (version.empty()) return std::nullopt;
    PropertyDictionary index;
    const PdfBytes bytes(input);
    const auto document = load(bytes.view());
    if (document != nullptr) {
        // A later version than that of the header may be in the catalogue.
        int major = 0;
        int minor = 0;
        document->get_pdf_version(&major, &minor);
        if (!document->is_locked()) {
            addInformation(index, *document);
            addPacket(index, *document);
        }
        if (bytes.isBlank()) {
            index.clear();
        } else if (major > 0) {
            version = std::to_string(major) + "." + std::to_string(minor);
        }
    }
    addText(index, IndexAttribute::kMDItemVersion, std::move(version));
    return index;
}

}  // namespace marquell::helpers
