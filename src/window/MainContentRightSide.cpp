// SPDX-License-Identifier: GPL-3.0-or-later
// The previews of the list, the status line and the action button.
#include <QKeySequence>
#include <QShortcut>

#include "toolkit/bricks/Label.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/bricks/SegmentedControlBrick.h"
#include "toolkit/bricks/Spinner.h"
#include "toolkit/drawing/MarquellStyleKit.h"
#include "toolkit/fragments/FragmentStackView.h"
#include "toolkit/fragments/FragmentWall.h"
#include "toolkit/layout/ViewMeasures.h"
#include "toolkit/look/ButtonRole.h"
#include "toolkit/walls/TabWall.h"
#include "window/MainContentViewController.h"
#include "window/StatusLine.h"
#include "window/Text.h"
#include "window/info/InfoPaneViewController.h"
#include "window/info/MarquellSplitView.h"
#include "window/preview/PreviewTableDragDestinationWall.h"
#include "window/preview/TextPreview.h"

namespace marquell::window {

using namespace toolkit;
using enum LayoutAttribute;

namespace {

constexpr double roomBelow = -38;  // for the action button and the status line
constexpr double leastButtonWidth = 72;
constexpr double tagBandHeight = 200;
constexpr double tagTableWidth = 400;
constexpr double modesTop = 6;
constexpr double tabsTop = 35;

/// A wall on the ground of the role, in whatever mode.
template <typename Kind>
Kind* onGround(Kind* wall, ColorRole role) {
    wall->backgroundDrawingFunc = [wall, role](QPainter& painter, const QRectF& frame) {
        painter.fillRect(frame, color(role, wall));
    };
    return wall;
}

TemplateImage icon(void (*draw)(QPainter&, const QRectF&, const QColor&, ResizingBehavior)) {
    return [draw](QPainter& painter, const QRectF& box, const QColor& color) {
        draw(painter, box, color, ResizingBehavior::aspectFit);
    };
}

}  // namespace

void MainContentViewController::buildRightSide() {
    onGround(rightSideWall_, ColorRole::page);
    rightStackView_ = new FragmentStackView;
    rightStackView_->setInheritsFlipped(true);
    rightStackView_->setSpacing(2);
    rightSideWall_->factory().internalAddBrick(rightStackView_, [](LayoutConstraintMaker& make) {
        make.container()
            .pin(left, left, 0)
            .pin(right, right, 0)
            .pin(top, top, 0)
            .pin(bottom, bottom, roomBelow);
    });
    createTagFragment();
    createPreviewFragment();
    createActionButton();
    createStatusLine();
    follow(*dataModel_.previewTabIndex, [this](int index) { selectTab(index); });
    follow(*dataModel_.outputFormat, [this](auto) { updateActionButton(); });
}

/// As wide as the right side.
FragmentWall* MainContentViewController::createRightFragment() {
    auto* fragment = new FragmentWall;
    rightStackView_->addFragment(fragment);
    LayoutConstraintMaker make(fragment);
    make.container().pin(right, right, 0);
    addConstraints(rightStackView_, make.constraints);
    for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
        setContentHuggingPriority(fragment, orientation, LayoutPriority::high);
        setContentCompressionResistancePriority(fragment, orientation, LayoutPriority::low);
    }
    return fragment;
}

/// The catalogue of columns above the preview.
void MainContentViewController::createTagFragment() {
    FragmentWall* const fragment = onGround(createRightFragment(), ColorRole::tagBand);
    LayoutConstraintMaker make(fragment);
    make.height(tagBandHeight);
    addConstraints(rightStackView_, make.constraints);
    tagListTableViewController_ =
        makeController<lists::TagListTableViewController>(dataModel_.columnList);
    fragment->factory().internalAddBrick(
        tagListTableViewController_->view(), [](LayoutConstraintMaker& inside) {
            inside.width(tagTableWidth);
            inside.container().place(left, left).place(top, top).place(bottom, bottom);
        });
    follow(*dataModel_.showTagTableView, [this, fragment](bool isShown) {
        rightStackView_->setVisibilityPriority(
            isShown ? VisibilityPriority::detachOnlyIfNecessary : VisibilityPriority::notVisible,
            fragment);
    });
}

void MainContentViewController::createPreviewFragment() {
    FragmentWall* const fragment = createRightFragment();
    createModeControl(*fragment);
    createTabs(*fragment);
}

void MainContentViewController::createModeControl(FragmentWall& fragment) {
    auto* modes =
        new SegmentedControlBrick({localizedText("Preview Table", "segmented control title"),
                                   localizedText("Text Output", "segmented control title")});
    modes->setAccessibleName(localizedText("Preview", "segmented control title"));
    modes->setImage(icon(MarquellStyleKit::drawTablePreviewIconMini), 0);
    modes->setImage(icon(MarquellStyleKit::drawTextOutputIconMini), 1);
    modes->selectionChangedFunction = [this](int index) {
        dataModel_.previewMode->setValue(index);
    };
    fragment.factory().internalAddBrick(modes, [](LayoutConstraintMaker& make) {
        make.container().pin(centerX, centerX, 0).pin(top, top, modesTop);
    });
    follow(*dataModel_.previewMode, [modes](int mode) { modes->selectSegment(mode); });
}

void MainContentViewController::createTabs(FragmentWall& fragment) {
    rightTabWall_ = fragment.factory().tabWall([](LayoutConstraintMaker& make) {
        make.container()
            .pin(left, left, 1)
            .pin(right, right, 0)
            .pin(top, top, tabsTop)
            .pin(bottom, bottom, 0);
    });
    waitPreviewWall_ = rightTabWall_->createNewWall();
    filePreviewWall_ = rightTabWall_->createNewWall();
    textPreviewWall_ = rightTabWall_->createNewWall();
    createWaitView();
    createFilePreview();
    textPreview_ = new TextPreview;
    textPreviewWall_->factory().internalAddBrick(
        textPreview_, [](LayoutConstraintMaker& make) { make.fillContainer(); });
    createFindShortcuts();
}

/// The list as a table, and below it what is known of the selected row.
void MainContentViewController::createFilePreview() {
    previewTableViewController_ = makeController<PreviewTableViewController>(dataModel_);
    infoPaneViewController_ = makeController<InfoPaneViewController>(dataModel_);
    InfoPaneViewController* const infoPane = infoPaneViewController_.get();
    previewTableViewController_->selectionChanged = [infoPane](auto node) {
        infoPane->setCurrentNode(std::move(node));
    };
    const auto draggedIds = [infoPane] { return infoPane->obtainDraggedColumnIds(); };
    columnsListTableViewController_->obtainDraggedColumnIds = draggedIds;
    auto* dragWall = new PreviewTableDragDestinationWall(dataModel_.columnList);
    dragWall->obtainDraggedColumnIds = draggedIds;
    dragWall->showDrop = [this](bool isShown) { showColumnDrop(isShown); };
    dragWall->fillWallWith(*previewTableViewController_);
    dragWall->setFocusProxy(previewTableViewController_->tableView());
    splitView_ =
        new MarquellSplitView(dragWall, infoPane->view(), dataModel_.infoPaneHeight->value(),
                              dataModel_.infoPaneIsCollapsed->value());
    filePreviewWall_->factory().internalAddBrick(
        splitView_, [](LayoutConstraintMaker& make) { make.fillContainer(); });
    auto* toggle = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_I), view());
    connect(toggle, &QShortcut::activated, this, &MainContentViewController::toggleInfoPane);
}

/// Columns that are dropped on the preview go to the end of the list.
void MainContentViewController::showColumnDrop(bool isShown) {
    CellTable* const columns = columnsListTableViewController_->tableView();
    columns->showDropGap(isShown ? columns->model()->rowCount() : -1);
}

/// They are in force while the page of the text shows, whatever has the keyboard.
void MainContentViewController::createFindShortcuts() {
    const std::pair<QKeySequence::StandardKey, void (TextPreview::*)()> shortcuts[] = {
        {QKeySequence::Find, &TextPreview::find},
        {QKeySequence::FindNext, &TextPreview::findNext},
        {QKeySequence::FindPrevious, &TextPreview::findPrevious}};
    for (const auto& [key, action] : shortcuts) {
        connect(new QShortcut(key, textPreviewWall_), &QShortcut::activated, textPreview_, action);
    }
}

void MainContentViewController::createWaitView() {
    auto* inner = waitPreviewWall_->createCenteredWallInside();
    auto* spinner = new Spinner;
    inner->factory().internalAddBrick(spinner, [](LayoutConstraintMaker& make) {
        make.container().place(left, left).place(top, top).place(bottom, bottom);
    });
    inner->factory().label(localizedText("Waiting...", "label"), [&](LayoutConstraintMaker& make) {
        make.andView(spinner).place(left, right).pin(centerY, centerY, 0);
        make.container().pin(right, right, 0);
    });
    spinner->startAnimation();  // it rests while its page is not to be seen
}

void MainContentViewController::selectTab(int index) {
    Wall* const walls[] = {waitPreviewWall_, filePreviewWall_, textPreviewWall_};
    if (index < 0 || index >= static_cast<int>(std::size(walls))) return;
    if (!rightTabWall_->isCurrentWall(walls[index])) rightTabWall_->switchToWall(walls[index]);
}

void MainContentViewController::createActionButton() {
    saveButton_ = new PushButtonBrick(QString(), [this] { performAction(); });
    setButtonRole(saveButton_, ButtonRole::accent);
    saveButton_->setEnabled(false);
    setContentHuggingPriority(saveButton_, Qt::Horizontal, LayoutPriority::high);
    rightSideWall_->factory().internalAddBrick(saveButton_, [](LayoutConstraintMaker& make) {
        make.minWidth(leastButtonWidth);
        make.container().place(right, right).place(bottom, bottom);
    });
    // A button has one shortcut only, and there are two such keys.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(QKeySequence(key), view());
        shortcut->setAutoRepeat(false);  // or a key that is held would answer the dialog, too
        connect(shortcut, &QShortcut::activated, saveButton_, &QAbstractButton::click);
    }
}

void MainContentViewController::createStatusLine() {
    statusLine_ = new StatusLine;
    statusLine_->setText(localizedText("Waiting...", "status line message"));
    rightSideWall_->factory().internalAddBrick(statusLine_, [this](LayoutConstraintMaker& make) {
        make.container().place(left, left);
        make.andView(saveButton_).pin(firstBaseline, firstBaseline, 0).place(right, left);
        make.andView(saveButton_).height(0);
    });
}

void MainContentViewController::updateActionButton() {
    saveButton_->setTitle(
        QString::fromStdString(outputEngine_.currentOutputFormat().actionButtonTitle()));
}

}  // namespace marquell::window
