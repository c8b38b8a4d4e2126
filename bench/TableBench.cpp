// SPDX-License-Identifier: GPL-3.0-or-later
// What a preview table of a million rows costs: how long it takes to come, to be looked at, to be
// scrolled by a page, and to come anew with the selected rows and the place in view kept.
#include <QApplication>
#include <QScrollBar>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ManyNodes.h"
#include "metadata/TagManager.h"
#include "platform/MainQueue.h"
#include "toolkit/layout/LayoutRoot.h"
#include "toolkit/look/HouseStyle.h"
#include "window/preview/PreviewTableViewController.h"

namespace marquell::bench {
namespace {

using Clock = std::chrono::steady_clock;

double milliseconds(const std::function<void()>& step) {
    const auto begin = Clock::now();
    step();
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

std::vector<std::string> firstColumns(std::size_t count) {
    std::vector<std::string> ids;
    for (const std::string_view id : metadata::TagManager::shared().columnIDs) {
        if (id != "-" && ids.size() < count) ids.emplace_back(id);
    }
    return ids;
}

/// How long a table of a million rows takes to come, to be scrolled and to come anew with the place
/// in view kept.
void measureTable(std::size_t columns) {
    // What can't be saved is in force all the same.
    const auto defaults = platform::UserDefaults::open("/dev/null/none", [](const auto&) {});
    pipeline::DataModel model(defaults);
    defaults->setObject(platform::TextList(firstColumns(columns)), model.columnList.storageKey);
    const auto controller = toolkit::makeController<window::PreviewTableViewController>(model);
    QWidget& view = *controller->view();
    toolkit::LayoutRoot::install(&view);
    view.resize(1280, 800);
    view.show();
    const auto show = [] { QCoreApplication::processEvents(); };
    show();
    const auto list = manyNodes(1'000'000);
    const auto other = manyNodes(1'000'000);
    const double update = milliseconds([&] { controller->updateAll(list); });
    const double first = milliseconds(show);
    QScrollBar& bar = *controller->tableView()->verticalScrollBar();
    std::vector<double> pages;
    for (int i = 0; i < 101; ++i) {
        pages.push_back(milliseconds([&] {
            bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
            show();
        }));
    }
    std::sort(pages.begin(), pages.end());
    controller->tableView()->selectRows({{5000, 5999}});
    const double again = milliseconds([&] { controller->updateAll(other); });
    std::printf("| %zu | %.1f ms | %.1f ms | %.1f ms | %.1f ms | %.1f ms |\n", columns, update,
                first, pages[pages.size() / 2], pages.back(), again);
}

void measureTables() {
    toolkit::furnish();
    std::printf(
        "| columns | updateAll | first look | page | slowest page | updateAll, 1,000 rows selected "
        "|\n"
        "|---|---|---|---|---|---|\n");
    for (const std::size_t columns : {10U, 326U}) measureTable(columns);
}

}  // namespace
}  // namespace marquell::bench

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    marquell::platform::PumpedMainQueue mainQueue;
    marquell::platform::MainQueue::install(&mainQueue);
    marquell::bench::measureTables();
    marquell::platform::MainQueue::install(nullptr);
    return 0;
}
