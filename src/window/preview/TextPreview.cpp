// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/TextPreview.h"

#include <QShortcut>
#include <utility>

#include "toolkit/look/ColorRole.h"
#include "window/preview/FindBar.h"
#include "window/preview/TextFinder.h"
#include "window/preview/TextOutputView.h"

namespace marquell::window {

using namespace toolkit;
using enum LayoutAttribute;

namespace {

constexpr double lineWidth = 1;
constexpr double findBarHeight = 36;

}  // namespace

TextPreview::TextPreview(QWidget* parent)
    : Wall(parent), textOutputTextView_(new TextOutputView), findBar_(new FindBar) {
    backgroundDrawingFunc = [this](QPainter& painter, const QRectF& frame) {
        // The lines at top and bottom are what the views on it leave.
        painter.fillRect(frame, color(ColorRole::headerLine, this));
    };
    factory().internalAddBrick(textOutputTextView_, [](LayoutConstraintMaker& make) {
        make.container().pin(left, left, 0).pin(right, right, 0).pin(top, top, lineWidth);
        make.container().pin(bottom, bottom, -lineWidth).lowPriority();
    });
    factory().internalAddBrick(findBar_, [this](LayoutConstraintMaker& make) {
        make.height(findBarHeight).andView(textOutputTextView_).pin(top, bottom, 0);
        make.container().pin(left, left, 0).pin(right, right, 0).pin(bottom, bottom, -lineWidth);
    });
    findBar_->hide();
    finder_ = std::make_unique<TextFinder>(*textOutputTextView_, *findBar_);
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, [this] { finder_->close(); });
}

TextPreview::~TextPreview() = default;

void TextPreview::showText(std::shared_ptr<const platform::LinedText> text) {
    textOutputTextView_->setText(std::move(text));
}

void TextPreview::showMessage(const QString& message) { textOutputTextView_->setMessage(message); }

void TextPreview::find() { finder_->open(); }

void TextPreview::findNext() { finder_->next(); }

void TextPreview::findPrevious() { finder_->previous(); }

}  // namespace marquell::window
