// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marquell::shell {

/// What logic asks for the time, so that it can run at another than the present.
class DateProviderAPI {
public:
    virtual ~DateProviderAPI() = default;

    /// Seconds since platform::referenceDate.
    virtual double currentTimeIntervalFromReferenceDate() const = 0;
};

}  // namespace marquell::shell
