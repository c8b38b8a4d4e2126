// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Utf8MimeData.h"

#include <algorithm>
#include <utility>

namespace marquell::shell {
namespace {

using platform::PasteboardType;

struct FormatName {
    PasteboardType type = PasteboardType::string;
    QLatin1StringView name;
};

constexpr FormatName formatNames[] = {
    {PasteboardType::tabularText, QLatin1StringView("text/tab-separated-values")},
    {PasteboardType::string, QLatin1StringView("text/plain")},
    {PasteboardType::string, QLatin1StringView("text/plain;charset=utf-8")},
};

}  // namespace

void Utf8MimeData::offer(PasteboardType type, std::shared_ptr<const void> owner,
                         std::string_view bytes) {
    offers_.push_back({type, std::move(owner), bytes});
}

void Utf8MimeData::offerFrom(const Utf8MimeData& other, PasteboardType type) {
    const auto found = std::ranges::find(other.offers_, type, &Offer::type);
    if (found != other.offers_.end()) offers_.push_back(*found);
}

QStringList Utf8MimeData::formats() const {
    QStringList all;
    for (const Offer& offer : offers_) {
        for (const FormatName& format : formatNames) {
            if (format.type == offer.type) all.append(format.name);
        }
    }
    return all;
}

QVariant Utf8MimeData::retrieveData(const QString& format, QMetaType preferredType) const {
    const auto* known = std::ranges::find(formatNames, format, &FormatName::name);
    if (known == std::end(formatNames)) return {};
    const auto found = std::ranges::find(offers_, known->type, &Offer::type);
    if (found == offers_.end()) return {};
    const QByteArrayView bytes(found->bytes.data(), static_cast<qsizetype>(found->bytes.size()));
    if (preferredType == QMetaType::fromType<QString>()) return QString::fromUtf8(bytes);
    return bytes.toByteArray();  // a copy, as readers may keep it for longer than we last
}

}  // namespace marquell::shell
