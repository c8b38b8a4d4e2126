// SPDX-License-Identifier: GPL-3.0-or-later
// The program with the window.
#include <sys/stat.h>

#include <QApplication>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "platform/DiagnosticText.h"
#include "platform/Path.h"
#include "platform/UnfinishedFile.h"
#include "shell/AppDelegate.h"
#include "shell/QtMainQueue.h"

namespace marquell::apps {
namespace {

constexpr const char* helpText =
    "Usage: marquell [PATH]...\n"
    "Turns folders and files into lists. Opens a window with the PATHs as its sources.\n"
    "\n"
    "  --help     print this text and end\n"
    "  --version  print the version and end\n"
    "\n"
    "marquell-list makes the same lists without a window.\n";

struct Arguments {
    bool help = false;
    bool version = false;
    std::string wrong;               ///< an option that there is none of
    std::vector<std::string> paths;  ///< absolute
};

/// `arguments` are those that Qt has left.
Arguments parse(const std::vector<std::string_view>& arguments) {
    Arguments parsed;
    const std::string folder = platform::currentFolder();
    bool onlyPaths = false;
    for (const std::string_view argument : arguments) {
        if (onlyPaths || !argument.starts_with("-")) {
            std::string path = platform::absolutePath(argument, folder);
            if (!path.empty()) parsed.paths.push_back(std::move(path));
        } else if (argument == "--") {
            onlyPaths = true;
        } else if (argument == "--help") {
            parsed.help = true;
        } else if (argument == "--version") {
            parsed.version = true;
        } else {
            parsed.wrong = argument;
        }
    }
    return parsed;
}

std::vector<std::string_view> rest(int count, char** arguments) {
    return {arguments + 1, arguments + count};
}

bool hasDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name)) return true;
    }
    return false;
}

enum ExitStatus { success = 0, wrongUsage = 2, noDisplay = 3 };

int complain(const std::string& message, ExitStatus status) {
    std::fprintf(stderr, "marquell: %s\n", message.c_str());
    return status;
}

int complainOfDisplay() {
    return complain("there is no display to open a window on; marquell-list needs none", noDisplay);
}

/// In place of Qt's own end, an abort, where a display is named and can't be had.
void takeMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg) std::_Exit(complainOfDisplay());
    std::fprintf(stderr, "%s\n", qPrintable(message));
}

void nameMissing(const std::vector<std::string>& paths) {
    for (const std::string& path : paths) {
        struct stat status {};
        if (::lstat(path.c_str(), &status) == 0) continue;
        complain(platform::diagnosticText(path) + ": " + std::strerror(errno), wrongUsage);
    }
}

int run(int argumentCount, char** arguments) {
    for (const int signal : {SIGPIPE, SIGXFSZ}) std::signal(signal, SIG_IGN);
    platform::tidyUpOnSignals();
    const Arguments early = parse(rest(argumentCount, arguments));
    if (early.help || early.version) {
        std::fputs(early.help ? helpText : "marquell " MARQUELL_VERSION "\n", stdout);
        return success;
    }
    if (!hasDisplay()) return complainOfDisplay();
    qInstallMessageHandler(takeMessage);
    const QApplication application(argumentCount, arguments);
    qInstallMessageHandler(nullptr);
    const Arguments parsed = parse(rest(argumentCount, arguments));
    if (!parsed.wrong.empty())
        return complain(platform::diagnosticText(parsed.wrong) + ": no such option (see --help)",
                        wrongUsage);
    shell::QtMainQueue mainQueue;
    platform::MainQueue::install(&mainQueue);
    shell::AppDelegate delegate;
    delegate.finishLaunching();
    nameMissing(parsed.paths);
    if (!parsed.paths.empty()) delegate.openFiles(parsed.paths);
    return QApplication::exec();
}

}  // namespace
}  // namespace marquell::apps

int main(int argumentCount, char** arguments) {
    return marquell::apps::run(argumentCount, arguments);
}
