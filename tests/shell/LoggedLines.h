// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QtGlobal>
#include <string>
#include <vector>

namespace marquell::tests {

/// Takes what is logged through Qt as long as it lives. One at a time.
class LoggedLines {
public:
    LoggedLines() : former_(qInstallMessageHandler(take)) { lines().clear(); }
    LoggedLines(const LoggedLines&) = delete;
    LoggedLines& operator=(const LoggedLines&) = delete;
    ~LoggedLines() { qInstallMessageHandler(former_); }

    static std::vector<std::string>& lines() {
        static std::vector<std::string> all;
        return all;
    }

private:
    static void take(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                     const QString& line) {
        lines().push_back(line.toStdString());
    }

    const QtMessageHandler former_;
};

}  // namespace marquell::tests
