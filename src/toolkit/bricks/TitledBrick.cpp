// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/bricks/TitledBrick.h"

#include <QIcon>
#include <QPointer>

namespace marquell::toolkit {
namespace {

class TitleProvider : public TextProviderType {
public:
    explicit TitleProvider(const QAbstractButton* button) : button_(button) {}
    QString getText() const override { return button_ ? textOfTitle(button_->text()) : QString(); }

private:
    const QPointer<const QAbstractButton> button_;
};

}  // namespace

std::shared_ptr<const TextProviderType> titleProviderOf(const QAbstractButton* button) {
    return std::make_shared<TitleProvider>(button);
}

std::vector<DrawingAsset> imageAndTitleOf(const QAbstractButton& button) {
    std::vector<DrawingAsset> assets;
    if (!button.icon().isNull()) {
        assets.emplace_back(button.icon().pixmap(button.iconSize(), button.devicePixelRatioF()));
    }
    assets.emplace_back(textOfTitle(button.text()));
    return assets;
}

}  // namespace marquell::toolkit
