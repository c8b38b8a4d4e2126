// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/OutputEngine.h"

#include <utility>

#include "metadata/MetadataStorage.h"
#include "pipeline/LackingCharacterSearch.h"
#include "platform/Disposal.h"
#include "platform/Localization.h"
#include "platform/MainQueue.h"

namespace marquell::pipeline {

OutputEngine::OutputEngine(DataModel& dataModel, platform::Pasteboard& pasteboard)
    : dataModel_(dataModel), pasteboard_(pasteboard) {
    outputCompletePublisher.addColdListener([this](bool ready) { outputIsReady(ready); });
    operationQueue_.setDrainedHandler(
        [this] { postToMain([](OutputEngine& engine) { engine.queueIsDrained(); }); });
}

OutputEngine::~OutputEngine() {
    if (const auto origin = origin_.lock()) origin->abandon();
}

template <typename... Variables>
void OutputEngine::enterOnChange(void (OutputEngine::*launch)(), Variables&... variables) {
    // Listeners stay as long as their variable, which is longer than the engine.
    const auto listener = [self = std::weak_ptr(self_), launch](const auto&) {
        if (const auto alive = self.lock()) ((*alive)->*launch)();
    };
    (variables.addColdListener(listener), ...);
}

void OutputEngine::enterOnChange(const std::string& key, void (OutputEngine::*launch)()) {
    kvoResponders_.push_back(std::make_unique<variables::KVOResponder>(
        key, dataModel_.defaults, false,
        [this, launch](const auto&, const auto&) { (this->*launch)(); }));
}

void OutputEngine::startListening() {
    enterOnChange(dataModel_.sourceList.storageKey, &OutputEngine::launchScanOperation);
    enterOnChange(dataModel_.columnList.storageKey, &OutputEngine::columnListChanged);
    enterOnChange(&OutputEngine::launchScanOperation, *dataModel_.processFiles,
                  *dataModel_.processFolders, *dataModel_.processSubFolders);
    enterOnChange(&OutputEngine::launchReSortOperation, *dataModel_.firstSortMode,
                  *dataModel_.secondSortMode);
    // All but encodingMode, which matters only when the text is written to a file.
    enterOnChange(&OutputEngine::launchOutputOperation, *dataModel_.outputFormat,
                  *dataModel_.boolValuesMode, *dataModel_.nullValuesMode,
                  *dataModel_.dateFormatMode, *dataModel_.multiLineMode, *dataModel_.linebreaksMode,
                  *dataModel_.quoteStrings, *dataModel_.includeColumnTitlesMode,
                  *dataModel_.htmlIndentationMode, *dataModel_.htmlColumnIdHeaderMode,
                  *dataModel_.htmlColumnClassMode, *dataModel_.jsonIndentationMode,
                  *dataModel_.jsonDateFormatMode);
    launchScanOperation();
}

void OutputEngine::columnListChanged() {
    updatePreviewTable();  // before the text, which may take long
    launchOutputOperation();
}

void OutputEngine::launchScanOperation() {
    const Snapshot snapshot = std::make_shared<DataModelSnapshot>(dataModel_.createSnapshot());
    const std::lock_guard lock(mutex_);
    newestSnapshot_ = snapshot;
    operationQueue_.cancelAllOperations();
    isScanPending_ = add(std::make_shared<ScannerOperation>(*this, snapshot));
}

void OutputEngine::launchReSortOperation() {
    const Snapshot snapshot = std::make_shared<DataModelSnapshot>(dataModel_.createSnapshot());
    const std::lock_guard lock(mutex_);
    newestSnapshot_ = snapshot;
    if (hasLastingList()) addReSortOperation();
}

void OutputEngine::launchOutputOperation() {
    const Snapshot snapshot = std::make_shared<DataModelSnapshot>(dataModel_.createSnapshot());
    const std::lock_guard lock(mutex_);
    newestSnapshot_ = snapshot;
    if (hasLastingList()) addOutputOperation();
}

/// Whether there is a list and no scan that is to replace it. What a change would start over a list
/// on its way out could read files that nobody wants any more; the scan's end sees to the change.
bool OutputEngine::hasLastingList() const { return flatFileList_ != nullptr && !isScanPending_; }

void OutputEngine::addReSortOperation() {
    add(std::make_shared<ReSortFlatFileListOperation>(*this, newestSnapshot_, flatFileList_));
}

void OutputEngine::addOutputOperation() {
    add(formats::outputFormat(newestSnapshot_->outputFormat)
            .getOutputOperation(newestSnapshot_, *this, flatFileList_));
}

/// False if the system refuses the queue its thread.
bool OutputEngine::add(std::shared_ptr<OutputEngineOperationType> operation) {
    // Before the operation, whose text would otherwise be hidden by it for good.
    clearOutputPreviewTextView();
    return operationQueue_.addOperation(std::move(operation));
}

void OutputEngine::scanOperationFinished(ScannerOperation& scanOperation) {
    const std::lock_guard lock(mutex_);
    if (scanOperation.isCancelled()) return;
    isScanPending_ = false;
    flatFileList_ = scanOperation.flatFileList();
    currentFileCount_ = flatFileList_->files.size();
    // The order may have changed meanwhile, when this list was not there to be sorted anew.
    const DataModelSnapshot& snapshot = *scanOperation.dataModelSnapshot();
    if (snapshot.firstSortMode != newestSnapshot_->firstSortMode ||
        snapshot.secondSortMode != newestSnapshot_->secondSortMode) {
        addReSortOperation();
    } else {
        addOutputOperation();
    }
    updatePreviewTable();
}

void OutputEngine::reSortOperationFinished(ReSortFlatFileListOperation& reSortOperation) {
    const std::lock_guard lock(mutex_);
    if (reSortOperation.isCancelled()) return;
    flatFileList_ = reSortOperation.resortedFlatFileList();
    // If the order has changed once more, the re-sort for that is queued already.
    addOutputOperation();
    updatePreviewTable();
}

void OutputEngine::outputOperationFinished(formats::OutputFormatOperationType& outputOperation) {
    CurrentOutput output;
    output.text = outputOperation.outputString();
    output.format = &formats::outputFormat(outputOperation.dataModelSnapshot().outputFormat);
    // Here, for the main thread has no time to read the whole text.
    output.shownText = platform::makeDisposedOnWorker<platform::LinedText>(
        output.format->displayStringFor(output.text));
    {
        const std::lock_guard lock(mutex_);
        std::swap(currentOutput_, output);
        currentFileCount_ = outputOperation.totalFileCount();
    }
    outputCompletePublisher.setValue(true);
}

OutputEngineViewModel OutputEngine::createOutputEngineViewModel() const {
    OutputEngineViewModel model;
    model.currentNumberOfMetadataItems = metadata::MetadataStorage::shared().itemCounter();
    const std::lock_guard lock(mutex_);
    model.currentNumberOfItems = currentFileCount_.value_or(0);
    if (const auto progress = progressOfFirst(operationQueue_)) {
        model.activeStage = progress->type;
        model.currentItemProcessing = progress->currentFileCount;
        model.totalItemProcessing = progress->totalFileCount;
        model.indeterminateProgress = progress->indeterminateProgress;
    } else if (textsToShow_.load(std::memory_order_relaxed) > 0) {
        // Made, but not shown yet: the user would not call that ready.
        model.activeStage = OutputOperationTypeEnum::computingOutput;
        model.currentItemProcessing = model.currentNumberOfItems;
        model.totalItemProcessing = model.currentNumberOfItems;
    }
    return model;
}

OutputEngine::CurrentOutput OutputEngine::currentOutput() const {
    const std::lock_guard lock(mutex_);
    return currentOutput_;
}

std::shared_ptr<const platform::TextBuffer> OutputEngine::currentOutputString() const {
    return currentOutput().text;
}

const formats::OutputFormatType& OutputEngine::currentOutputFormat() const {
    return formats::outputFormat(dataModel_.outputFormat->value());
}

std::vector<std::string> OutputEngine::allowedFileTypes() const {
    return currentOutputFormat().allowedFileTypes();
}

void OutputEngine::performCommitAction() {
    if (maySave()) currentOutput().format->performCommitAction(*this);
}

void OutputEngine::askForDestinantionAndWriteToFile() {
    if (display_ == nullptr || !maySave()) return;
    // A dialog runs the main queue: meanwhile the text may change, or the engine go.
    const CurrentOutput output = currentOutput();
    const std::weak_ptr alive = self_;
    isSaving_ = true;
    const std::optional<std::string> path = display_->showSaveDialog(saveOffer(output));
    if (alive.expired()) return;
    if (const auto origin = origin_.lock()) origin->abandon();  // nobody waits for its answer now
    if (path) {
        startWriting(output, *path);
    } else {
        savingIsOver();
    }
}

/// At rest only: list and settings are then those that the text was made from.
SaveOffer OutputEngine::saveOffer(const CurrentOutput& output) {
    const platform::TextEncoding encoding = encodingOf(output);
    const std::lock_guard lock(mutex_);
    // A new operation, as the one that made the text is gone, and its memory with it.
    auto origin = output.format->getOutputOperation(newestSnapshot_, *this, flatFileList_);
    origin_ = origin;
    return {output.format->allowedFileTypes(),
            lackingCharacterSearch(output.text, encoding, std::move(origin))};
}

platform::TextEncoding OutputEngine::encodingOf(const CurrentOutput& output) const {
    return output.format->fileEncoding(dataModel_.createSnapshot());
}

void OutputEngine::startWriting(const CurrentOutput& output, const std::string& path) {
    if (display_ != nullptr) display_->setMaySave(false);
    writer_.write(path, output.text, encodingOf(output), [self = std::weak_ptr(self_)] {
        platform::MainQueue::installed()->post([self] {
            if (const auto alive = self.lock()) (*alive)->savingIsOver();
        });
    });
}

void OutputEngine::savingIsOver() {
    isSaving_ = false;
    if (display_ != nullptr) display_->setMaySave(maySave());
}

std::optional<platform::TextWriteProblem> OutputEngine::writeOutputTo(const std::string& path) {
    const CurrentOutput output = currentOutput();
    if (output.text == nullptr) return std::nullopt;
    return platform::writeTextFile(path, output.text->view(), encodingOf(output));
}

void OutputEngine::clearOutputPreviewTextView() {
    postToMain([](OutputEngine& engine) {
        if (engine.display_ == nullptr) return;
        engine.display_->showWaitingText(platform::localized(
            "Waiting for text output engine to finish processing...", "text preview"));
    });
}

void OutputEngine::updatePreviewTable() {
    postToMain([](OutputEngine& engine) {
        if (engine.display_ != nullptr) engine.display_->updateTable(engine.currentList());
    });
}

std::shared_ptr<const FlatFileList> OutputEngine::currentList() const {
    const std::lock_guard lock(mutex_);
    return flatFileList_;
}

void OutputEngine::outputIsReady(bool ready) {
    if (!ready) return;
    textsToShow_.fetch_add(1, std::memory_order_relaxed);
    postToMain([](OutputEngine& engine) { engine.showCurrentText(); });
}

void OutputEngine::showCurrentText() {
    // Of several, each would show the newest; one is enough.
    if (textsToShow_.fetch_sub(1, std::memory_order_relaxed) > 1) return;
    if (display_ == nullptr) return;
    display_->showText(currentOutput().shownText, maySave());
}

void OutputEngine::queueIsDrained() {
    if (display_ != nullptr && maySave()) display_->setMaySave(true);
}

bool OutputEngine::maySave() const {
    return !isSaving_ && isAtRest() && currentOutputString() != nullptr;
}

/// Whether no stage is left, and no text that waits for the main thread to show it.
bool OutputEngine::isAtRest() const {
    return operationQueue_.isEmpty() && textsToShow_.load(std::memory_order_relaxed) == 0;
}

/// The task may end the engine, so it is the last thing that is done.
void OutputEngine::postToMain(std::function<void(OutputEngine&)> task) {
    platform::MainQueue::installed()->post([self = std::weak_ptr(self_), task = std::move(task)] {
        if (const auto alive = self.lock()) task(**alive);
    });
}

}  // namespace marquell::pipeline
