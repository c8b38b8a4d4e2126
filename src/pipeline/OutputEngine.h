// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "formats/OutputFormatType.h"
#include "pipeline/DataModel.h"
#include "pipeline/DataModelSnapshot.h"
#include "pipeline/FlatFileList.h"
#include "pipeline/OutputDelivery.h"
#include "pipeline/OutputEngineDisplay.h"
#include "pipeline/OutputEngineViewModel.h"
#include "pipeline/ReSortFlatFileListOperation.h"
#include "pipeline/ScannerOperation.h"
#include "pipeline/StageOwner.h"
#include "pipeline/TextWriter.h"
#include "platform/LinedText.h"
#include "platform/OperationQueue.h"
#include "platform/Pasteboard.h"
#include "platform/TextBuffer.h"
#include "platform/TextFile.h"
#include "variables/KVOResponder.h"
#include "variables/StraightVariable.h"

namespace marquell::pipeline {

/// Runs the stages that changes of the settings make necessary, and keeps the newest list and text.
///
/// A change enters at the earliest stage that it invalidates (scan, re-sort or output), and each
/// stage queues the next before it counts as gone: an empty queue means that nothing is to come.
/// When it is empty, list and text are those of the newest settings.
///
/// Used on the main thread, but for the three ...OperationFinished, which the stages call. Needs
/// the installed main queue. Destroying it stops the stages and waits for them, and for the end of
/// a file that is being saved.
class OutputEngine final : public StageOwner, public OutputDelivery {
public:
    /// Model and pasteboard must outlive the engine. Starts nothing.
    OutputEngine(DataModel& dataModel, platform::Pasteboard& pasteboard);
    ~OutputEngine() override;

    /// The display, or null for none from now on, must outlive the engine or this setting.
    void setDisplay(OutputEngineDisplay* display) { display_ = display; }

    /// Listens to all settings from now on and starts the first scan. To be called once.
    void startListening();

    void launchScanOperation();
    void launchReSortOperation();
    void launchOutputOperation();

    void scanOperationFinished(ScannerOperation& scanOperation) override;
    void reSortOperationFinished(ReSortFlatFileListOperation& reSortOperation) override;
    void outputOperationFinished(formats::OutputFormatOperationType& outputOperation) override;

    /// Never waits for a stage.
    OutputEngineViewModel createOutputEngineViewModel() const;

    /// The newest finished text in UTF-8, whatever the display makes of it; null before the first.
    std::shared_ptr<const platform::TextBuffer> currentOutputString() const override;

    /// The format that the settings choose at this moment.
    const formats::OutputFormatType& currentOutputFormat() const;
    /// Its extensions for files; none if it is not for files.
    std::vector<std::string> allowedFileTypes() const;

    /// What the commit button does: saves or copies the newest text as its format wants. Nothing
    /// while another text is to come. The engine may have gone when this returns.
    void performCommitAction();

    /// Saves the text of this moment, in the encoding that the settings choose when the user has
    /// chosen a file; that is written in the background. Quiet about a file that can't be written:
    /// what is there stays. Nothing while another text is to come or is being saved.
    void askForDestinantionAndWriteToFile() override;

    /// Writes the newest text to a file at once, whole or not at all, in the encoding that the
    /// settings choose at this moment. Says what went wrong; without a text nothing is written and
    /// nothing wrong.
    std::optional<platform::TextWriteProblem> writeOutputTo(const std::string& path);

    platform::Pasteboard& pasteboard() override { return pasteboard_; }

    /// Whether there is a text, no other is to come and none is being saved. The display learns of
    /// a change a moment later, so whoever saves asks here.
    bool maySave() const;

    /// Set to true at the end of each output stage, on the stage's thread.
    variables::StraightVariable<bool> outputCompletePublisher{false};

private:
    using Snapshot = std::shared_ptr<const DataModelSnapshot>;

    /// A finished text, what a display gets of it, and the format that made it.
    struct CurrentOutput {
        std::shared_ptr<const platform::TextBuffer> text;
        std::shared_ptr<const platform::LinedText> shownText;
        const formats::OutputFormatType* format = nullptr;
    };

    template <typename... Variables>
    void enterOnChange(void (OutputEngine::*launch)(), Variables&... variables);
    void enterOnChange(const std::string& key, void (OutputEngine::*launch)());
    void columnListChanged();

    // The caller of these holds mutex_.
    void addReSortOperation();
    void addOutputOperation();
    bool add(std::shared_ptr<OutputEngineOperationType> operation);
    bool hasLastingList() const;

    void clearOutputPreviewTextView();
    void updatePreviewTable();
    std::shared_ptr<const FlatFileList> currentList() const;
    CurrentOutput currentOutput() const;
    SaveOffer saveOffer(const CurrentOutput& output);
    platform::TextEncoding encodingOf(const CurrentOutput& output) const;
    void startWriting(const CurrentOutput& output, const std::string& path);
    void savingIsOver();
    void outputIsReady(bool ready);
    void queueIsDrained();
    void showCurrentText();
    bool isAtRest() const;
    void postToMain(std::function<void(OutputEngine& engine)> task);

    DataModel& dataModel_;
    platform::Pasteboard& pasteboard_;
    OutputEngineDisplay* display_ = nullptr;
    std::vector<std::unique_ptr<variables::KVOResponder>> kvoResponders_;
    /// Tells closures that outlive the engine that it has gone.
    std::shared_ptr<OutputEngine*> self_ = std::make_shared<OutputEngine*>(this);

    /// Held only to look at or exchange what it guards and to queue an operation.
    mutable std::mutex mutex_;
    Snapshot newestSnapshot_;     // guarded by mutex_
    bool isScanPending_ = false;  // guarded by mutex_; queued and not finished
    std::shared_ptr<const FlatFileList> flatFileList_;  // guarded by mutex_
    CurrentOutput currentOutput_;                       // guarded by mutex_
    std::optional<std::size_t> currentFileCount_;       // guarded by mutex_

    /// Texts that the main thread has been asked to show and hasn't yet.
    std::atomic<int> textsToShow_ = 0;

    bool isSaving_ = false;  // from the question where to, to the end of the file
    /// What tells the places of the text that is offered for saving.
    std::weak_ptr<platform::Operation> origin_;
    TextWriter writer_;

    platform::OperationQueue operationQueue_{"mainOperationQueue"};  // last: stops before the rest
};

}  // namespace marquell::pipeline
