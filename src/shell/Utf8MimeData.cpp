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

/// The bytes as they are. The array counts its copies: while there are others, writing into one
/// copies the bytes first.
QByteArray arrayOver(std::string_view bytes) {
    // An array with a counter of its own and the bytes of another: QByteArray::fromRawData has no
    // counter, and so nobody could tell when its last copy is gone.
    const auto [counter, unused] = QTypedArrayData<char>::allocate(1);
    static_cast<void>(unused);
    return QByteArray(QByteArray::DataPointer(counter, const_cast<char*>(bytes.data()),
                                              static_cast<qsizetype>(bytes.size())));
}

}  // namespace

Utf8MimeData::~Utf8MimeData() {
    // The desktop sends a text piece by piece and goes on after there is another one to offer.
    for (Offer& offer : offers_) {
        if (offer.text.use_count() == 1) stillRead().push_back(std::move(offer.text));
    }
    std::erase_if(stillRead(), [](const auto& text) { return text->bytes.isDetached(); });
}

Utf8MimeData::Texts& Utf8MimeData::stillRead() {
    // The desktop's clipboard lets go of its offer after all else has gone.
    static Texts& texts = *new Texts;
    return texts;
}

void Utf8MimeData::offer(PasteboardType type, std::shared_ptr<const void> owner,
                         std::string_view bytes) {
    offers_.push_back({type, std::make_shared<Text>(Text{std::move(owner), arrayOver(bytes)})});
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
    const QByteArray& bytes = found->text->bytes;
    if (preferredType == QMetaType::fromType<QString>()) return QString::fromUtf8(bytes);
    return bytes;
}

}  // namespace marquell::shell
