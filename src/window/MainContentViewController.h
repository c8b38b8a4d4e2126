// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <memory>
#include <utility>

#include "lists/tables/ColumnListTableViewController.h"
#include "lists/tables/SourceListTableViewController.h"
#include "lists/tables/TagListTableViewController.h"
#include "pipeline/DataModel.h"
#include "pipeline/OutputEngine.h"
#include "pipeline/OutputEngineDisplay.h"
#include "shell/SmartTimerWrapper.h"
#include "toolkit/walls/NiblessViewController.h"
#include "window/preview/PreviewTableViewController.h"

namespace marquell::toolkit {
class FragmentStackView;
class FragmentWall;
class Label;
class PopUpButtonBrick;
class PushButtonBrick;
class Spinner;
class TabWall;
}  // namespace marquell::toolkit

namespace marquell::window {

class InfoPaneViewController;
class MarquellSplitView;
struct OptionPanel;
class ParameterScrollView;
class StatusLine;
class TextPreview;

/// All that is in the main window: on the left the parameters of the list, on the right what comes
/// of them. It writes settings and shows what the engine tells; it computes nothing of a list.
class MainContentViewController : public toolkit::NiblessViewController,
                                  public pipeline::OutputEngineDisplay {
public:
    /// Model and engine have to outlive it. It is the engine's display from build() on.
    MainContentViewController(pipeline::DataModel& dataModel, pipeline::OutputEngine& outputEngine);
    ~MainContentViewController() override;

    void build() override;

    /// Asks the user for files and folders and makes them sources.
    void addSource();
    /// Adds paths that came from elsewhere; says so if some are refused.
    void addSources(const std::vector<std::string>& paths);
    /// Empties the list of sources.
    void clearSources();
    /// What the action button does.
    void performAction();

    /// Shows, or no longer, where files go that are about to be dropped.
    void showFileDrop(bool isShown);

    /// Collapses the info pane, or brings it back.
    void toggleInfoPane();
    /// Writes the info pane's height and whether it is collapsed to the settings. To be called at
    /// the end, while the views are still there.
    void saveInfoPaneState();

    /// Whether the window is minimised: nothing is refreshed meanwhile.
    void setMinimized(bool isMinimized);

    /// What the keyboard goes to at first.
    QWidget* firstKeyView() const;

    // OutputEngineDisplay
    void showWaitingText(const std::string& text) override;
    void showText(std::shared_ptr<const platform::LinedText> text, bool maySave) override;
    void setMaySave(bool maySave) override;
    std::optional<std::string> showSaveDialog(const pipeline::SaveOffer& offer) override;
    void updateTable(std::shared_ptr<const pipeline::FlatFileList> flatFileList) override;

protected:
    void viewDidAppear() override;
    void viewDidDisappear() override;

private:
    using FragmentAndLabel = std::pair<toolkit::FragmentWall*, toolkit::Label*>;

    // The left side
    void buildParameterWall();
    void buildParameterStackView();
    FragmentAndLabel createPreConfiguredFragment(const char* title);
    toolkit::FragmentWall* createFragment();
    toolkit::FragmentWall* createSeparatorFragment();
    void createSourceFragment();
    void addSourceButtons(QWidget* list);
    void createProcessFragment();
    void createSortingFragment();
    void createColumnsFragment();
    void createOutputFragment();
    toolkit::FragmentWall* createOptionsFragment(const OptionPanel& panel);
    void showOptionsOf(pipeline::OutputFormatIndexEnum format);

    // The right side
    void buildRightSide();
    void createActionButton();
    void createStatusLine();
    toolkit::FragmentWall* createRightFragment();
    void createTagFragment();
    void createPreviewFragment();
    void createModeControl(toolkit::FragmentWall& fragment);
    void createTabs(toolkit::FragmentWall& fragment);
    void createFilePreview();
    void showColumnDrop(bool isShown);
    void createFindShortcuts();
    void createWaitView();
    void selectTab(int index);
    void updateActionButton();

    void setTimer();
    void tick();

    /// Calls `react` with the variable's value, now and at each change, as long as this lives.
    template <typename Variable, typename React>
    void follow(Variable& variable, React react) {
        variable.addHotListener([weak = std::weak_ptr(alive_), react](const auto& value) {
            if (!weak.expired()) react(value);
        });
    }

    pipeline::DataModel& dataModel_;
    pipeline::OutputEngine& outputEngine_;
    const std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);

    // Views are owned by their walls.
    toolkit::Wall* parameterWall_ = nullptr;
    toolkit::Wall* rightSideWall_ = nullptr;
    toolkit::FragmentStackView* parameterStackView_ = nullptr;
    toolkit::FragmentStackView* rightStackView_ = nullptr;
    toolkit::FragmentWall* csvOutputOptionsFragment_ = nullptr;
    toolkit::FragmentWall* jsonOutputOptionsFragment_ = nullptr;
    toolkit::FragmentWall* htmlOutputOptionsFragment_ = nullptr;
    toolkit::FragmentWall* copyToExcelOptionsFragment_ = nullptr;
    toolkit::PushButtonBrick* addButton_ = nullptr;
    toolkit::PushButtonBrick* saveButton_ = nullptr;
    toolkit::TabWall* rightTabWall_ = nullptr;
    toolkit::Wall* waitPreviewWall_ = nullptr;
    toolkit::Wall* filePreviewWall_ = nullptr;
    toolkit::Wall* textPreviewWall_ = nullptr;
    MarquellSplitView* splitView_ = nullptr;
    TextPreview* textPreview_ = nullptr;
    StatusLine* statusLine_ = nullptr;
    /// What has got the keyboard from the action button while that is disabled.
    QPointer<QWidget> focusMeanwhile_;

    std::unique_ptr<lists::SourceListTableViewController> sourceListTableViewController_;
    std::unique_ptr<lists::ColumnListTableViewController> columnsListTableViewController_;
    std::unique_ptr<lists::TagListTableViewController> tagListTableViewController_;
    std::unique_ptr<PreviewTableViewController> previewTableViewController_;
    std::unique_ptr<InfoPaneViewController> infoPaneViewController_;
    std::unique_ptr<shell::SmartTimerWrapper> windowUITimer_;
    bool isOnScreen_ = false;
    bool isMinimized_ = false;
};

}  // namespace marquell::window
