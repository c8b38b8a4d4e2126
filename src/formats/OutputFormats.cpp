// SPDX-License-Identifier: GPL-3.0-or-later
#include <map>

#include "formats/CSVOutputFormat.h"
#include "formats/CopyToExcelFormat.h"
#include "formats/CopyToHTMLEditorOutputFormat.h"
#include "formats/HTMLOutputFormat.h"
#include "formats/JSONOutputFormat.h"
#include "formats/OutputFormatType.h"
#include "formats/TSVOutputFormat.h"

namespace marquell::formats {

const OutputFormatType& outputFormat(pipeline::OutputFormatIndexEnum index) {
    using Index = pipeline::OutputFormatIndexEnum;
    static const CSVOutputFormat csv;
    static const TSVOutputFormat tsv;
    static const JSONOutputFormat json;
    static const HTMLOutputFormat html;
    static const CopyToHTMLEditorOutputFormat copyToHtml;
    static const CopyToExcelFormat copyToExcel;
    static const std::map<Index, const OutputFormatType*> outputFormats = {
        {Index::CSV, &csv},
        {Index::TSV, &tsv},
        {Index::JSON, &json},
        {Index::HTML, &html},
        {Index::CopyToHTML, &copyToHtml},
        {Index::CopyToExcel, &copyToExcel},
    };
    const auto found = outputFormats.find(index);
    return found == outputFormats.end() ? csv : *found->second;
}

}  // namespace marquell::formats
