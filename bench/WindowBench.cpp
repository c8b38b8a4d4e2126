// SPDX-License-Identifier: GPL-3.0-or-later
// Drives the window of the program over a million files and measures how long it ever leaves the
// user waiting: while files are scanned, texts of 100 MB are made, shown and saved to a slow disk,
// and meanwhile the edge of the window is dragged. Also how long the program takes to start.
//
//     marquell_window_bench [--files COUNT]
//     marquell_window_bench --start NANOSECONDS   since when, on the clock of all programs
#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "ProgramRun.h"
#include "SlowDisk.h"
#include "Watchdog.h"
#include "window/MainContentViewController.h"

namespace marquell::bench {
namespace {

using pipeline::OutputFormatIndexEnum;

/// Folders of a thousand empty files each.
void makeTree(const std::filesystem::path& root, int files) {
    for (int made = 0; made < files; made += 1000) {
        const auto folder = root / ("Folder " + std::to_string(made / 1000));
        std::filesystem::create_directories(folder);
        for (int i = 0; i < std::min(1000, files - made); ++i) {
            const auto name = "IMG_" + std::to_string((made + i * 31) % 10000) + "-" +
                              std::to_string(made + i) + ".jpg";
            ::close(::open((folder / name).c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644));
        }
    }
}

/// Drags the lower right corner of a window to and fro, as fast as screens show it.
class Resizing {
public:
    explicit Resizing(QWidget& window) : size_(window.size()) {
        QObject::connect(&timer_, &QTimer::timeout, &window, [this, &window] {
            step_ = (step_ + 1) % 80;
            const int by = 10 * (step_ < 40 ? step_ : 80 - step_);
            window.resize(size_ + QSize(by, by / 2));
        });
        timer_.start(16);
    }

private:
    const QSize size_;
    int step_ = 0;
    QTimer timer_;
};

std::size_t textSize(Program& program) {
    const auto text = program.engine().currentOutputString();
    return text == nullptr ? 0 : text->view().size();
}

class Blocks {
public:
    explicit Blocks(Program& program) : program_(program) {
        std::printf(
            "| step | text then | longest block | with a free core | p99 | took |\n"
            "|---|---|---|---|---|---|\n");
    }

    /// Prints how the main thread answered from the start of `action`, which runs from the event
    /// loop, until all is done and shown that it has led to.
    void measure(const std::string& name, const std::function<void()>& action) {
        runEventsFor(std::chrono::milliseconds(200));
        watchdog_.takeAnswers();
        const auto begin = Clock::now();
        bool hasRun = false;
        QTimer::singleShot(5, [&] {
            action();
            hasRun = true;
        });
        runEventsUntil([&] { return hasRun && program_.engine().maySave(); });
        const double took = millisecondsSince(begin);
        runEventsFor(std::chrono::milliseconds(300));  // what it left to be shown
        const auto [longest, p99, longestAtWork] = watchdog_.takeAnswers();
        std::printf("| %s | %zu MB | %.1f ms | %.1f ms | %.1f ms | %.0f ms |\n", name.c_str(),
                    textSize(program_) / 1'000'000, longest, longestAtWork, p99, took);
        std::fflush(stdout);
    }

private:
    Program& program_;
    Watchdog watchdog_;
};

/// Chooses the file in the save dialog, once it has come.
void answerSaveDialog(const std::filesystem::path& path) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* const dialog = qobject_cast<QFileDialog*>(window);
        if (dialog == nullptr || !dialog->isVisible()) continue;
        dialog->findChild<QLineEdit*>()->setText(QString::fromStdString(path.string()));
        QMetaObject::invokeMethod(dialog, "accept");
        return;
    }
    QTimer::singleShot(20, [path] { answerSaveDialog(path); });
}

void switchFormats(Program& program, Blocks& blocks, const std::string& manner) {
    constexpr std::array<std::pair<OutputFormatIndexEnum, const char*>, 4> formats = {{
        {OutputFormatIndexEnum::TSV, "TSV"},
        {OutputFormatIndexEnum::JSON, "JSON"},
        {OutputFormatIndexEnum::HTML, "HTML"},
        {OutputFormatIndexEnum::CSV, "CSV"},
    }};
    for (const auto& [format, name] : formats) {
        blocks.measure(std::string("switch to ") + name + manner, [&program, format = format] {
            program.model().outputFormat->setValue(format);
        });
    }
}

void save(Program& program, Blocks& blocks, const std::filesystem::path& folder,
          const std::string& manner) {
    const auto file = folder / "list.csv";
    const SlowDisk slowDisk;
    blocks.measure("save on a slow disk" + manner, [&] {
        answerSaveDialog(file);
        program.content().performAction();
    });
    if (std::filesystem::file_size(file) != textSize(program)) {
        throw std::runtime_error("not all of the text is in the file");
    }
    std::filesystem::remove(file);
}

void measureSteps(Program& program, Blocks& blocks, const Folder& folder,
                  const std::string& manner) {
    const std::string tree = folder.path / "tree";
    program.model().previewMode->setValue(0);
    blocks.measure("add the files" + manner, [&] { program.content().addSources({tree}); });
    blocks.measure("sort them" + manner, [&] { program.model().firstSortMode->setValue(2); });
    program.model().previewMode->setValue(1);
    switchFormats(program, blocks, manner);
    save(program, blocks, folder.path, manner);
    program.model().firstSortMode->setValue(0);
    blocks.measure("clear" + manner, [&] { program.content().clearSources(); });
}

void measureBlocks(int files) {
    const Folder folder;
    makeTree(folder.path / "tree", files);
    Program program;
    runEventsUntil([&] { return program.engine().maySave(); });
    program.model().processSubFolders->setValue(true);
    Blocks blocks(program);
    blocks.measure("nothing", [] {});
    measureSteps(program, blocks, folder, "");
    const Resizing resizing(*program.delegate->mainWindow());
    measureSteps(program, blocks, folder, ", resizing");
}

/// Milliseconds from `began`, of the clock that all programs share, until the window is shown and
/// has answered an event.
void measureStart(Clock::time_point began) {
    Program program;
    bool hasAnswered = false;
    QTimer::singleShot(0, [&] { hasAnswered = true; });
    runEventsUntil([&] { return hasAnswered && program.engine().maySave(); });
    std::printf("%.1f\n", millisecondsSince(began));
}

/// The number behind an option on the command line.
std::optional<std::int64_t> valueOf(std::string_view option, int count, char** arguments) {
    for (int i = 1; i + 1 < count; ++i) {
        if (arguments[i] == option) return std::atoll(arguments[i + 1]);
    }
    return std::nullopt;
}

int run(int count, char** arguments) {
    const Folder home;
    ::setenv("XDG_CONFIG_HOME", home.path.c_str(), 1);
    const QApplication application(count, arguments);
    if (const auto began = valueOf("--start", count, arguments)) {
        measureStart(Clock::time_point(std::chrono::nanoseconds(*began)));
    } else {
        const auto files = valueOf("--files", count, arguments);
        measureBlocks(static_cast<int>(files.value_or(1'000'000)));
    }
    return 0;
}

}  // namespace
}  // namespace marquell::bench

int main(int count, char** arguments) { return marquell::bench::run(count, arguments); }
