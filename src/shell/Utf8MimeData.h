// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMimeData>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/Pasteboard.h"

namespace marquell::shell {

/// Texts for the clipboard that stay where they are: readers get the bytes themselves, however
/// large they are, and may keep them for longer than this object lasts. Main thread only, where
/// they are let go of as well.
class Utf8MimeData final : public QMimeData {
public:
    Utf8MimeData() = default;
    ~Utf8MimeData() override;
    Utf8MimeData(const Utf8MimeData&) = delete;
    Utf8MimeData& operator=(const Utf8MimeData&) = delete;

    /// Offers the UTF-8 bytes, which live as long as `owner`, under all names that the type has.
    /// The type offered first is the best.
    void offer(platform::PasteboardType type, std::shared_ptr<const void> owner,
               std::string_view bytes);

    /// Offers what another object offers under the type, if it does.
    void offerFrom(const Utf8MimeData& other, platform::PasteboardType type);

    QStringList formats() const override;

protected:
    QVariant retrieveData(const QString& format, QMetaType preferredType) const override;

private:
    struct Text {
        std::shared_ptr<const void> owner;
        QByteArray bytes;  // the owner's; counts who reads them
    };
    struct Offer {
        platform::PasteboardType type;
        std::shared_ptr<const Text> text;
    };
    using Texts = std::vector<std::shared_ptr<const Text>>;

    /// Texts that nobody offers any more and that were still read when that was last looked at.
    static Texts& stillRead();

    std::vector<Offer> offers_;
};

}  // namespace marquell::shell
