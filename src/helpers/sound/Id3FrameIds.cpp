// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/Id3FrameIds.h"

#include <algorithm>
#include <array>

namespace marquell::helpers {
namespace {

struct Renamed {
    std::string_view old;
    std::string_view current;
};

// The last three are no part of the standard, but written by a widespread program.
constexpr std::array renamed = {
    Renamed{"BUF", "RBUF"}, Renamed{"CNT", "PCNT"}, Renamed{"COM", "COMM"}, Renamed{"CRA", "AENC"},
    Renamed{"ETC", "ETCO"}, Renamed{"EQU", "EQUA"}, Renamed{"GEO", "GEOB"}, Renamed{"IPL", "IPLS"},
    Renamed{"LNK", "LINK"}, Renamed{"MCI", "MCDI"}, Renamed{"MLL", "MLLT"}, Renamed{"PIC", "APIC"},
    Renamed{"POP", "POPM"}, Renamed{"REV", "RVRB"}, Renamed{"RVA", "RVAD"}, Renamed{"SLT", "SYLT"},
    Renamed{"STC", "SYTC"}, Renamed{"TAL", "TALB"}, Renamed{"TBP", "TBPM"}, Renamed{"TCM", "TCOM"},
    Renamed{"TCO", "TCON"}, Renamed{"TCR", "TCOP"}, Renamed{"TDA", "TDAT"}, Renamed{"TDY", "TDLY"},
    Renamed{"TEN", "TENC"}, Renamed{"TFT", "TFLT"}, Renamed{"TIM", "TIME"}, Renamed{"TKE", "TKEY"},
    Renamed{"TLA", "TLAN"}, Renamed{"TLE", "TLEN"}, Renamed{"TMT", "TMED"}, Renamed{"TOA", "TOPE"},
    Renamed{"TOF", "TOFN"}, Renamed{"TOL", "TOLY"}, Renamed{"TOR", "TORY"}, Renamed{"TOT", "TOAL"},
    Renamed{"TP1", "TPE1"}, Renamed{"TP2", "TPE2"}, Renamed{"TP3", "TPE3"}, Renamed{"TP4", "TPE4"},
    Renamed{"TPA", "TPOS"}, Renamed{"TPB", "TPUB"}, Renamed{"TRC", "TSRC"}, Renamed{"TRD", "TRDA"},
    Renamed{"TRK", "TRCK"}, Renamed{"TSI", "TSIZ"}, Renamed{"TSS", "TSSE"}, Renamed{"TT1", "TIT1"},
    Renamed{"TT2", "TIT2"}, Renamed{"TT3", "TIT3"}, Renamed{"TXT", "TEXT"}, Renamed{"TXX", "TXXX"},
    Renamed{"TYE", "TYER"}, Renamed{"UFI", "UFID"}, Renamed{"ULT", "USLT"}, Renamed{"WAF", "WOAF"},
    Renamed{"WAR", "WOAR"}, Renamed{"WAS", "WOAS"}, Renamed{"WCM", "WCOM"}, Renamed{"WCP", "WCOP"},
    Renamed{"WPB", "WPUB"}, Renamed{"WXX", "WXXX"}, Renamed{"GP1", "GRP1"}, Renamed{"MVN", "MVNM"},
    Renamed{"MVI", "MVIN"},
};

}  // namespace

std::string_view currentId3FrameId(std::string_view id) {
    const auto* const found = std::ranges::find(renamed, id, &Renamed::old);
    return found == renamed.end() ? id : found->current;
}

}  // namespace marquell::helpers
