// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/Id3Text.h"

#include <algorithm>
#include <array>

#include "helpers/sound/Id3Forms.h"

namespace marquell::helpers {
namespace {

struct Row {
    std::string_view id;
    Id3Form form;
};

/// Content without a text: pictures, files, tables for players.
constexpr Id3Form none = nullptr;

constexpr std::array rows = {
    Row{"AENC", none},
    Row{"APIC", none},
    Row{"ASPI", none},
    Row{"CHAP", none},
    Row{"COMM", id3Comment},
    Row{"COMR", id3Commercial},
    Row{"CRM", none},
    Row{"CTOC", none},
    Row{"ENCR", id3Encryption},
    Row{"EQU2", id3Equalization2},
    Row{"EQUA", id3Equalization},
    Row{"ETCO", id3Events},
    Row{"GEOB", none},
    Row{"GRID", id3Group},
    // Texts by nature, but not by the first letter.
    Row{"GRP1", id3PlainText},
    Row{"IPLS", id3People},
    Row{"LINK", id3Link},
    Row{"MCDI", id3MusicCd},
    Row{"MLLT", none},
    Row{"MVIN", id3PlainText},
    Row{"MVNM", id3PlainText},
    Row{"OWNE", id3Ownership},
    Row{"PCNT", id3PlayCounter},
    Row{"POPM", id3Popularimeter},
    Row{"POSS", id3Position},
    Row{"PRIV", id3OwnersData},
    Row{"RBUF", none},
    Row{"RVA2", id3Volume2},
    Row{"RVAD", id3Volume},
    Row{"RVRB", id3Reverb},
    Row{"SEEK", none},
    Row{"SIGN", id3Signature},
    Row{"SYLT", id3TimedLyrics},
    Row{"SYTC", id3Tempo},
    Row{"TCON", id3Genre},
    Row{"TIPL", id3People},
    Row{"TMCL", id3People},
    Row{"TXXX", id3UserText},
    Row{"UFID", id3OwnersData},
    Row{"USER", id3TermsOfUse},
    Row{"USLT", id3Lyrics},
    Row{"WFED", id3PlainText},
    Row{"WXXX", id3UserAddress},
};

Id3Form formOf(std::string_view id) {
    const auto* const found = std::ranges::find(rows, id, &Row::id);
    if (found != rows.end()) return found->form;
    if (id.starts_with('T')) return id3PlainText;
    return id.starts_with('W') ? id3Address : id3Unknown;
}

}  // namespace

std::string Id3Text::written() const {
    if (description.empty()) return text;
    return text.empty() ? description : description + ": " + text;
}

bool canHaveId3Text(std::string_view id) { return formOf(id) != none; }

std::optional<Id3Text> id3Text(std::string_view id, std::string_view content) {
    const Id3Form form = formOf(id);
    return form == none ? std::nullopt : form(content);
}

std::string joinedTexts(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts) {
        if (text.empty()) continue;
        if (!joined.empty()) joined += ", ";
        joined += text;
    }
    return joined;
}

}  // namespace marquell::helpers
