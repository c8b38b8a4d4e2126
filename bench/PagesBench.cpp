// SPDX-License-Identifier: GPL-3.0-or-later
// Shows a folder of photos in the window of the program and measures how long a page of the preview
// table waits for its values: the first one, and pages that are jumped to, while the text of the
// list is made and when nothing else goes on.
//
//     marquell_pages_bench FOLDER COLUMN...
#include <QAbstractItemModel>
#include <QApplication>
#include <QScrollBar>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "ProgramRun.h"
#include "Watchdog.h"
#include "metadata/MetadataStorage.h"
#include "toolkit/tables/CellTable.h"
#include "window/Text.h"

namespace marquell::bench {
namespace {

toolkit::CellTable& previewTable(Program& program) {
    const QString name = window::localizedText("Preview Table", "segmented control title");
    for (QWidget* view : program.delegate->mainWindow()->findChildren<QWidget*>()) {
        auto* const table = dynamic_cast<toolkit::CellTable*>(view);
        if (table != nullptr && table->accessibleName() == name) return *table;
    }
    std::abort();
}

bool isFilled(const toolkit::CellTable& table) {
    const QString waiting = window::localizedText("waiting…", "table cell label");
    const auto [first, last] = table.rowsInView();
    for (int row = first; row <= last; ++row) {
        for (int column = 0; column < table.model()->columnCount(); ++column) {
            if (!table.columnIsInView(column)) continue;
            if (table.model()->index(row, column).data().toString() == waiting) return false;
        }
    }
    return true;
}

double timeToFill(const toolkit::CellTable& table, Clock::time_point appeared) {
    do {
        runEventsFor(std::chrono::milliseconds(1));
    } while (!isFilled(table));
    return millisecondsSince(appeared);
}

void print(const char* name, std::vector<double> times) {
    if (times.empty()) return;
    std::sort(times.begin(), times.end());
    std::printf("| %s | %zu | %.1f ms | %.1f ms |\n", name, times.size(), times[times.size() / 2],
                times.back());
}

class Jumps {
public:
    explicit Jumps(const toolkit::CellTable& table) : table_(table) {}

    double toAnyPage() {
        QScrollBar& bar = *table_.verticalScrollBar();
        const auto begin = Clock::now();
        bar.setValue(std::uniform_int_distribution(0, bar.maximum())(random_));
        return timeToFill(table_, begin);
    }

private:
    const toolkit::CellTable& table_;
    std::mt19937 random_{1};
};

void measure(const std::string& folder, std::vector<std::string> columns) {
    Program program;
    auto& model = program.model();
    model.processSubFolders->setValue(true);
    model.defaults->setObject(platform::TextList(std::move(columns)), model.columnList.storageKey);
    program.delegate->mainWindow()->resize(1920, 1080);
    runEventsUntil([&] { return program.engine().maySave(); });
    toolkit::CellTable& table = previewTable(program);
    Watchdog watchdog;
    watchdog.takeAnswers();
    program.content().addSources({folder});
    runEventsUntil([&] { return table.model()->rowCount() > 0 && table.isVisible(); });
    const double first = timeToFill(table, Clock::now());
    Jumps jumps(table);
    std::vector<double> meanwhile;
    while (!program.engine().maySave()) meanwhile.push_back(jumps.toAnyPage());
    std::vector<double> afterwards;
    for (int i = 0; i < 20; ++i) {
        metadata::MetadataStorage::shared().clear();
        afterwards.push_back(jumps.toAnyPage());
    }
    std::printf("%d rows, %d in view; longest block %.1f ms\n\n", table.model()->rowCount(),
                table.rowsInView().last - table.rowsInView().first + 1,
                watchdog.takeAnswers().longest);
    std::printf("| page | pages | median | longest |\n|---|---|---|---|\n");
    print("the first one, while the text is made", {first});
    print("jumped to, while the text is made", std::move(meanwhile));
    print("jumped to, at rest, nothing known", std::move(afterwards));
}

int run(int count, char** arguments) {
    const Folder home;
    ::setenv("XDG_CONFIG_HOME", home.path.c_str(), 1);
    const QApplication application(count, arguments);
    if (count < 3) {
        std::fprintf(stderr, "usage: marquell_pages_bench FOLDER COLUMN...\n");
        return 2;
    }
    measure(arguments[1], {arguments + 2, arguments + count});
    return 0;
}

}  // namespace
}  // namespace marquell::bench

int main(int count, char** arguments) { return marquell::bench::run(count, arguments); }
