// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/panels/SaveRefusal.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <cstring>

#include "platform/AtomicFile.h"
#include "window/column/OptionMenus.h"
#include "window/panels/FilePanel.h"

namespace marquell::window {
namespace {

struct Reason {
    int error;
    const char* sentence;  ///< with the name of the folder
};

constexpr Reason folderReasons[] = {
    {ENOENT, "There is no folder “%1”."},
    {ENOTDIR, "There is no folder “%1”."},
    {EACCES, "You can’t save in the folder “%1”: it is protected from writing."},
    {EROFS, "You can’t save in the folder “%1”: it is on a read-only disk."},
};

bool isProtected(const QString& path) {
    return ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK, AT_EACCESS) != 0;
}

/// A name in a bearable length, without the line breaks that it may have.
QString shown(const QString& name) {
    constexpr qsizetype longest = 60;
    QString line = name.simplified();
    if (line.size() <= longest) return line;
    return line.first(longest / 2) + QChar(0x2026) + line.last(longest / 2);
}

/// Of something that is there. Links count as what they lead to.
QString refusalToReplace(const QFileInfo& file) {
    if (file.isDir()) return panelText("“%1” is a folder.").arg(shown(file.fileName()));
    if (!file.isFile())
        return panelText("“%1” is not an ordinary file.").arg(shown(file.fileName()));
    if (!isProtected(file.filePath())) return QString();
    return panelText("“%1” is protected from writing.").arg(shown(file.fileName()));
}

/// The root has no other name than its path.
QString nameOf(const QString& folder) {
    const QString name = QFileInfo(folder).fileName();
    return name.isEmpty() ? folder : shown(name);
}

/// As a sign that the user sees, or by its number.
QString shownCharacter(char32_t character) {
    if (QChar::isPrint(character) && !QChar::isMark(character) && !QChar::isSpace(character)) {
        return QStringLiteral("“%1”").arg(QString::fromUcs4(&character, 1));
    }
    const QString number = QString::number(static_cast<uint>(character), 16).toUpper();
    return QStringLiteral("U+") + number.rightJustified(4, QLatin1Char('0'));
}

}  // namespace

QString refusalOf(const QString& path) {
    const QFileInfo file(path);
    if (file.exists()) {
        QString refusal = refusalToReplace(file);
        if (!refusal.isEmpty()) return refusal;
    }
    const int error = platform::destinationError(QFile::encodeName(path).toStdString());
    if (error == 0) return QString();
    const auto* reason = std::ranges::find(folderReasons, error, &Reason::error);
    if (reason == std::end(folderReasons)) return QString::fromLocal8Bit(std::strerror(error));
    return panelText(reason->sentence).arg(nameOf(file.path()));
}

QString refusalOf(const pipeline::LackingCharacter& lacking) {
    const QString encoding = localizedText(titleOf(lacking.encoding), "popup menu choice");
    const QString character = shownCharacter(lacking.character);
    const QString column = shown(QString::fromStdString(lacking.columnTitle));
    if (column.isEmpty()) {
        return panelText("%1 has no %2. Choose another encoding.").arg(encoding, character);
    }
    if (!lacking.row) {
        return panelText("%1 has no %2 (title of column “%3”). Choose another encoding.")
            .arg(encoding, character, column);
    }
    return panelText("%1 has no %2 (row %3, column “%4”). Choose another encoding.")
        .arg(encoding, character, QString::number(*lacking.row + 1), column);
}

}  // namespace marquell::window
