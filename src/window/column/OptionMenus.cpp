// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/column/OptionMenus.h"

namespace marquell::window {
namespace {

using pipeline::DataModel;

constexpr const char* separator = nullptr;

const OptionMenu columnTitles{
    "Include:",
    {"Do not include column title", "Include column title", "Include column title & category"}};
const OptionMenu nullValues{"Null values:", {"Empty String", "Null", "n/a", "nil", "none"}};
const OptionMenu boolValues{"Bool values:",
                            {"true / false", "yes / no", "TRUE / FALSE", "YES / NO", "1 / 0"}};
const OptionMenu dateFormat{
    "Date format:", {"YYYY-MM-DD", "YYYY-MM-DD HH:MM:SS (24 hours)", "YYYY-MM-DD HH:MM:SS AM/PM"}};
const OptionMenu multiLine{
    "Multi-Line:",
    {"Do not escape tabs, newlines and returns", "Escape tabs, newlines and returns"}};
const OptionMenu lineBreaks{"Line breaks:", {"Unix (LF)", "Legacy Mac (CR)", "Windows (CRLF)"}};
const OptionMenu encoding{
    "Encoding:",
    {"UTF8 (Recommended)", "UTF16", "MacOS Roman (Legacy)", separator, "UTF16 (Big Endian)",
     "UTF16 (Little Endian)", separator, "Western (ISO Latin 1)", "Western (ISO Latin 2)",
     separator, "Japanese (ISO-2022-JP)", "Japanese EUC", "Japanese Shift JIS"}};
const OptionMenu indentation{
    "Indentation:",
    {"none", "1 Tab", "1 Space", "2 Spaces", "3 Spaces", "4 Spaces", "5 Spaces", "6 Spaces"}};
const OptionMenu tableHeaders{
    "Table Headers:",
    {"None", "Yes", "Numbered id (id=\"mql_th_1\", ..)", "Semantic id (id=\"mql_th_name, ..\")"}};
const OptionMenu columnClass{"Column Class:",
                             {"None", "Numbered class (class = \"mlq_td_1\", ..)",
                              "Semantic class (class = \"mlq_td_name\", ..)"}};

const OptionPanel csvOptionsPanel{
    {{columnTitles, &DataModel::includeColumnTitlesMode},
     {nullValues, &DataModel::nullValuesMode},
     {boolValues, &DataModel::boolValuesMode},
     {dateFormat, &DataModel::dateFormatMode},
     {multiLine, &DataModel::multiLineMode},
     {lineBreaks, &DataModel::linebreaksMode},
     {encoding, &DataModel::encodingMode}},
    {{"Put all values in quotes", &DataModel::quoteStrings}},
};

const OptionPanel jsonOptionsPanel{
    {{indentation, &DataModel::jsonIndentationMode},
     {dateFormat, &DataModel::jsonDateFormatMode},
     {lineBreaks, &DataModel::linebreaksMode},
     {encoding, &DataModel::encodingMode}},
    {},
};

const OptionPanel htmlOptionsPanel{
    {{indentation, &DataModel::htmlIndentationMode},
     {tableHeaders, &DataModel::htmlColumnIdHeaderMode},
     {columnClass, &DataModel::htmlColumnClassMode},
     {nullValues, &DataModel::nullValuesMode},
     {boolValues, &DataModel::boolValuesMode},
     {dateFormat, &DataModel::dateFormatMode},
     {lineBreaks, &DataModel::linebreaksMode}},
    {},
};

const OptionPanel spreadsheetOptionsPanel{
    {{columnTitles, &DataModel::includeColumnTitlesMode}},
    {},
};

}  // namespace

const OptionPanel& csvOptions() { return csvOptionsPanel; }
const OptionPanel& jsonOptions() { return jsonOptionsPanel; }
const OptionPanel& htmlOptions() { return htmlOptionsPanel; }
const OptionPanel& spreadsheetOptions() { return spreadsheetOptionsPanel; }

const char* titleOf(platform::TextEncoding wanted) {
    pipeline::DataModelSnapshot settings;
    settings.encodingMode = 0;
    for (const char* title : encoding.titles) {
        if (title != separator && settings.currentFileEncoding() == wanted) return title;
        ++settings.encodingMode;
    }
    return encoding.titles.front();
}

}  // namespace marquell::window
