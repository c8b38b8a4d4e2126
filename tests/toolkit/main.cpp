// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QApplication>

#include "toolkit/look/HouseStyle.h"

/// One application for all tests of a run, on no screen unless the environment names one.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    marquell::toolkit::furnish();
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
