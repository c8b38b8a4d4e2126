// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMimeData>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/Pasteboard.h"

namespace marquell::shell {

/// Texts for the clipboard that stay where they are: nothing is copied or converted until a reader
/// asks, however large they are. Main thread only.
class Utf8MimeData final : public QMimeData {
public:
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
    struct Offer {
        platform::PasteboardType type;
        std::shared_ptr<const void> owner;
        std::string_view bytes;
    };
    std::vector<Offer> offers_;
};

}  // namespace marquell::shell
