// SPDX-License-Identifier: GPL-3.0-or-later
#include "GalleryWindow.h"

#include <QFontDatabase>
#include <QScrollArea>

#include "Sheet.h"
#include "Words.h"
#include "toolkit/bricks/Label.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/SmartMenuItem.h"
#include "toolkit/bricks/SwitchBrick.h"
#include "toolkit/layout/LayoutRoot.h"
#include "toolkit/look/Metrics.h"

namespace marquell::gallery {

using namespace toolkit;
using enum LayoutAttribute;

GalleryWindow::GalleryWindow()
    : scrollArea_(new QScrollArea),
      interfaceFont_(font()),
      monospacedFont_(QFontDatabase::systemFont(QFontDatabase::FixedFont)) {
    setWindowTitle(QStringLiteral("Marquell gallery"));
    LayoutRoot::install(this);
    auto* bar = makeBar();
    scrollArea_->setFrameShape(QFrame::NoFrame);
    scrollArea_->setWidgetResizable(true);
    BricksFactory factory;
    factory.containerView = factory.elementCreationTarget = this;
    factory.internalAddBrick(bar, [](auto& make) {
        make.height(40);
        make.container().pin(left, left, 0).pin(right, right, 0).pin(top, top, 0);
    });
    factory.internalAddBrick(scrollArea_, [&](auto& make) {
        make.minWidth(500).minHeight(300);
        make.andView(bar).pin(top, bottom, 0);
        make.container().pin(left, left, 0).pin(right, right, 0).pin(bottom, bottom, 0);
    });
}

Wall* GalleryWindow::makeBar() {
    auto* bar = new Wall;
    fillWith(bar, ColorRole::window);
    auto* label = bar->factory().label(QStringLiteral("Page:"), [](auto& make) {
        make.container().place(left, left).place(top, top);
    });
    pagePopUp_ = bar->factory().popupButton([&](auto& make) {
        make.andView(label).place(left, right).pin(firstBaseline, firstBaseline, 0);
    });
    label->setBuddy(pagePopUp_);
    for (const Page& page : pages()) {
        pagePopUp_->addItem(QString::fromUtf8(page.name))->actionFunc = [this, &page] {
            showPage(page);
        };
    }
    auto* darkLabel = bar->factory().label(QStringLiteral("Dark:"), [&](auto& make) {
        make.andView(pagePopUp_).pin(left, right, 24).pin(firstBaseline, firstBaseline, 0);
    });
    darkSwitch_ = new SwitchBrick;
    bar->factory().internalAddBrick(darkSwitch_, [&](auto& make) {
        make.andView(darkLabel).place(left, right).pin(centerY, centerY, 0);
    });
    darkLabel->setBuddy(darkSwitch_);
    darkSwitch_->setAccessibleName(QStringLiteral("Dark"));
    darkSwitch_->checkBoxChangeFunc = setSystemDark;
    return bar;
}

void GalleryWindow::showPage(const Page& page) {
    page_ = &page;
    for (std::size_t i = 0; i < pages().size(); ++i) {
        if (&pages()[i] == &page) pagePopUp_->selectItemAt(int(i));
    }
    applyFonts();
    setLongWords(page.longWords);
    auto* wall = new Wall;
    fillWith(wall, ColorRole::page);
    LayoutRoot::install(wall);
    page.build(*wall);
    scrollArea_->setWidget(wall);
    wall->setAutoFillBackground(false);
    scrollArea_->viewport()->setAutoFillBackground(false);
}

void GalleryWindow::setFonts(const QFont& interfaceFont, const QFont& monospacedFont) {
    interfaceFont_ = interfaceFont;
    monospacedFont_ = monospacedFont;
    applyFonts();
}

void GalleryWindow::applyFonts() const {
    const double scale = page_ && page_->textScale > 0 ? page_->textScale : 1;
    const auto scaled = [&](QFont font) {
        font.setPixelSize(qRound(scale * QFontInfo(font).pixelSize()));
        return font;
    };
    setInterfaceFonts(scaled(interfaceFont_), scaled(monospacedFont_));
}

void GalleryWindow::darkModeChanged() { darkSwitch_->setChecked(systemSurface() == Surface::dark); }

QWidget* GalleryWindow::page() const { return scrollArea_->widget(); }

}  // namespace marquell::gallery
