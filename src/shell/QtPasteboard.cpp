// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/QtPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
#include <utility>

namespace marquell::shell {

void QtPasteboard::clearContents() {
    declaredTypes_.clear();
    QGuiApplication::clipboard()->clear();
}

void QtPasteboard::declareTypes(const std::vector<platform::PasteboardType>& types) {
    declaredTypes_ = types;
    offered_ = nullptr;
}

void QtPasteboard::setData(platform::PasteboardType type,
                           std::shared_ptr<const platform::TextBuffer> bytes) {
    if (std::ranges::find(declaredTypes_, type) == declaredTypes_.end()) return;
    // Nobody is told which data is the last, and what the clipboard has can't be added to. As no
    // bytes move, it gets everything anew each time.
    auto data = std::make_unique<Utf8MimeData>();
    for (const platform::PasteboardType declared : declaredTypes_) {
        if (declared == type) {
            data->offer(type, bytes, bytes->view());
        } else if (offered_ != nullptr) {
            data->offerFrom(*offered_, declared);
        }
    }
    offered_ = data.get();
    QGuiApplication::clipboard()->setMimeData(data.release());
}

}  // namespace marquell::shell
