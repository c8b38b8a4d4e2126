// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/XmpValues.h"

#include <utility>

#include "helpers/common/DecodedText.h"

namespace marquell::helpers {

XmpValues::XmpValues(const Exiv2::XmpData& xmp) {
    for (const Exiv2::Xmpdatum& datum : xmp) values_.emplace(datum.key(), &datum.value());
}

std::vector<std::string> XmpValues::textsOf(std::string_view name) const {
    const auto found = values_.find(name);
    if (found == values_.end()) return {};
    const Exiv2::Value* const value = found->second;
    std::vector<std::string> texts;
    const auto add = [&texts](const std::string& bytes) {
        std::string text = decodedText(bytes, Charset::likely);
        if (!text.empty()) texts.push_back(std::move(text));
    };
    if (const auto* languages = dynamic_cast<const Exiv2::LangAltValue*>(value)) {
        const auto& byLanguage = languages->value_;
        const auto preferred = byLanguage.find("x-default");
        if (preferred != byLanguage.end()) {
            add(preferred->second);
        } else if (!byLanguage.empty()) {
            add(byLanguage.begin()->second);
        }
    } else if (dynamic_cast<const Exiv2::XmpArrayValue*>(value) != nullptr) {
        for (long i = 0; i < value->count(); ++i) add(value->toString(i));
    } else if (const auto* text = dynamic_cast<const Exiv2::XmpTextValue*>(value)) {
        // Of a structure this is empty; toString() would name its kind.
        add(text->value_);
    }
    return texts;
}

}  // namespace marquell::helpers
