// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QValidator>
#include <cstdint>
#include <optional>

namespace marquell::toolkit {

/// Lets whole numbers up to the maximum be typed. The minimum does not hinder the typing, for one
/// gets to it digit by digit; the field sees to it when the user has done.
class IntegerValidatingNumberFormatter : public QValidator {
public:
    explicit IntegerValidatingNumberFormatter(QObject* parent = nullptr) : QValidator(parent) {}

    bool isPartialStringValid(const QString& partialString) const;
    State validate(QString& input, int& /*position*/) const override;

    std::optional<std::int64_t> minimum = 0;
    std::optional<std::int64_t> maximum;
};

/// A whole number in decimal digits, with an optional sign; absent if it is none or does not fit.
std::optional<std::int64_t> integerFrom(const QString& text);

}  // namespace marquell::toolkit
