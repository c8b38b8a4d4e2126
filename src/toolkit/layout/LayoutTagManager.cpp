// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/layout/LayoutTagManager.h"

#include <algorithm>

namespace marquell::toolkit {
namespace {

/// Appends the views at and below `view`, parents before children.
void collectViews(QWidget* view, std::vector<QWidget*>& views) {
    views.push_back(view);
    for (QObject* child : view->children()) {
        if (child->isWidgetType()) collectViews(static_cast<QWidget*>(child), views);
    }
}

}  // namespace

LayoutTagManager::~LayoutTagManager() {
    for (const auto& [view, tagged] : tagsByView_) QObject::disconnect(tagged.whenGone);
}

void LayoutTagManager::registerView(QWidget* view, const LayoutTag& tag) {
    const auto [found, isNew] = tagsByView_.try_emplace(view);
    if (isNew) {
        found->second.whenGone =
            QObject::connect(view, &QObject::destroyed, [this, view] { tagsByView_.erase(view); });
    }
    auto& tags = found->second.tags;
    if (std::find(tags.begin(), tags.end(), tag) == tags.end()) tags.push_back(tag);
}

std::optional<std::vector<LayoutTag>> LayoutTagManager::layoutTags(const QWidget* forView) const {
    const auto found = tagsByView_.find(forView);
    if (found == tagsByView_.end()) return std::nullopt;
    return found->second.tags;
}

QWidget* LayoutTagManager::firstViewWithTag(QWidget* anchored, const LayoutTag& tag) const {
    const auto all = allWithTag(anchored, tag);
    return all.empty() ? nullptr : all.front();
}

std::vector<QWidget*> LayoutTagManager::allWithTag(QWidget* anchored, const LayoutTag& tag) const {
    std::vector<QWidget*> views;
    collectViews(anchored, views);
    std::erase_if(views, [&](const QWidget* view) {
        const auto found = tagsByView_.find(view);
        if (found == tagsByView_.end()) return true;
        const auto& tags = found->second.tags;
        return std::find(tags.begin(), tags.end(), tag) == tags.end();
    });
    return views;
}

std::array<QWidget*, 2> LayoutTagManager::extract(QWidget* anchored, const LayoutTag& tag1,
                                                  const LayoutTag& tag2) const {
    return {firstViewWithTag(anchored, tag1), firstViewWithTag(anchored, tag2)};
}

std::array<QWidget*, 3> LayoutTagManager::extract(QWidget* anchored, const LayoutTag& tag1,
                                                  const LayoutTag& tag2,
                                                  const LayoutTag& tag3) const {
    return {firstViewWithTag(anchored, tag1), firstViewWithTag(anchored, tag2),
            firstViewWithTag(anchored, tag3)};
}

std::array<QWidget*, 4> LayoutTagManager::extract(QWidget* anchored, const LayoutTag& tag1,
                                                  const LayoutTag& tag2, const LayoutTag& tag3,
                                                  const LayoutTag& tag4) const {
    return {firstViewWithTag(anchored, tag1), firstViewWithTag(anchored, tag2),
            firstViewWithTag(anchored, tag3), firstViewWithTag(anchored, tag4)};
}

}  // namespace marquell::toolkit
