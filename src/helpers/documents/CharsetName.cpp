// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/documents/CharsetName.h"

#include <array>
#include <utility>

#include "helpers/documents/DocumentText.h"

namespace marquell::helpers {
namespace {

constexpr std::array<std::pair<std::string_view, Charset>, 44> names = {{
    {"iso-8859-1", Charset::windows1252},
    {"latin1", Charset::windows1252},
    {"windows-1252", Charset::windows1252},
    {"cp1252", Charset::windows1252},
    {"iso-8859-2", Charset::latin2},
    {"latin2", Charset::latin2},
    {"iso-8859-3", Charset::latin3},
    {"latin3", Charset::latin3},
    {"iso-8859-4", Charset::latin4},
    {"latin4", Charset::latin4},
    {"iso-8859-5", Charset::cyrillic},
    {"cyrillic", Charset::cyrillic},
    {"iso-8859-6", Charset::arabic},
    {"arabic", Charset::arabic},
    {"iso-8859-7", Charset::greek},
    {"greek", Charset::greek},
    {"iso-8859-8", Charset::hebrew},
    {"iso-8859-8-i", Charset::hebrew},
    {"hebrew", Charset::hebrew},
    {"iso-8859-9", Charset::latin5},
    {"latin5", Charset::latin5},
    {"windows-1254", Charset::latin5},
    {"iso-2022-jp", Charset::jis},
    {"iso-8859-15", Charset::latin9},
    {"latin9", Charset::latin9},
    {"windows-1250", Charset::windows1250},
    {"cp1250", Charset::windows1250},
    {"windows-1251", Charset::windows1251},
    {"cp1251", Charset::windows1251},
    {"koi8-r", Charset::koi8},
    {"koi8-u", Charset::koi8},
    {"shift_jis", Charset::shiftJis},
    {"shift-jis", Charset::shiftJis},
    {"windows-31j", Charset::shiftJis},
    {"euc-jp", Charset::eucJp},
    {"euc-kr", Charset::eucKr},
    {"ks_c_5601-1987", Charset::eucKr},
    {"gb2312", Charset::gb18030},
    {"gbk", Charset::gb18030},
    {"gb18030", Charset::gb18030},
    {"big5", Charset::big5},
    {"big5-hkscs", Charset::big5},
    {"utf-16be", Charset::utf16BigEndian},
    {"utf-16le", Charset::utf16LittleEndian},
}};

}  // namespace

Charset charsetNamed(std::string_view name) {
    for (const auto& [known, charset] : names) {
        if (isSameName(known, name)) return charset;
    }
    return Charset::likely;
}

}  // namespace marquell::helpers
