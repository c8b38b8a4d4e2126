// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/UserDefaults.h"
#include "toolkit/fragments/FragmentWall.h"
#include "variables/KVOResponder.h"

namespace marquell::toolkit {

class FragmentStackView;

/// A fragment that its stack shows or hides by what keys of the user's settings hold. What decides
/// has to be set before install(). The keys are to be written on the main thread only.
class HideableFragmentWall : public FragmentWall {
public:
    using StorageKeys = std::vector<std::string>;
    using ShouldHideExpression = std::function<bool(const StorageKeys& storageKeys)>;
    /// One for each key; without a value the key's default is registered elsewhere.
    using InitialValues = std::vector<std::optional<bool>>;

    static constexpr auto NeverHide = [](const StorageKeys&) { return false; };

    explicit HideableFragmentWall(
        std::shared_ptr<platform::UserDefaults> defaults = platform::UserDefaults::standard(),
        QWidget* parent = nullptr);

    /// The fragment is hidden for as long as the key, which is its only one, holds true.
    void configure(const std::string& storageKey, std::optional<bool> initialValue);

    /// Registers the initial values, then shows or hides the fragment now and at each change of a
    /// key.
    void install(FragmentStackView* parentStackView) override;

    /// A new fragment around the view, hidden while the key holds true; `withOffset` points are
    /// left free above the view. The caller arranges the fragment.
    static HideableFragmentWall* embedViewInHideableFragment(
        QWidget* view, const std::string& storageKey, bool isHiddenByDefault, double withOffset,
        std::shared_ptr<platform::UserDefaults> defaults = platform::UserDefaults::standard());
    /// The same with any number of keys and a rule of its own.
    static HideableFragmentWall* embedViewInHideableFragment(
        QWidget* view, StorageKeys storageKeys, InitialValues initialValues,
        ShouldHideExpression shouldHideWhen,
        std::shared_ptr<platform::UserDefaults> defaults = platform::UserDefaults::standard());

    StorageKeys storageKeys;
    ShouldHideExpression shouldHideExpression = NeverHide;
    InitialValues initialValues;

private:
    void registerInitialValues() const;
    void updateVisibility();

    const std::shared_ptr<platform::UserDefaults> defaults_;
    QPointer<FragmentStackView> parentStackView_;
    std::vector<std::unique_ptr<variables::KVOResponder>> kvoResponders_;
};

}  // namespace marquell::toolkit
