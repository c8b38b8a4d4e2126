// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "window/StatusText.h"

namespace marquell::tests {
namespace {

using enum pipeline::OutputOperationTypeEnum;

struct Case {
    pipeline::OutputEngineViewModel model;
    int cycle;
    const char* text;
};

TEST(StatusText, TellsStageAndCountsInTheUsersNumbers) {
    const Case cases[] = {
        {{.activeStage = scanning, .currentItemProcessing = 12345, .totalItemProcessing = 12345},
         0,
         "12,345 items scanned... (12,345 items | 0 metadata items). "},
        {{.activeStage = scanning, .currentNumberOfItems = 7, .indeterminateProgress = true},
         0,
         "Sorting items. (7 items | 0 metadata items). "},
        {{.activeStage = resorting}, 3, "Sorting items.... (0 items | 0 metadata items). "},
        {{.activeStage = computingOutput,
          .currentNumberOfMetadataItems = 1000,
          .currentNumberOfItems = 40,
          .currentItemProcessing = 3,
          .totalItemProcessing = 20},
         1,
         "Computing output (3/40)... (40 items | 1,000 metadata items). "},
        {{.currentNumberOfItems = 1}, 2, "Ready. (1 items | 0 metadata items). "},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(window::statusText(each.model, each.cycle, QLocale(QLocale::English)),
                  QString::fromUtf8(each.text));
    }
    const pipeline::OutputEngineViewModel many{.currentNumberOfItems = 1044};
    EXPECT_TRUE(
        window::statusText(many, 0, QLocale(QLocale::German)).contains(QStringLiteral("1.044")));
}

}  // namespace
}  // namespace marquell::tests
