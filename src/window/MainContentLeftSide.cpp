// SPDX-License-Identifier: GPL-3.0-or-later
// The column of parameters.
#include <QScrollBar>

#include "toolkit/bricks/CheckBoxBrick.h"
#include "toolkit/bricks/DefaultsBinding.h"
#include "toolkit/bricks/Label.h"
#include "toolkit/bricks/PopUpButtonBrick.h"
#include "toolkit/bricks/PopUpButtonBrickBinding.h"
#include "toolkit/bricks/PullDownButtonBrick.h"
#include "toolkit/bricks/PushButtonBrick.h"
#include "toolkit/drawing/Brand.h"
#include "toolkit/drawing/MarquellStyleKit.h"
#include "toolkit/fragments/FragmentStackView.h"
#include "toolkit/fragments/FragmentWall.h"
#include "toolkit/layout/LayoutRoot.h"
#include "toolkit/layout/ViewMeasures.h"
#include "window/MainContentViewController.h"
#include "window/Text.h"
#include "window/column/ColumnMeasures.h"
#include "window/column/ColumnsMenu.h"
#include "window/column/OptionPanelBuilding.h"
#include "window/column/OutputFormatTitles.h"
#include "window/column/ParameterScrollView.h"
#include "window/column/SortMenu.h"

namespace marquell::window {

using namespace toolkit;
using enum LayoutAttribute;

namespace {

constexpr double logoHeight = 37;
constexpr double leastWallHeight = 600;

/// The blue ground with the logo, and a line below it once the column is scrolled.
void drawParameterWall(QPainter& painter, const QRectF& frame, const QWidget& wall,
                       bool isScrolled) {
    MarquellStyleKit::drawParameterWallBackground(painter, frame, frame);
    drawLogo(painter, logoFrame(frame));
    if (!isScrolled) return;
    const QRectF line(frame.x(), frame.y() + metrics().px(logoHeight) - 1, frame.width(), 1);
    painter.fillRect(line, color(ColorRole::scrollEdge, &wall));
}

/// A popup that takes what room there is.
PopUpButtonBrick* elasticPopUp() {
    auto* popUp = new PopUpButtonBrick;
    setContentCompressionResistancePriority(popUp, Qt::Horizontal, LayoutPriority::low);
    setContentHuggingPriority(popUp, Qt::Horizontal, LayoutPriority::lowest);
    return popUp;
}

Label* labelFor(const char* title, QWidget* control) {
    auto* label = standardLabel(localizedText(title, "label"));
    label->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    label->setBuddy(control);
    return label;
}

PushButtonBrick* miniButton(const char* title, std::function<void()> action) {
    auto* button = new PushButtonBrick(localizedText(title, "button title"), std::move(action));
    button->mini();
    return button;
}

}  // namespace

void MainContentViewController::buildParameterWall() {
    parameterWall_ = new Wall;
    parameterWall_->setObjectName(QStringLiteral("parameter wall"));
    setAppearance(parameterWall_, Appearance::column);
    view()->factory().internalAddBrick(parameterWall_, [](LayoutConstraintMaker& make) {
        make.width(parameterWidth).minHeight(leastWallHeight);
        make.container().pin(left, left, 0).pin(top, top, 0).pin(bottom, bottom, 0);
    });
}

void MainContentViewController::buildParameterStackView() {
    parameterStackView_ = new FragmentStackView;
    parameterStackView_->setInheritsFlipped(true);
    parameterStackView_->setSpacing(fragmentSpacing);
    LayoutRoot::install(parameterStackView_);
    auto* scrollView = new ParameterScrollView;
    parameterWall_->backgroundDrawingFunc = [wall = parameterWall_, scrollView](
                                                QPainter& painter, const QRectF& frame) {
        drawParameterWall(painter, frame, *wall, scrollView->isScrolled());
    };
    connect(scrollView->verticalScrollBar(), &QScrollBar::valueChanged, parameterWall_,
            [wall = parameterWall_] { wall->update(); });
    parameterWall_->factory().internalAddBrick(scrollView, [](LayoutConstraintMaker& make) {
        make.container()
            .pin(left, left, 0)
            .pin(right, right, 0)
            .pin(bottom, bottom, 0)
            .pin(top, top, logoHeight);
    });
    scrollView->setDocumentView(parameterStackView_);

    createSourceFragment();
    createSeparatorFragment();
    createProcessFragment();
    createSeparatorFragment();
    createSortingFragment();
    createSeparatorFragment();
    createColumnsFragment();
    createSeparatorFragment();
    createOutputFragment();
    csvOutputOptionsFragment_ = createOptionsFragment(csvOptions());
    jsonOutputOptionsFragment_ = createOptionsFragment(jsonOptions());
    htmlOutputOptionsFragment_ = createOptionsFragment(htmlOptions());
    copyToExcelOptionsFragment_ = createOptionsFragment(spreadsheetOptions());
    // The column ends here: its last separator keeps its place and draws no line.
    createSeparatorFragment()->backgroundDrawingFunc = {};
    follow(*dataModel_.outputFormat, [this](auto format) { showOptionsOf(format); });
}

FragmentWall* MainContentViewController::createFragment() {
    auto* fragment = new FragmentWall;
    fragment->backgroundDrawingFunc = [](QPainter& painter, const QRectF& frame) {
        MarquellStyleKit::drawFragmentTop(painter, frame);
    };
    parameterStackView_->addFragment(fragment);
    LayoutConstraintMaker make(fragment);
    make.width(parameterWidth);
    addConstraints(parameterStackView_, make.constraints);
    return fragment;
}

MainContentViewController::FragmentAndLabel MainContentViewController::createPreConfiguredFragment(
    const char* title) {
    FragmentWall* fragment = createFragment();
    auto* label = standardLabel(localizedText(title, "label"));
    setFontRole(label, FontRole::title);
    fragment->factory().internalAddBrick(label, [](LayoutConstraintMaker& make) {
        make.container()
            .pin(left, left, 16)
            .pin(right, right, -8)
            .pin(top, top, fragmentTitleTopInset);
    });
    return {fragment, label};
}

FragmentWall* MainContentViewController::createSeparatorFragment() {
    FragmentWall* fragment = createFragment();
    fragment->backgroundDrawingFunc = [](QPainter& painter, const QRectF& frame) {
        MarquellStyleKit::drawFragmentBottom(painter, frame);
    };
    LayoutConstraintMaker make(fragment);
    make.height(separatorHeight);
    addConstraints(parameterStackView_, make.constraints);
    return fragment;
}

void MainContentViewController::createSourceFragment() {
    const auto [fragment, title] = createPreConfiguredFragment("Source Files / Folders");
    sourceListTableViewController_ = makeController<lists::SourceListTableViewController>(
        dataModel_.sourceList, dataModel_.defaults);
    sourceListTableViewController_->tableView()->setAccessibleName(title->text());
    QWidget* list = sourceListTableViewController_->view();
    fragment->factory().internalAddBrick(list, [](LayoutConstraintMaker& make) {
        make.minHeight(40).maxHeight(80);
        make.container()
            .pin(left, left, fragmentLeftInset)
            .pin(top, top, fragmentTopInset)
            .pin(right, right, fragmentRightInset);
    });
    addSourceButtons(list);
}

void MainContentViewController::addSourceButtons(QWidget* list) {
    auto& factory = BricksFactory::factoryFor(list->parentWidget());
    auto* clearButton = miniButton("Clear", [this] { clearSources(); });
    addButton_ = miniButton("Add …", [this] { addSource(); });
    factory.internalAddBrick(addButton_, [&](LayoutConstraintMaker& make) {
        make.andView(list).place(top, bottom).pin(right, right, 0);
        make.container().pin(bottom, bottom, fragmentBottomInset);
    });
    factory.internalAddBrick(clearButton, [&](LayoutConstraintMaker& make) {
        make.andView(addButton_).place(right, left).pin(bottom, bottom, 0);
    });
    QWidget::setTabOrder(clearButton, addButton_);
}

void MainContentViewController::createProcessFragment() {
    struct Box {
        const char* title;
        Setting<bool> setting;
    };
    const Box boxes[] = {
        {"Files", &pipeline::DataModel::processFiles},
        {"Folders", &pipeline::DataModel::processFolders},
        {"Subfolders and their contents", &pipeline::DataModel::processSubFolders}};
    const auto [fragment, title] = createPreConfiguredFragment("Process");
    auto* row = new Wall;
    fragment->factory().internalAddBrick(row, [](LayoutConstraintMaker& make) {
        make.container()
            .pin(left, left, 0)
            .pin(top, top, 0)
            .pin(bottom, bottom, fragmentBottomInset);
    });
    QWidget* before = nullptr;
    for (const Box& each : boxes) {
        auto* box = new CheckBoxBrick(localizedText(each.title, "checkbox title"));
        DefaultsBinding::bindValue(box, (dataModel_.*each.setting)->storageKey(),
                                   dataModel_.defaults);
        row->factory().internalAddBrick(box, [&](LayoutConstraintMaker& make) {
            if (before != nullptr) {
                make.andView(before).place(left, right).pin(top, top, 0);
            } else {
                make.container()
                    .pin(left, left, fragmentLeftInset)
                    .pin(top, top, fragmentTopInset)
                    .pin(bottom, bottom, 0);
            }
        });
        before = box;
    }
    LayoutConstraintMaker make(before);
    make.container().place(right, right);
    addConstraints(row, make.constraints);
    // Where the words are too long for the column, the last ones are cut.
    setContentCompressionResistancePriority(before, Qt::Horizontal, LayoutPriority::lowest);
    addConstraints(fragment, {std::make_shared<LayoutConstraint>(
                                 row, right, Relation::lessThanOrEqual, fragment, right, 1, 0)});
}

void MainContentViewController::createSortingFragment() {
    const auto [fragment, title] = createPreConfiguredFragment("Sorting");
    auto* firstPopUp = elasticPopUp();
    auto* thenPopUp = elasticPopUp();
    auto* firstLabel = labelFor("First:", firstPopUp);
    auto* thenLabel = labelFor("Then:", thenPopUp);
    auto& factory = fragment->factory();
    factory.internalAddBrick(firstLabel, [](LayoutConstraintMaker& make) {
        make.container().pin(left, left, fragmentLeftInset).pin(top, top, fragmentTopInset);
    });
    factory.internalAddBrick(firstPopUp, [&](LayoutConstraintMaker& make) {
        make.andView(firstLabel).place(left, right).pin(firstBaseline, firstBaseline, 0);
        make.container().pin(right, right, fragmentRightInset);
    });
    factory.internalAddBrick(thenLabel, [&](LayoutConstraintMaker& make) {
        make.container().pin(left, left, fragmentLeftInset);
        make.andView(firstLabel).width(0);
    });
    factory.internalAddBrick(thenPopUp, [&](LayoutConstraintMaker& make) {
        make.andView(firstPopUp).pin(left, left, 0).pin(right, right, 0).place(top, bottom);
        make.andView(thenLabel).pin(firstBaseline, firstBaseline, 0);
        make.container().pin(bottom, bottom, fragmentBottomInset);
    });
    addSortModes(*firstPopUp);
    addSortModes(*thenPopUp);
    DefaultsBinding::bindSelectedIndex(firstPopUp, dataModel_.firstSortMode->storageKey(),
                                       dataModel_.defaults);
    DefaultsBinding::bindSelectedIndex(thenPopUp, dataModel_.secondSortMode->storageKey(),
                                       dataModel_.defaults);
}

void MainContentViewController::createColumnsFragment() {
    const auto [fragment, title] = createPreConfiguredFragment("Columns");
    columnsListTableViewController_ = makeController<lists::ColumnListTableViewController>(
        dataModel_.columnList, dataModel_.defaults);
    columnsListTableViewController_->tableView()->setAccessibleName(title->text());
    QWidget* list = columnsListTableViewController_->view();
    fragment->factory().internalAddBrick(list, [](LayoutConstraintMaker& make) {
        make.minHeight(80).maxHeight(193);
        make.container()
            .pin(left, left, fragmentLeftInset)
            .pin(right, right, fragmentRightInset)
            .pin(top, top, fragmentTopInset);
    });
    auto* addColumn = new PullDownButtonBrick;
    addColumn->small();
    addColumn->setGlyph(Glyph::plus, localizedText("Add Column", "button title"));
    offerColumns(*addColumn, dataModel_.columnList);
    fragment->factory().internalAddBrick(addColumn, [&](LayoutConstraintMaker& make) {
        make.container()
            .pin(right, right, fragmentRightInset)
            .pin(bottom, bottom, fragmentBottomInset);
        make.andView(list).place(top, bottom);
    });
}

void MainContentViewController::createOutputFragment() {
    const auto [fragment, title] = createPreConfiguredFragment("Output Format");
    auto* popUp = elasticPopUp();
    popUp->setAccessibleName(title->text());
    fragment->factory().internalAddBrick(popUp, [](LayoutConstraintMaker& make) {
        make.container()
            .pin(left, left, fragmentLeftInset)
            .pin(right, right, fragmentRightInset)
            .pin(top, top, fragmentTopInset)
            .pin(bottom, bottom, fragmentBottomInset);
    });
    using pipeline::OutputFormatIndexEnum;
    const auto binding = std::make_shared<PopUpButtonBrickBinding<OutputFormatIndexEnum>>(
        popUp, dataModel_.outputFormat);
    binding->configure(EnumPopupButtonConfigurator<OutputFormatIndexEnum>());
    binding->activate();
    fragment->endOfLifeBag.closures.emplace_back([binding] { binding->unbind(); });
}

FragmentWall* MainContentViewController::createOptionsFragment(const OptionPanel& panel) {
    FragmentWall* fragment = createFragment();
    buildOptionPanel(*fragment, panel, dataModel_);
    return fragment;
}

void MainContentViewController::showOptionsOf(pipeline::OutputFormatIndexEnum format) {
    using enum pipeline::OutputFormatIndexEnum;
    csvOutputOptionsFragment_->setHidden(format != CSV && format != TSV);
    jsonOutputOptionsFragment_->setHidden(format != JSON);
    htmlOutputOptionsFragment_->setHidden(format != HTML && format != CopyToHTML);
    copyToExcelOptionsFragment_->setHidden(format != CopyToExcel);
}

}  // namespace marquell::window
