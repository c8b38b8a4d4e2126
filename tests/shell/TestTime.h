// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/DateProviderAPI.h"

namespace marquell::tests {

/// Stands in for the system's clock. Seconds since platform::referenceDate.
class TestClock {
public:
    double currentTimeIntervalSinceReferenceDate = 0;
};

class TestDateProvider : public shell::DateProviderAPI {
public:
    double testCurrentTimeIntervalFromReferenceDate = 0;

    double currentTimeIntervalFromReferenceDate() const override {
        return testCurrentTimeIntervalFromReferenceDate;
    }
};

}  // namespace marquell::tests
