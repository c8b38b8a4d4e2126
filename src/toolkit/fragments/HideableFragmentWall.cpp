// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/fragments/HideableFragmentWall.h"

#include <utility>
#include <variant>

#include "toolkit/fragments/FragmentStackView.h"

namespace marquell::toolkit {
namespace {

bool holdsTrue(const platform::UserDefaults& defaults, const std::string& key) {
    const auto value = defaults.object(key);
    const bool* truth = value ? std::get_if<bool>(&*value) : nullptr;
    return truth != nullptr && *truth;
}

/// Has the view fill the fragment but for `topInset` points above it.
void embed(QWidget* view, HideableFragmentWall& fragment, double topInset) {
    fragment.factory().internalAddBrick(view, [&](LayoutConstraintMaker& make) {
        auto around = make.container();
        around.pin(SmartLayoutDirectionsType::left, 0).pin(SmartLayoutDirectionsType::right, 0);
        around.pin(SmartLayoutDirectionsType::top, topInset)
            .pin(SmartLayoutDirectionsType::bottom, 0);
    });
}

}  // namespace

HideableFragmentWall::HideableFragmentWall(std::shared_ptr<platform::UserDefaults> defaults,
                                           QWidget* parent)
    : FragmentWall(parent), defaults_(std::move(defaults)) {}

void HideableFragmentWall::configure(const std::string& storageKey,
                                     std::optional<bool> initialValue) {
    storageKeys = {storageKey};
    initialValues = {initialValue};
    shouldHideExpression = [defaults = defaults_](const StorageKeys& keys) {
        return holdsTrue(*defaults, keys.front());
    };
}

void HideableFragmentWall::install(FragmentStackView* parentStackView) {
    parentStackView_ = parentStackView;
    registerInitialValues();
    kvoResponders_.clear();
    for (const std::string& key : storageKeys) {
        kvoResponders_.push_back(std::make_unique<variables::KVOResponder>(
            key, defaults_, false, [this](auto&, const auto&) { updateVisibility(); }));
    }
    if (shouldHideExpression(storageKeys)) parentStackView_->hideFragment(this);
}

void HideableFragmentWall::registerInitialValues() const {
    for (std::size_t i = 0; i < storageKeys.size() && i < initialValues.size(); ++i) {
        if (!initialValues[i]) continue;
        defaults_->registerDefault(storageKeys[i], *initialValues[i]);
        defaults_->synchronize();
    }
}

void HideableFragmentWall::updateVisibility() {
    if (parentStackView_ == nullptr) return;
    if (shouldHideExpression(storageKeys)) {
        parentStackView_->hideFragment(this);
    } else {
        parentStackView_->showFragment(this);
    }
}

HideableFragmentWall* HideableFragmentWall::embedViewInHideableFragment(
    QWidget* view, const std::string& storageKey, bool isHiddenByDefault, double withOffset,
    std::shared_ptr<platform::UserDefaults> defaults) {
    auto* fragment = new HideableFragmentWall(std::move(defaults));
    fragment->configure(storageKey, isHiddenByDefault);
    embed(view, *fragment, withOffset);
    return fragment;
}

HideableFragmentWall* HideableFragmentWall::embedViewInHideableFragment(
    QWidget* view, StorageKeys storageKeys, InitialValues initialValues,
    ShouldHideExpression shouldHideWhen, std::shared_ptr<platform::UserDefaults> defaults) {
    auto* fragment = new HideableFragmentWall(std::move(defaults));
    fragment->storageKeys = std::move(storageKeys);
    fragment->initialValues = std::move(initialValues);
    fragment->shouldHideExpression = std::move(shouldHideWhen);
    embed(view, *fragment, 0);
    return fragment;
}

}  // namespace marquell::toolkit
