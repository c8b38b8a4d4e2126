// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "platform/LinedText.h"
#include "toolkit/walls/Wall.h"

namespace marquell::window {

class FindBar;
class TextFinder;
class TextOutputView;

/// The output as text, with a bar to find things in it that opens at its lower edge.
class TextPreview : public toolkit::Wall {
public:
    explicit TextPreview(QWidget* parent = nullptr);
    ~TextPreview() override;

    /// Shows a finished text from the line on that was the first to be seen in the one before.
    void showText(std::shared_ptr<const platform::LinedText> text);
    /// Shows a word in place of the text, which stays out of searches and the clipboard.
    void showMessage(const QString& message);

    TextOutputView* textOutputTextView() const { return textOutputTextView_; }

    // What a menu offers.
    void find();
    void findNext();
    void findPrevious();

private:
    TextOutputView* textOutputTextView_;
    FindBar* findBar_;
    std::unique_ptr<TextFinder> finder_;
};

}  // namespace marquell::window
