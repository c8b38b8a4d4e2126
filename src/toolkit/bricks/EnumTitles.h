// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <vector>

namespace marquell::toolkit {

/// What a control offers of an enumeration. Specialised for each that is offered somewhere, with a
/// static `cases()` that gives the cases in their order with their titles in the user's language.
template <typename Enumeration>
struct EnumTitles;

template <typename Enumeration>
struct TitledCase {
    Enumeration value;
    QString title;
};

/// Fills a binding of popups with the cases of an enumeration.
template <typename Enumeration>
class EnumPopupButtonConfigurator {
public:
    template <typename PopUpBinding>
    void configure(PopUpBinding& binding) const {
        const std::vector<TitledCase<Enumeration>> cases = EnumTitles<Enumeration>::cases();
        for (const auto& each : cases) binding.addItem(each.title, each.value);
    }
};

}  // namespace marquell::toolkit
