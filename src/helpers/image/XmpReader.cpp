// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/XmpReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "helpers/image/XmpCamera.h"
#include "helpers/image/XmpValues.h"
#include "platform/ImageProperties.h"

namespace marquell::helpers {
namespace {

using Key = platform::ImagePropertyKey;

enum class Form {
    texts,   ///< one text, or a list of several
    number,  ///< a number, or else the text
    date,    ///< the day of an ISO 8601 time as IIM writes it
    time,    ///< its clock time as IIM writes it
};

struct Field {
    std::string_view name;  ///< in the library's spelling
    Key key;
    Form form = Form::texts;
};

// The correspondence of IIM and IPTC Core is that of the IPTC's own mapping guidelines.
constexpr std::array fields = {
    Field{"Xmp.iptc.IntellectualGenre", Key::kCGImagePropertyIPTCObjectAttributeReference},
    Field{"Xmp.dc.title", Key::kCGImagePropertyIPTCObjectName},
    Field{"Xmp.photoshop.Urgency", Key::kCGImagePropertyIPTCUrgency},
    Field{"Xmp.iptc.SubjectCode", Key::kCGImagePropertyIPTCSubjectReference},
    Field{"Xmp.photoshop.Category", Key::kCGImagePropertyIPTCCategory},
    Field{"Xmp.photoshop.SupplementalCategories", Key::kCGImagePropertyIPTCSupplementalCategory},
    Field{"Xmp.dc.subject", Key::kCGImagePropertyIPTCKeywords},
    Field{"Xmp.photoshop.Instructions", Key::kCGImagePropertyIPTCSpecialInstructions},
    Field{"Xmp.photoshop.DateCreated", Key::kCGImagePropertyIPTCDateCreated, Form::date},
    Field{"Xmp.photoshop.DateCreated", Key::kCGImagePropertyIPTCTimeCreated, Form::time},
    Field{"Xmp.dc.creator", Key::kCGImagePropertyIPTCByline},
    Field{"Xmp.photoshop.AuthorsPosition", Key::kCGImagePropertyIPTCBylineTitle},
    Field{"Xmp.photoshop.City", Key::kCGImagePropertyIPTCCity},
    Field{"Xmp.iptc.Location", Key::kCGImagePropertyIPTCSubLocation},
    Field{"Xmp.photoshop.State", Key::kCGImagePropertyIPTCProvinceState},
    Field{"Xmp.iptc.CountryCode", Key::kCGImagePropertyIPTCCountryPrimaryLocationCode},
    Field{"Xmp.photoshop.Country", Key::kCGImagePropertyIPTCCountryPrimaryLocationName},
    Field{"Xmp.photoshop.TransmissionReference",
          Key::kCGImagePropertyIPTCOriginalTransmissionReference},
    Field{"Xmp.photoshop.Headline", Key::kCGImagePropertyIPTCHeadline},
    Field{"Xmp.photoshop.Credit", Key::kCGImagePropertyIPTCCredit},
    Field{"Xmp.photoshop.Source", Key::kCGImagePropertyIPTCSource},
    Field{"Xmp.dc.rights", Key::kCGImagePropertyIPTCCopyrightNotice},
    Field{"Xmp.dc.description", Key::kCGImagePropertyIPTCCaptionAbstract},
    Field{"Xmp.photoshop.CaptionWriter", Key::kCGImagePropertyIPTCWriterEditor},
    Field{"Xmp.xmp.Rating", Key::kCGImagePropertyIPTCStarRating, Form::number},
    Field{"Xmp.xmpRights.UsageTerms", Key::kCGImagePropertyIPTCRightsUsageTerms},
    Field{"Xmp.iptc.Scene", Key::kCGImagePropertyIPTCScene},
    Field{"Xmp.iptcExt.PersonInImage", Key::kCGImagePropertyIPTCExtPersonInImage},
};

/// The creator's contact, in the order of an address. Some programs write its members without the
/// structure around them.
constexpr std::array contactFields = {
    Field{"CiAdrExtadr", Key::kCGImagePropertyIPTCContactInfoAddress},
    Field{"CiAdrCity", Key::kCGImagePropertyIPTCContactInfoCity},
    Field{"CiAdrRegion", Key::kCGImagePropertyIPTCContactInfoStateProvince},
    Field{"CiAdrPcode", Key::kCGImagePropertyIPTCContactInfoPostalCode},
    Field{"CiAdrCtry", Key::kCGImagePropertyIPTCContactInfoCountry},
    Field{"CiEmailWork", Key::kCGImagePropertyIPTCContactInfoEmails},
    Field{"CiTelWork", Key::kCGImagePropertyIPTCContactInfoPhones},
    Field{"CiUrlWork", Key::kCGImagePropertyIPTCContactInfoWebURLs},
};
constexpr std::array<std::string_view, 2> contactPrefixes = {
    "Xmp.iptc.CreatorContactInfo/Iptc4xmpCore:",
    "Xmp.iptc.",
};

using Texts = std::vector<std::string>;

platform::PropertyValue numberOrText(const std::string& text) {
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number, std::chars_format::fixed);
    if (error == std::errc{} && rest == end && std::isfinite(number)) return number;
    return text;
}

/// Without its separators, as far as it has all digits; years and months alone are filled up with
/// zeros as IIM has it.
std::string iimDate(const std::string& time) {
    std::string date = time.substr(0, time.find('T'));
    std::erase(date, '-');
    const bool isDigits = date.find_first_not_of("0123456789") == std::string::npos;
    const bool isDate = date.size() == 4 || date.size() == 6 || date.size() == 8;
    if (!isDigits || !isDate) return {};
    date.resize(8, '0');
    return date;
}

/// hhmmss and the zone, if there is one: fractions are cut off, seconds filled up.
std::string iimTime(const std::string& time) {
    const std::size_t begin = time.find('T');
    if (begin == std::string::npos) return {};
    std::string clock = time.substr(begin + 1);
    const std::size_t zoneBegin = std::min(clock.find_first_of("+-Z"), clock.size());
    std::string zone = clock.substr(zoneBegin);
    clock.resize(std::min(zoneBegin, clock.find('.')));
    std::erase(clock, ':');
    std::erase(zone, ':');
    if (zone == "Z") zone = "+0000";
    const bool isDigits = clock.find_first_not_of("0123456789") == std::string::npos;
    if (!isDigits || (clock.size() != 4 && clock.size() != 6)) return {};
    clock.resize(6, '0');
    return clock + zone;
}

std::optional<platform::PropertyValue> propertyOf(Texts texts, Form form) {
    if (texts.empty()) return std::nullopt;
    if (form == Form::number) return numberOrText(texts.front());
    if (form == Form::date) texts = {iimDate(texts.front())};
    if (form == Form::time) texts = {iimTime(texts.front())};
    if (texts.size() > 1) return texts;
    if (texts.front().empty()) return std::nullopt;
    return texts.front();
}

void add(platform::PropertyDictionary& properties, Key key,
         std::optional<platform::PropertyValue> value) {
    if (value) properties.emplace(static_cast<platform::PropertyKey>(key), *std::move(value));
}

void addContact(platform::PropertyDictionary& properties, const XmpValues& values) {
    Texts all;
    for (const Field& field : contactFields) {
        Texts texts;
        for (const std::string_view prefix : contactPrefixes) {
            if (texts.empty()) texts = values.textsOf(std::string(prefix).append(field.name));
        }
        all.insert(all.end(), texts.begin(), texts.end());
        add(properties, field.key, propertyOf(std::move(texts), field.form));
    }
    add(properties, Key::kCGImagePropertyIPTCCreatorContactInfo,
        propertyOf(std::move(all), Form::texts));
}

}  // namespace

void addXmpProperties(platform::PropertyDictionary& properties, const Exiv2::XmpData& xmp) {
    if (xmp.empty()) return;
    const XmpValues values(xmp);
    for (const Field& field : fields) {
        add(properties, field.key, propertyOf(values.textsOf(field.name), field.form));
    }
    addContact(properties, values);
    addXmpCamera(properties, values);
}

}  // namespace marquell::helpers
