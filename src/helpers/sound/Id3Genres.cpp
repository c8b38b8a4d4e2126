// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/Id3Genres.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "helpers/common/Input.h"
#include "helpers/sound/Id3Text.h"

namespace marquell::helpers {
namespace {

constexpr std::array<std::string_view, 192> genres = {"Blues",
                                                      "Classic Rock",
                                                      "Country",
                                                      "Dance",
                                                      "Disco",
                                                      "Funk",
                                                      "Grunge",
                                                      "Hip-Hop",
                                                      "Jazz",
                                                      "Metal",
                                                      "New Age",
                                                      "Oldies",
                                                      "Other",
                                                      "Pop",
                                                      "R&B",
                                                      "Rap",
                                                      "Reggae",
                                                      "Rock",
                                                      "Techno",
                                                      "Industrial",
                                                      "Alternative",
                                                      "Ska",
                                                      "Death Metal",
                                                      "Pranks",
                                                      "Soundtrack",
                                                      "Euro-Techno",
                                                      "Ambient",
                                                      "Trip-Hop",
                                                      "Vocal",
                                                      "Jazz+Funk",
                                                      "Fusion",
                                                      "Trance",
                                                      "Classical",
                                                      "Instrumental",
                                                      "Acid",
                                                      "House",
                                                      "Game",
                                                      "Sound Clip",
                                                      "Gospel",
                                                      "Noise",
                                                      "Alternative Rock",
                                                      "Bass",
                                                      "Soul",
                                                      "Punk",
                                                      "Space",
                                                      "Meditative",
                                                      "Instrumental Pop",
                                                      "Instrumental Rock",
                                                      "Ethnic",
                                                      "Gothic",
                                                      "Darkwave",
                                                      "Techno-Industrial",
                                                      "Electronic",
                                                      "Pop-Folk",
                                                      "Eurodance",
                                                      "Dream",
                                                      "Southern Rock",
                                                      "Comedy",
                                                      "Cult",
                                                      "Gangsta",
                                                      "Top 40",
                                                      "Christian Rap",
                                                      "Pop/Funk",
                                                      "Jungle",
                                                      "Native American",
                                                      "Cabaret",
                                                      "New Wave",
                                                      "Psychedelic",
                                                      "Rave",
                                                      "Showtunes",
                                                      "Trailer",
                                                      "Lo-Fi",
                                                      "Tribal",
                                                      "Acid Punk",
                                                      "Acid Jazz",
                                                      "Polka",
                                                      "Retro",
                                                      "Musical",
                                                      "Rock & Roll",
                                                      "Hard Rock",
                                                      "Folk",
                                                      "Folk-Rock",
                                                      "National Folk",
                                                      "Swing",
                                                      "Fast Fusion",
                                                      "Bebop",
                                                      "Latin",
                                                      "Revival",
                                                      "Celtic",
                                                      "Bluegrass",
                                                      "Avantgarde",
                                                      "Gothic Rock",
                                                      "Progressive Rock",
                                                      "Psychedelic Rock",
                                                      "Symphonic Rock",
                                                      "Slow Rock",
                                                      "Big Band",
                                                      "Chorus",
                                                      "Easy Listening",
                                                      "Acoustic",
                                                      "Humour",
                                                      "Speech",
                                                      "Chanson",
                                                      "Opera",
                                                      "Chamber Music",
                                                      "Sonata",
                                                      "Symphony",
                                                      "Booty Bass",
                                                      "Primus",
                                                      "Porn Groove",
                                                      "Satire",
                                                      "Slow Jam",
                                                      "Club",
                                                      "Tango",
                                                      "Samba",
                                                      "Folklore",
                                                      "Ballad",
                                                      "Power Ballad",
                                                      "Rhythmic Soul",
                                                      "Freestyle",
                                                      "Duet",
                                                      "Punk Rock",
                                                      "Drum Solo",
                                                      "A Cappella",
                                                      "Euro-House",
                                                      "Dance Hall",
                                                      "Goa",
                                                      "Drum & Bass",
                                                      "Club-House",
                                                      "Hardcore",
                                                      "Terror",
                                                      "Indie",
                                                      "BritPop",
                                                      "Afro-Punk",
                                                      "Polsk Punk",
                                                      "Beat",
                                                      "Christian Gangsta Rap",
                                                      "Heavy Metal",
                                                      "Black Metal",
                                                      "Crossover",
                                                      "Contemporary Christian",
                                                      "Christian Rock",
                                                      "Merengue",
                                                      "Salsa",
                                                      "Thrash Metal",
                                                      "Anime",
                                                      "JPop",
                                                      "Synthpop",
                                                      "Abstract",
                                                      "Art Rock",
                                                      "Baroque",
                                                      "Bhangra",
                                                      "Big Beat",
                                                      "Breakbeat",
                                                      "Chillout",
                                                      "Downtempo",
                                                      "Dub",
                                                      "EBM",
                                                      "Eclectic",
                                                      "Electro",
                                                      "Electroclash",
                                                      "Emo",
                                                      "Experimental",
                                                      "Garage",
                                                      "Global",
                                                      "IDM",
                                                      "Illbient",
                                                      "Industro-Goth",
                                                      "Jam Band",
                                                      "Krautrock",
                                                      "Leftfield",
                                                      "Lounge",
                                                      "Math Rock",
                                                      "New Romantic",
                                                      "Nu-Breakz",
                                                      "Post-Punk",
                                                      "Post-Rock",
                                                      "Psytrance",
                                                      "Shoegaze",
                                                      "Space Rock",
                                                      "Trop Rock",
                                                      "World Music",
                                                      "Neoclassical",
                                                      "Audiobook",
                                                      "Audio Theatre",
                                                      "Neue Deutsche Welle",
                                                      "Podcast",
                                                      "Indie Rock",
                                                      "G-Funk",
                                                      "Dubstep",
                                                      "Garage Rock",
                                                      "Psybient"};

/// Empty if the reference leads to no name.
std::string_view nameOf(std::string_view reference) {
    if (reference == "RX") return "Remix";
    if (reference == "CR") return "Cover";
    std::uint64_t number = 0;
    const char* const end = reference.data() + reference.size();
    const auto parsed = std::from_chars(reference.data(), end, number);
    if (parsed.ec != std::errc{} || parsed.ptr != end) return {};
    return id3GenreName(number);
}

}  // namespace

std::string_view id3GenreName(std::uint64_t number) {
    return number < genres.size() ? genres[static_cast<std::size_t>(number)] : std::string_view();
}

std::string id3GenreText(std::string_view value) {
    std::vector<std::string> names;
    while (value.starts_with("(") && !value.starts_with("((") && names.size() < maximumSteps) {
        const std::size_t close = value.find(')');
        if (close == std::string_view::npos) break;
        const std::string_view name = nameOf(value.substr(1, close - 1));
        if (name.empty()) break;
        names.emplace_back(name);
        value.remove_prefix(close + 1);
    }
    // A text of its own that begins with a bracket has that doubled.
    if (value.starts_with("((")) value.remove_prefix(1);
    const std::string_view name = nameOf(value);
    const std::string_view last = name.empty() ? value : name;
    // Often the text only repeats what the number says.
    if (names.empty() || names.back() != last) names.emplace_back(last);
    return joinedTexts(names);
}

}  // namespace marquell::helpers
