// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/DataModelSnapshot.h"

#include <array>

namespace marquell::pipeline {
namespace {

struct EncodingChoice {
    int mode;
    TextEncoding encoding;
};

/// The gaps are the separators of the menu.
constexpr std::array<EncodingChoice, 10> encodingChoices = {{
    {0, TextEncoding::utf8},
    {1, TextEncoding::utf16},
    {2, TextEncoding::macOSRoman},
    {4, TextEncoding::utf16BigEndian},
    {5, TextEncoding::utf16LittleEndian},
    {7, TextEncoding::isoLatin1},
    {8, TextEncoding::isoLatin2},
    {10, TextEncoding::iso2022JP},
    {11, TextEncoding::japaneseEUC},
    {12, TextEncoding::shiftJIS},
}};

}  // namespace

bool isCase(OutputFormatIndexEnum value) {
    switch (value) {
        case OutputFormatIndexEnum::CSV:
        case OutputFormatIndexEnum::TSV:
        case OutputFormatIndexEnum::JSON:
        case OutputFormatIndexEnum::HTML:
        case OutputFormatIndexEnum::CopyToHTML:
        case OutputFormatIndexEnum::CopyToExcel:
            return true;
    }
    return false;
}

TextEncoding DataModelSnapshot::currentFileEncoding() const {
    for (const EncodingChoice& choice : encodingChoices) {
        if (choice.mode == encodingMode) return choice.encoding;
    }
    return TextEncoding::utf8;
}

}  // namespace marquell::pipeline
