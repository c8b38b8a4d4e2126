// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "ColumnArguments.h"
#include "CommandLine.h"
#include "ConsoleLines.h"
#include "ExitStatus.h"
#include "FailureCollector.h"
#include "ListRun.h"
#include "Messages.h"
#include "ProgressLine.h"
#include "formats/OutputFormatType.h"
#include "metadata/AVKitHelper.h"
#include "metadata/FileReaders.h"
#include "metadata/HashesHelper.h"
#include "metadata/ImageIOHelper.h"
#include "metadata/SpotlightHelper.h"
#include "metadata/TagManager.h"
#include "pipeline/SortKeys.h"
#include "platform/AtomicFile.h"
#include "platform/DescriptorIo.h"
#include "platform/HelperProtocol.h"
#include "platform/TextFile.h"
#include "platform/UnfinishedFile.h"
#include "platform/Workers.h"

namespace marquell::apps {
namespace {

/// Whoever started us may have closed standard streams. Their numbers must not go to files that we
/// open, and writing to a closed one must still fail: hence the wrong direction.
void occupyClosedStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) != -1) continue;
        static_cast<void>(::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY));
    }
}

std::string targetName(const std::optional<std::string>& file) {
    return file ? quoted(*file) : "standard output";
}

ExitStatus notDelivered(const std::optional<std::string>& file, std::string_view reason) {
    printMessage(targetName(file) + ": the list could not be written: " + std::string(reason));
    return ExitStatus::notDelivered;
}

ExitStatus print(std::string_view text) {
    const int error = platform::writeAll(STDOUT_FILENO, text);
    return error == 0 ? ExitStatus::success : notDelivered({}, std::strerror(error));
}

/// The end of a run that memory does not suffice for: the one exception that nobody can handle.
[[noreturn]] void endOutOfMemory() {
    constexpr std::string_view message =
        "marquell-list: the list could not be made: out of memory\n";
    static_cast<void>(platform::writeAll(STDERR_FILENO, message));
    std::_Exit(static_cast<int>(ExitStatus::notDelivered));
}

/// What the encoding lacks and where it was found; rows are counted without titles.
std::string lackingCharacter(formats::OutputFormatOperationType& output,
                             platform::TextEncoding encoding,
                             const platform::UnencodableCharacter& found) {
    const formats::TextPlace place = output.placeOf(found.offset);
    const std::string row =
        place.row ? "row " + std::to_string(*place.row + 1) : "the row of titles";
    return std::string(platform::encodingName(encoding)) + " has no " +
           characterName(found.character) + " (" + row + ", column " + quoted(place.columnId) +
           (place.node == nullptr ? "" : ", " + quoted(place.node->absolutePath())) +
           "); UTF-8 (encodingMode=0) has all characters";
}

/// Those of the list, and those that its order comes from.
std::vector<std::string> neededColumns(const pipeline::DataModelSnapshot& snapshot) {
    std::vector<std::string> columns(snapshot.columnList.begin(), snapshot.columnList.end());
    for (const int mode : {snapshot.firstSortMode, snapshot.secondSortMode}) {
        const pipeline::SortKeyMaker keys(mode);
        if (keys.isKnown()) columns.emplace_back(keys.column());
    }
    return columns;
}

/// The process ends with this list: nobody will ask for other columns.
void restrictToColumns(const std::vector<std::string>& columns) {
    metadata::HashesHelper::shared().setWantedDigests(columns);
    metadata::ImageIOHelper::shared().setWantedColumns(columns);
    metadata::AVKitHelper::shared().setWantedColumns(columns);
    metadata::SpotlightHelper::shared().setWantedColumns(columns);
}

/// How well the processes are confined that read untrusted files.
std::string readersLine(std::string_view kind, platform::HelperPool& readers) {
    std::string line = std::string(kind) + " readers of files: ";
    const auto protections = readers.protections();
    if (!protections) return line + "none start\n";
    const bool isFiltered = (*protections & platform::systemCallFilter) != 0;
    const bool isRuled = (*protections & platform::fileSystemRules) != 0;
    if (!isFiltered && !isRuled) return line + "not confined by the kernel\n";
    return line + "confined by " + (isFiltered ? "a system call filter" : "") +
           (isFiltered && isRuled ? " and " : "") + (isRuled ? "file system rules" : "") + "\n";
}

std::string versionText() {
    std::string text = "marquell-list " MARQUELL_VERSION "\n";
    text += readersLine("light", metadata::lightReaders());
    text += readersLine("heavy", metadata::heavyReaders());
    metadata::endFileReaders();
    return text;
}

struct RequestRunner {
    ExitStatus operator()(const HelpRequest&) const { return print(helpText()); }
    ExitStatus operator()(const VersionRequest&) const { return print(versionText()); }
    ExitStatus operator()(const CatalogueRequest&) const { return print(catalogueText()); }
    ExitStatus operator()(const UsageProblem& problem) const {
        printMessage(problem.message);
        return ExitStatus::wrongUsage;
    }
    ExitStatus operator()(const ListRequest& request) const {
        for (const std::string& problem : request.settingsProblems) printMessage(problem);
        if (request.outputFile) {
            // Told now rather than after hours of reading.
            const int error = platform::destinationError(*request.outputFile);
            if (error != 0) return notDelivered(request.outputFile, std::strerror(error));
        }
        if (request.jobs) platform::setWorkerCount(*request.jobs);
        restrictToColumns(neededColumns(request.snapshot));
        const FailureCollector failures;
        const ConsoleLines console;
        // The run outlives the delivery, so that a list of millions is given back meanwhile.
        ListRun run;
        const auto output = makeText(run, request);
        if (output == nullptr) {
            printMessage("the list could not be made: the system refuses to start a thread");
            return ExitStatus::notDelivered;
        }
        if (!request.quiet) console.report();
        const bool anyFailures = failures.report() || !request.settingsProblems.empty();
        const ExitStatus delivered = deliver(*output, request.outputFile);
        metadata::endFileReaders();
        if (delivered != ExitStatus::success || !anyFailures) return delivered;
        return ExitStatus::incomplete;
    }

private:
    static std::shared_ptr<formats::OutputFormatOperationType> makeText(
        ListRun& run, const ListRequest& request) {
        ProgressLine progress(!request.quiet);
        return run.run(request.snapshot, [&progress](const auto& stage) { progress.show(stage); });
    }

    static ExitStatus deliver(formats::OutputFormatOperationType& output,
                              const std::optional<std::string>& file) {
        const auto text = output.outputString()->view();
        const pipeline::DataModelSnapshot& snapshot = output.dataModelSnapshot();
        const platform::TextEncoding encoding =
            formats::outputFormat(snapshot.outputFormat).fileEncoding(snapshot);
        const auto problem = file ? platform::writeTextFile(*file, text, encoding)
                                  : platform::writeText(STDOUT_FILENO, text, encoding);
        if (!problem) return ExitStatus::success;
        return notDelivered(file, problem->unencodable
                                      ? lackingCharacter(output, encoding, *problem->unencodable)
                                      : std::strerror(problem->error));
    }
};

}  // namespace
}  // namespace marquell::apps

int main(int argumentCount, char** arguments) {
    using namespace marquell::apps;
    occupyClosedStreams();
    // A reader that went away or a limit on file sizes is an error of the write, not our end.
    for (const int signal : {SIGPIPE, SIGXFSZ}) std::signal(signal, SIG_IGN);
    marquell::platform::tidyUpOnSignals();
    std::setlocale(LC_ALL, "");
    std::set_new_handler(&endOutOfMemory);
    return static_cast<int>(
        std::visit(RequestRunner{}, parseCommandLine(argumentCount, arguments)));
}
