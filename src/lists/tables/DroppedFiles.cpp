// SPDX-License-Identifier: GPL-3.0-or-later
#include "lists/tables/DroppedFiles.h"

#include <QMimeData>
#include <string_view>

#include "platform/UriList.h"

namespace marquell::lists {
namespace {

QString uriListType() { return QStringLiteral("text/uri-list"); }

}  // namespace

bool areFilesFromOutside(const QMimeData& data, const QObject* source) {
    return source == nullptr && data.hasFormat(uriListType());
}

std::vector<std::string> droppedPaths(const QMimeData& data) {
    // From the bytes as they came, since names that are no UTF-8 don't survive as texts.
    const QByteArray bytes = data.data(uriListType());
    return platform::pathsOfUriList(
        std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

}  // namespace marquell::lists
