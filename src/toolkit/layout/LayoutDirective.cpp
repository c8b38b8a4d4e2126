// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/LayoutDirective.h"

#include <utility>

namespace marquell::toolkit {

void LayoutDirective::appendTo(std::vector<const LayoutDirective*>& directives) const {
    directives.push_back(this);
}

LayoutClosureDirective::LayoutClosureDirective(LayoutClosure closure)
    : closure_(std::move(closure)) {}

void LayoutClosureDirective::apply(LayoutConstraintMaker& make) const { closure_(make); }

LayoutDirectiveList::LayoutDirectiveList(
    std::vector<std::shared_ptr<const LayoutDirectiveConvertible>> elements)
    : elements_(std::move(elements)) {}

void LayoutDirectiveList::appendTo(std::vector<const LayoutDirective*>& directives) const {
    for (const auto& element : elements_) element->appendTo(directives);
}

LayoutClosure closureOf(std::shared_ptr<const LayoutDirectiveConvertible> directives) {
    return [directives = std::move(directives)](LayoutConstraintMaker& make) {
        std::vector<const LayoutDirective*> statements;
        directives->appendTo(statements);
        for (const auto* statement : statements) statement->apply(make);
    };
}

}  // namespace marquell::toolkit
