// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <array>
#include <optional>
#include <unordered_map>
#include <vector>

#include "toolkit/layout/LayoutTag.h"

namespace marquell::toolkit {

/// Finds views by their tags. A view that goes away takes its tags along. Look-ups go through the
/// views below an anchor, the anchor itself first, in the order of their making, parents before
/// children.
class LayoutTagManager {
public:
    LayoutTagManager() = default;
    LayoutTagManager(const LayoutTagManager&) = delete;
    LayoutTagManager& operator=(const LayoutTagManager&) = delete;
    ~LayoutTagManager();

    /// `view` has the tag from now on, beside those that it has; the same tag twice counts once.
    void registerView(QWidget* view, const LayoutTag& tag);

    /// Absent for a view that was never registered.
    std::optional<std::vector<LayoutTag>> layoutTags(const QWidget* forView) const;

    QWidget* firstViewWithTag(QWidget* anchored, const LayoutTag& tag) const;
    std::vector<QWidget*> allWithTag(QWidget* anchored, const LayoutTag& tag) const;

    /// The first views of two, three or four tags; null for a tag that no view has.
    std::array<QWidget*, 2> extract(QWidget* anchored, const LayoutTag& tag1,
                                    const LayoutTag& tag2) const;
    std::array<QWidget*, 3> extract(QWidget* anchored, const LayoutTag& tag1, const LayoutTag& tag2,
                                    const LayoutTag& tag3) const;
    std::array<QWidget*, 4> extract(QWidget* anchored, const LayoutTag& tag1, const LayoutTag& tag2,
                                    const LayoutTag& tag3, const LayoutTag& tag4) const;

private:
    struct TaggedView {
        std::vector<LayoutTag> tags;
        QMetaObject::Connection whenGone;
    };
    std::unordered_map<const QWidget*, TaggedView> tagsByView_;
};

}  // namespace marquell::toolkit
