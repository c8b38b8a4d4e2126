// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "toolkit/layout/LayoutConstraintMaker.h"

namespace marquell::toolkit {

class LayoutDirective;

/// Anything that can stand where statements of the layout are asked for.
class LayoutDirectiveConvertible {
public:
    virtual ~LayoutDirectiveConvertible() = default;
    /// Appends the directives that this stands for.
    virtual void appendTo(std::vector<const LayoutDirective*>& directives) const = 0;
};

/// One statement of the layout as data, which can be applied to any number of views.
class LayoutDirective : public LayoutDirectiveConvertible {
public:
    virtual void apply(LayoutConstraintMaker& make) const = 0;
    void appendTo(std::vector<const LayoutDirective*>& directives) const override;
};

/// A statement in the words of the maker.
class LayoutClosureDirective : public LayoutDirective {
public:
    explicit LayoutClosureDirective(LayoutClosure closure);
    void apply(LayoutConstraintMaker& make) const override;

private:
    LayoutClosure closure_;
};

/// Statements in their order; lists may hold lists.
class LayoutDirectiveList : public LayoutDirectiveConvertible {
public:
    explicit LayoutDirectiveList(
        std::vector<std::shared_ptr<const LayoutDirectiveConvertible>> elements);
    void appendTo(std::vector<const LayoutDirective*>& directives) const override;

private:
    std::vector<std::shared_ptr<const LayoutDirectiveConvertible>> elements_;
};

/// A closure that applies all directives in order, for those who ask for one.
LayoutClosure closureOf(std::shared_ptr<const LayoutDirectiveConvertible> directives);

}  // namespace marquell::toolkit
