// SPDX-License-Identifier: GPL-3.0-or-later
#include "CommandLine.h"

#include <fcntl.h>
#include <getopt.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

#include "ColumnArguments.h"
#include "Messages.h"
#include "Settings.h"
#include "StoredSettings.h"
#include "platform/DescriptorIo.h"
#include "platform/FileDescriptor.h"
#include "platform/FileSystem.h"
#include "platform/Path.h"

namespace marquell::apps {
namespace {

using pipeline::OutputFormatIndexEnum;

constexpr unsigned maximumJobs = 1024;

enum LongOnly : int { from0 = 256, listColumns, jobs, useSettings, help, version };

const std::array<option, 12> longOptions = {{
    {"columns", required_argument, nullptr, 'c'},
    {"format", required_argument, nullptr, 'f'},
    {"set", required_argument, nullptr, 's'},
    {"output", required_argument, nullptr, 'o'},
    {"from0", required_argument, nullptr, from0},
    {"list-columns", no_argument, nullptr, listColumns},
    {"jobs", required_argument, nullptr, jobs},
    {"use-settings", no_argument, nullptr, useSettings},
    {"quiet", no_argument, nullptr, 'q'},
    {"help", no_argument, nullptr, help},
    {"version", no_argument, nullptr, version},
    {nullptr, 0, nullptr, 0},
}};

struct FormatName {
    std::string_view name;
    OutputFormatIndexEnum index;
};
constexpr std::array<FormatName, 6> formatNames = {{
    {"csv", OutputFormatIndexEnum::CSV},
    {"tsv", OutputFormatIndexEnum::TSV},
    {"json", OutputFormatIndexEnum::JSON},
    {"html", OutputFormatIndexEnum::HTML},
    {"html-fragment", OutputFormatIndexEnum::CopyToHTML},
    {"spreadsheet", OutputFormatIndexEnum::CopyToExcel},
}};

using Problem = std::optional<std::string>;

/// The next option, as getopt returns it.
int nextOption(int count, char** arguments) {
    return ::getopt_long(count, arguments, ":c:f:s:o:q", longOptions.data(), nullptr);
}

/// Wherever it stands, it comes before all others.
bool hasUseSettings(int count, char** arguments) {
    std::vector<char*> copy(arguments, arguments + count + 1);  // getopt reorders them
    bool found = false;
    for (int letter = 0; letter != -1 && !found; found = letter == useSettings) {
        letter = nextOption(count, copy.data());
    }
    optind = 0;  // from the start again
    return found;
}

class Parser {
public:
    Parser() { request_.snapshot.processSubFolders = true; }

    Request parse(int count, char** arguments) {
        opterr = 0;
        if (hasUseSettings(count, arguments)) {
            StoredSettings stored = readStoredSettings();
            request_.snapshot = std::move(stored.snapshot);
            request_.settingsProblems = std::move(stored.problems);
        }
        for (;;) {
            const int letter = nextOption(count, arguments);
            if (letter == -1) break;
            if (letter == help) return HelpRequest{};
            if (letter == version) return VersionRequest{};
            if (letter == listColumns) return CatalogueRequest{};
            const Problem problem = letter == '?' || letter == ':'
                                        ? badOption(letter, arguments[optind - 1])
                                        : take(letter);
            if (problem) return UsageProblem{*problem};
        }
        for (int i = optind; i < count; ++i) {
            if (const Problem problem = addSource(arguments[i])) return UsageProblem{*problem};
        }
        if (const Problem problem = finish(optind < count)) return UsageProblem{*problem};
        return std::move(request_);
    }

private:
    Problem take(int letter) {
        switch (letter) {
            case 'c':
                return addColumns(optarg);
            case 'f':
                return setFormat(optarg);
            case 's':
                return applySetting(optarg, request_.snapshot);
            case 'o':
                return setOutputFile(optarg);
            case from0:
                from0Files_.emplace_back(optarg);
                return std::nullopt;
            case jobs:
                return setJobs(optarg);
            case useSettings:
                return std::nullopt;  // done before all others
            default:
                request_.quiet = true;
                return std::nullopt;
        }
    }

    /// `word` is what getopt took last. It isn't done with a word of several letters, but then
    /// optopt has the letter; there is 0 for an unknown long option.
    static Problem badOption(int result, std::string_view word) {
        if (result == ':') return "option " + quoted(word) + ": expected an argument";
        std::vector<std::string_view> names;
        for (const option& each : longOptions) {
            if (each.name == nullptr) break;
            if (each.val == optopt) return "option " + quoted(word) + ": it takes no argument";
            names.emplace_back(each.name);
        }
        if (optopt == 0) {
            const std::string_view name = word.substr(0, word.find('='));
            return "option " + quoted(name) + ": there is no such option" +
                   suggestion(name.substr(2), names);
        }
        const std::string letters{'-', static_cast<char>(optopt)};
        return "option " + quoted(letters) + ": there is no such option";
    }

    Problem addColumns(std::string_view argument) {
        if (!columns_) columns_.emplace();
        return appendColumns(argument, *columns_);
    }

    Problem setFormat(std::string_view name) {
        const auto row = std::find_if(formatNames.begin(), formatNames.end(),
                                      [name](const FormatName& each) { return each.name == name; });
        if (row == formatNames.end()) return badFormat(name);
        request_.snapshot.outputFormat = row->index;
        return std::nullopt;
    }

    static std::string badFormat(std::string_view name) {
        std::string possible;
        for (const FormatName& each : formatNames) {
            possible.append(possible.empty() ? "" : ", ").append(each.name);
        }
        return "format " + quoted(name) + ": expected one of " + possible;
    }

    Problem setOutputFile(std::string_view path) {
        if (path.empty()) return "option -o: found an empty name, expected a file";
        if (hasOutput_) return "option -o: found twice, expected one file";
        hasOutput_ = true;
        if (path != "-") request_.outputFile = path;
        return std::nullopt;
    }

    Problem setJobs(std::string_view text) {
        unsigned value = 0;
        const char* const end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data(), end, value);
        if (error != std::errc() || stop != end || value < 1 || value > maximumJobs) {
            return "option --jobs: found " + quoted(text) + ", expected a number from 1 to " +
                   std::to_string(maximumJobs);
        }
        request_.jobs = value;
        return std::nullopt;
    }

    Problem addSource(std::string_view path) {
        if (path.empty()) return "source \"\": found an empty name, expected a path";
        if (path.front() != '/' && base_.empty()) {
            base_ = platform::currentFolder();
            if (base_.empty()) {
                return "source " + quoted(path) +
                       ": the current folder is gone, expected an absolute path";
            }
        }
        sources_.push_back(platform::absolutePath(path, base_));
        return std::nullopt;
    }

    Problem addSourcesFromFile(const std::string& name) {
        const bool isInput = name == "-";
        int error = 0;
        const platform::FileDescriptor file = isInput
                                                  ? platform::FileDescriptor(::dup(STDIN_FILENO))
                                                  : platform::openPath(name, O_RDONLY, error);
        if (isInput) error = errno;
        const auto bytes = file.isOpen() ? platform::readAll(file.get(), error) : std::nullopt;
        if (!bytes) return "--from0 " + quoted(name) + ": " + std::strerror(error);
        std::string_view rest = *bytes;
        while (!rest.empty()) {
            const std::string_view path = rest.substr(0, rest.find('\0'));
            if (!path.empty()) {
                if (Problem problem = addSource(path)) return problem;
            }
            rest.remove_prefix(std::min(path.size() + 1, rest.size()));
        }
        return std::nullopt;
    }

    Problem finish(bool hasPaths) {
        for (const std::string& name : from0Files_) {
            if (Problem problem = addSourcesFromFile(name)) return problem;
        }
        if (!hasPaths && from0Files_.empty()) {
            return "found no source, expected a PATH or --from0; see --help";
        }
        request_.snapshot.sourceList = std::move(sources_);
        if (columns_) request_.snapshot.columnList = std::move(*columns_);
        return std::nullopt;
    }

    ListRequest request_;
    bool hasOutput_ = false;
    std::vector<std::string> sources_;
    std::optional<std::vector<std::string>> columns_;
    std::vector<std::string> from0Files_;
    std::string base_;
};

}  // namespace

Request parseCommandLine(int argumentCount, char** arguments) {
    return Parser().parse(argumentCount, arguments);
}

std::string helpText() {
    return "Usage: marquell-list [options] [--] PATH…\n"
           "Lists files and folders, sorted, with the columns you choose.\n"
           "\n"
           "  -c, --columns ID[,ID…]   columns in output order; @TagSpace stands for all columns "
           "of\n"
           "                           that tag space (@EXIF); default: name,absolute_path\n"
           "  -f, --format NAME        csv, tsv, json, html, html-fragment or spreadsheet; "
           "default: csv\n"
           "  -s, --set NAME=VALUE     a setting of the run, repeatable; see below\n"
           "  -o, --output FILE        write FILE, whole or not at all; -, the default, is "
           "standard\n"
           "                           output\n"
           "      --from0 FILE         take sources from FILE, separated by NUL; - is standard "
           "input\n"
           "      --list-columns       print the catalogue of columns as tab-separated text\n"
           "      --jobs N             threads that walk, sort and read ahead; default: one a "
           "core\n"
           "      --use-settings       start from the settings that the window last had; the "
           "options "
           "beside\n"
           "                           this one win\n"
           "  -q, --quiet              no progress and no remarks; what could not be read is "
           "named\n"
           "      --help, --version    print this, or the version\n"
           "\n"
           "Settings: " +
           settingNames() +
           "\n"
           "\n"
           "Exit status: 0 all is listed; 1 the list is made, but something could not be read; 2 "
           "wrong\n"
           "usage; 3 the list could not be written.\n";
}

}  // namespace marquell::apps
