// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <vector>

#include "toolkit/solver/Simplex.h"

namespace marquell::bench {
namespace {

using toolkit::Relation;
using toolkit::Simplex;
using toolkit::Tier;
using Clock = std::chrono::steady_clock;

constexpr int rows = 20;
constexpr int columns = 5;

/// A window of views in rows, edge to edge, all on the baseline of the first of their row; the
/// first of all rows share a width. `layout.py` lays out the same with another solver.
class Window {
public:
    Window() {
        const View* above = nullptr;
        views_.reserve(rows * columns);
        for (int row = 0; row < rows; ++row) {
            const View* before = nullptr;
            for (int column = 0; column < columns; ++column) {
                views_.push_back(addView(row * columns + column));
                const View& view = views_.back();
                placeAcross(view, before);
                placeDown(view, before, above);
                before = &view;
            }
            add({{width_, 1}, {before->left, -1}, {before->width, -1}}, Relation::equal, 20,
                Tier::required);
            above = &views_[views_.size() - columns];
            if (row == 0) continue;
            add({{above->width, 1}, {views_.front().width, -1}}, Relation::equal, 0,
                Tier::required);
        }
        add({{height_, 1}, {above->top, -1}, {above->height, -1}}, Relation::greaterThanOrEqual, 20,
            Tier::required);
        widthOfWindow_ = add({{width_, 1}}, Relation::equal, 800, Tier::window);
        heightOfWindow_ = add({{height_, 1}}, Relation::equal, 600, Tier::window);
    }

    int count() const { return count_; }

    void resize(double width, double height) {
        simplex_.setConstant(widthOfWindow_, width);
        simplex_.setConstant(heightOfWindow_, height);
    }

    void setHint(int view, double width) {
        simplex_.setConstant(views_[static_cast<std::size_t>(view)].atLeast, width);
        simplex_.setConstant(views_[static_cast<std::size_t>(view)].atMost, width);
    }

    double sumOfValues() const {
        double sum = 0;
        for (const View& view : views_) {
            for (const auto variable : {view.left, view.top, view.width, view.height}) {
                sum += simplex_.value(variable);
            }
        }
        return sum;
    }

private:
    struct View {
        Simplex::Variable left, top, width, height;
        Simplex::Constraint atLeast, atMost;
    };

    Simplex::Constraint add(const std::vector<Simplex::Term>& terms, Relation relation,
                            double constant, Tier tier) {
        ++count_;
        return simplex_.add(terms, relation, constant, tier).constraint.value();
    }

    View addView(int index) {
        View view{simplex_.addVariable(),
                  simplex_.addVariable(),
                  simplex_.addNonNegativeVariable(),
                  simplex_.addNonNegativeVariable(),
                  0,
                  0};
        const double width = 40 + index * 7 % 60;
        view.atLeast = add({{view.width, 1}}, Relation::greaterThanOrEqual, width, Tier::high);
        view.atMost = add({{view.width, 1}}, Relation::lessThanOrEqual, width,
                          index % columns == 0 ? Tier::labelHugging : Tier::low);
        add({{view.height, 1}}, Relation::equal, 20 + index % 3, Tier::high);
        return view;
    }

    void placeAcross(const View& view, const View* before) {
        if (before == nullptr) {
            add({{view.left, 1}}, Relation::equal, 20, Tier::required);
        } else {
            add({{view.left, 1}, {before->left, -1}, {before->width, -1}}, Relation::equal, 8,
                Tier::required);
        }
    }

    void placeDown(const View& view, const View* before, const View* above) {
        if (before != nullptr) {
            add({{view.top, 1}, {before->top, -1}}, Relation::equal, 0, Tier::required);
            add({{view.top, 1}, {view.height, 1}, {height_, -1}}, Relation::lessThanOrEqual, -20,
                Tier::required);
        } else if (above == nullptr) {
            add({{view.top, 1}}, Relation::equal, 20, Tier::required);
        } else {
            add({{view.top, 1}, {above->top, -1}, {above->height, -1}},
                Relation::greaterThanOrEqual, 8, Tier::required);
        }
    }

    Simplex simplex_;
    Simplex::Variable width_ = simplex_.addNonNegativeVariable();
    Simplex::Variable height_ = simplex_.addNonNegativeVariable();
    std::vector<View> views_;
    Simplex::Constraint widthOfWindow_ = 0;
    Simplex::Constraint heightOfWindow_ = 0;
    int count_ = 0;
};

void layoutBuild(benchmark::State& state) {
    for (auto _ : state) {
        const Window window;
        benchmark::DoNotOptimize(window.sumOfValues());
    }
    state.counters["constraints"] = Window().count();
}
BENCHMARK(layoutBuild)->Unit(benchmark::kMillisecond)->UseRealTime();

/// From a new size of the window to the positions of all views; the sizes are anywhere, or, as an
/// edge is dragged, a few points further. The counters are in microseconds.
void layoutResize(benchmark::State& state) {
    Window window;
    const bool isDrag = state.range(0) == 1;
    std::minstd_rand random(1);
    std::vector<double> times;
    unsigned long step = 0;
    for (auto _ : state) {
        step = isDrag ? step + 1 : random();
        const auto width = static_cast<double>(300 + step * 3 % 1700);
        const auto height = static_cast<double>(200 + step % 1200);
        const auto begin = Clock::now();
        window.resize(width, height);
        benchmark::DoNotOptimize(window.sumOfValues());
        times.push_back(std::chrono::duration<double, std::micro>(Clock::now() - begin).count());
    }
    std::sort(times.begin(), times.end());
    state.counters["median"] = times[times.size() / 2];
    state.counters["p99"] = times[times.size() * 99 / 100];
    state.counters["max"] = times.back();
}
BENCHMARK(layoutResize)
    ->ArgName("drag")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();

/// Every view of the window wants another width.
void layoutHints(benchmark::State& state) {
    Window window;
    int round = 0;
    for (auto _ : state) {
        ++round;
        for (int view = 0; view < rows * columns; ++view) {
            window.setHint(view, 40 + (view * 7 + round * 13) % 60);
        }
        benchmark::DoNotOptimize(window.sumOfValues());
    }
}
BENCHMARK(layoutHints)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace marquell::bench
