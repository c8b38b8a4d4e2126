// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/column/OutputFormatTitles.h"

#include "window/Text.h"

namespace marquell::toolkit {

using pipeline::OutputFormatIndexEnum;

namespace {

struct FormatTitle {
    OutputFormatIndexEnum format;
    const char* title;
};

constexpr FormatTitle formatTitles[] = {
    {OutputFormatIndexEnum::CSV, "Comma Separated Values (CSV & Excel)"},
    {OutputFormatIndexEnum::TSV, "Tab Separated Values (TSV & Excel)"},
    {OutputFormatIndexEnum::JSON, "JSON"},
    {OutputFormatIndexEnum::HTML, "HTML"},
    {OutputFormatIndexEnum::CopyToHTML, "Copy to HTML Editor"},
    {OutputFormatIndexEnum::CopyToExcel, "Copy to MS Excel or Apple Numbers"},
};

}  // namespace

std::vector<TitledCase<OutputFormatIndexEnum>> EnumTitles<OutputFormatIndexEnum>::cases() {
    std::vector<TitledCase<OutputFormatIndexEnum>> cases;
    for (const FormatTitle& each : formatTitles) {
        cases.push_back({each.format, window::localizedText(each.title, "popup menu choice")});
    }
    return cases;
}

}  // namespace marquell::toolkit
