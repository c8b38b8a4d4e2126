// SPDX-License-Identifier: GPL-3.0-or-later
// The program with the window.
#include <QApplication>
#include <csignal>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

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

int complain(const std::string& message) {
    std::fprintf(stderr, "marquell: %s\n", message.c_str());
    return 2;
}

int run(int argumentCount, char** arguments) {
    for (const int signal : {SIGPIPE, SIGXFSZ}) std::signal(signal, SIG_IGN);
    platform::tidyUpOnSignals();
    const Arguments early = parse(rest(argumentCount, arguments));
    if (early.help || early.version) {
        std::fputs(early.help ? helpText : "marquell " MARQUELL_VERSION "\n", stdout);
        return 0;
    }
    if (!hasDisplay()) {
        return complain("there is no display to open a window on; marquell-list needs none");
    }
    const QApplication application(argumentCount, arguments);
    const Arguments parsed = parse(rest(argumentCount, arguments));
    if (!parsed.wrong.empty()) return complain(parsed.wrong + ": no such option (see --help)");
    shell::QtMainQueue mainQueue;
    platform::MainQueue::install(&mainQueue);
    shell::AppDelegate delegate;
    delegate.finishLaunching();
    if (!parsed.paths.empty()) delegate.openFiles(parsed.paths);
    return QApplication::exec();
}

}  // namespace
}  // namespace marquell::apps

int main(int argumentCount, char** arguments) {
    return marquell::apps::run(argumentCount, arguments);
}
