// SPDX-License-Identifier: GPL-3.0-or-later
// A program that writes a list in a format, which it is given the number of:
//     marquell_format_writer FORMAT [SETTING=NUMBER]... <LIST
// A list is the number of its columns, their ids, and for each node its name, exif_make and
// exif_model; a text is the number of its bytes, a colon and its bytes. The Nth node lies in the
// folder "/N", which nobody looks for on the disk.
#include <unistd.h>

#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "formats/OutputFormatType.h"
#include "metadata/MetadataStorage.h"
#include "pipeline/NodeArena.h"
#include "platform/TextFile.h"

namespace marquell::formats {
namespace {

using metadata::MetadataSource;
using pipeline::DataModelSnapshot;

template <auto member>
void set(DataModelSnapshot& snapshot, int number) {
    snapshot.*member = static_cast<std::decay_t<decltype(snapshot.*member)>>(number);
}
const std::map<std::string, void (*)(DataModelSnapshot&, int)> settings = {
    {"includeColumnTitlesMode", &set<&DataModelSnapshot::includeColumnTitlesMode>},
    {"quoteStrings", &set<&DataModelSnapshot::quoteStrings>},
    {"multiLineMode", &set<&DataModelSnapshot::multiLineMode>},
    {"linebreaksMode", &set<&DataModelSnapshot::linebreaksMode>},
    {"encodingMode", &set<&DataModelSnapshot::encodingMode>},
    {"htmlIndentationMode", &set<&DataModelSnapshot::htmlIndentationMode>}};

struct Owner final : pipeline::StageOwner {
    void scanOperationFinished(pipeline::ScannerOperation&) override {}
    void reSortOperationFinished(pipeline::ReSortFlatFileListOperation&) override {}
    void outputOperationFinished(OutputFormatOperationType&) override { isTold = true; }
    bool isTold = false;
};

std::string nextText() {
    std::size_t size = 0;
    std::cin >> size;
    std::string text(size, '\0');
    std::cin.ignore(1).read(text.data(), static_cast<std::streamsize>(size));
    return text;
}

bool run(const std::vector<std::string>& arguments) {
    const auto snapshot = std::make_shared<DataModelSnapshot>();
    for (std::size_t i = 2; i < arguments.size(); ++i) {
        const std::size_t end = arguments[i].find('=');
        settings.at(arguments[i].substr(0, end))(*snapshot,
                                                 std::stoi(arguments[i].substr(end + 1)));
    }
    std::vector<std::string> columns(std::stoul(nextText()));
    for (std::string& column : columns) column = nextText();
    snapshot->columnList = columns;

    metadata::MetadataStorage& store = metadata::MetadataStorage::shared();
    pipeline::NodeArena arena;
    const auto list = std::make_shared<pipeline::FlatFileList>();
    while (std::cin.peek() != EOF) {
        const std::string name = nextText();
        const std::string path = "/" + std::to_string(list->files.size() + 1) + "/" + name;
        for (const char* key : {"exif_make", "exif_model"}) {
            store.store(std::string_view(path), MetadataSource::imageIO, key, nextText());
        }
        store.store(std::string_view(path), MetadataSource::imageIO, "retrieved", true);
        list->files.push_back(arena.make<pipeline::FileNode>(name, path, ""));
    }
    const OutputFormatType& format =
        outputFormat(static_cast<pipeline::OutputFormatIndexEnum>(std::stoi(arguments.at(1))));
    Owner owner;
    const auto operation = format.getOutputOperation(snapshot, owner, list);
    operation->main();
    return owner.isTold && !platform::writeText(STDOUT_FILENO, operation->outputString()->view(),
                                                format.fileEncoding(*snapshot));
}

}  // namespace
}  // namespace marquell::formats

int main(int count, char** arguments) {
    return marquell::formats::run({arguments, arguments + count}) ? 0 : 1;
}
