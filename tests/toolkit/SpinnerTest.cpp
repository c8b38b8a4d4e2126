// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAccessible>

#include "shell/EventLoop.h"
#include "toolkit/bricks/Spinner.h"

namespace marquell::toolkit {
namespace {

class CountedSpinner : public Spinner {
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override {
        ++paints;
        Spinner::paintEvent(event);
    }
};

TEST(Spinner, TurnsOnlyWhileStartedAndSeen) {
    CountedSpinner spinner;
    const auto turns = [&spinner] {
        tests::runFor(std::chrono::milliseconds(50));  // past what showing and hiding paint
        const int before = spinner.paints;
        const auto hasTurned = [&] { return spinner.paints > before + 1; };
        return tests::waitUntil(hasTurned, std::chrono::milliseconds(600));
    };
    spinner.startAnimation();
    spinner.show();
    EXPECT_TRUE(turns());
    spinner.hide();
    EXPECT_FALSE(turns());
    spinner.show();
    EXPECT_TRUE(turns()) << "goes on by itself";
    spinner.stopAnimation();
    EXPECT_FALSE(turns());
    spinner.hide();
    spinner.show();
    EXPECT_FALSE(turns()) << "not started";

    const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&spinner);
    EXPECT_EQ(accessible->role(), QAccessible::Animation);
    EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty());
}

}  // namespace
}  // namespace marquell::toolkit
