// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <memory>
#include <vector>

#include "platform/Pasteboard.h"
#include "shell/Utf8MimeData.h"

namespace marquell::shell {

/// The desktop's clipboard. It hands out the bytes that it was given as they are, without a copy
/// for a program that doesn't ask for them. A type that was declared and has no data is not
/// offered: a program that prefers it would paste nothing.
class QtPasteboard final : public platform::Pasteboard {
public:
    void clearContents() override;
    void declareTypes(const std::vector<platform::PasteboardType>& types) override;
    void setData(platform::PasteboardType type,
                 std::shared_ptr<const platform::TextBuffer> bytes) override;

private:
    std::vector<platform::PasteboardType> declaredTypes_;
    QPointer<Utf8MimeData> offered_;  // the clipboard's; null once it has got something else
};

}  // namespace marquell::shell
