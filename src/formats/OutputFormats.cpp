// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/CSVOutputFormat.h"
#include "formats/OutputFormatType.h"

namespace marquell::formats {

const OutputFormatType* outputFormat(pipeline::OutputFormatIndexEnum index) {
    static const CSVOutputFormat csv;
    return index == pipeline::OutputFormatIndexEnum::CSV ? &csv : nullptr;
}

}  // namespace marquell::formats
