// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/streams/StreamFormats.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace marquell::helpers {
namespace {

using namespace std::string_view_literals;

constexpr std::array formats = {
    // Video
    "mov,mp4,m4a,3gp,3g2,mj2", "matroska,webm", "avi", "asf", "asf_o", "flv", "live_flv", "mpeg",
    "mpegts", "mpegvideo", "m4v", "h261", "h263", "h264", "hevc", "av1", "obu", "ivf", "vc1",
    "vc1test", "dirac", "dv", "mxf", "gxf", "rm", "ogg", "nut", "nuv", "nsv", "wtv", "swf", "roq",
    "smk", "bink", "flic", "film_cpk", "4xm", "vivo", "yuv4mpegpipe", "mjpeg", "cavsvideo", "dnxhd",
    "lmlm4", "mtv", "mv", "pva", "r3d", "rl2", "thp", "txd", "ty", "vmd", "xmv", "kux",
    // Sound
    "mp3", "aac", "ac3", "eac3", "dts", "dtshd", "truehd", "mlp", "flac", "wav", "w64", "aiff",
    "caf", "au", "voc", "amr", "amrnb", "amrwb", "ape", "wv", "tta", "tak", "mpc", "mpc8", "dsf",
    "iff", "loas", "oma", "aea", "ast", "avr", "gsm", "ilbc", "ircam", "mmf", "nistsphere", "paf",
    "qcp", "sbc", "shn", "sln", "sol", "sox", "spdif", "vqf", "xwma", "aptx", "codec2", "act", "aa",
    "aax", "bit", "g722", "g729", "xa", "wve", "pvf", "dss", "dsicin", "hca"};

struct Signature {
    std::size_t offset;
    std::string_view bytes;
    const char* format;
};

constexpr std::array signatures = {
    Signature{4, "ftyp"sv, "mov"},
    Signature{4, "moov"sv, "mov"},
    Signature{4, "mdat"sv, "mov"},
    Signature{4, "wide"sv, "mov"},
    Signature{0, "\x1A\x45\xDF\xA3"sv, "matroska"},
    Signature{0, "OggS"sv, "ogg"},
    Signature{0, "fLaC"sv, "flac"},
    Signature{8, "AVI "sv, "avi"},
    Signature{8, "WAVE"sv, "wav"},
    Signature{8, "AIFF"sv, "aiff"},
    Signature{8, "AIFC"sv, "aiff"},
    Signature{0, "caff"sv, "caf"},
    Signature{0, ".snd"sv, "au"},
    Signature{0, "\x30\x26\xB2\x75\x8E\x66\xCF\x11"sv, "asf"},
    Signature{0, "FLV\x01"sv, "flv"},
    Signature{0, "\0\0\x01\xBA"sv, "mpeg"},
    Signature{0, "MAC "sv, "ape"},
    Signature{0, "wvpk"sv, "wv"},
    Signature{0, "TTA1"sv, "tta"},
    Signature{0, "tBaK"sv, "tak"},
    Signature{0, "MPCK"sv, "mpc8"},
    Signature{0, "MP+\x07"sv, "mpc"},
    Signature{0, "DSD "sv, "dsf"},
    Signature{0, "FRM8"sv, "iff"},
    Signature{0, ".RMF"sv, "rm"},
    Signature{0, "#!AMR"sv, "amr"},
    Signature{0, "Creative Voice File\x1A"sv, "voc"},
    Signature{0, "riff\x2E\x91\xCF\x11"sv, "w64"},
};

/// Formats without a signature of their own, or one behind an ID3 tag, by what the file is called.
struct NamedFormat {
    std::string_view extension;
    const char* format;
};

constexpr std::array namedFormats = {
    NamedFormat{"mp3", "mp3"}, NamedFormat{"mp2", "mp3"},   NamedFormat{"mpga", "mp3"},
    NamedFormat{"aac", "aac"}, NamedFormat{"flac", "flac"}, NamedFormat{"tta", "tta"},
    NamedFormat{"ape", "ape"}, NamedFormat{"ac3", "ac3"},   NamedFormat{"ts", "mpegts"},
};

/// How files begin that are what they are called. Other content may do so by chance: the library
/// looks at more of it when it opens them.
constexpr std::array likelyStarts = {
    Signature{0, "ID3"sv, nullptr},
    Signature{0, "\xFF\xFB"sv, "mp3"},
    Signature{0, "\xFF\xFA"sv, "mp3"},
    Signature{0, "\xFF\xF3"sv, "mp3"},
    Signature{0, "\xFF\xF2"sv, "mp3"},
    Signature{0, "\xFF\xE3"sv, "mp3"},
    Signature{0, "\xFF\xF1"sv, "aac"},
    Signature{0, "\xFF\xF9"sv, "aac"},
    Signature{0, "\x47\x40\x00\x10"sv, "mpegts"},
    Signature{0, "\x47\x40\x11\x10"sv, "mpegts"},
};

bool hasSignature(std::string_view start, const Signature& row) {
    return start.size() > row.offset && start.substr(row.offset).starts_with(row.bytes);
}

const char* signedFormatOf(std::string_view start, std::span<const Signature> rows) {
    for (const Signature& row : rows) {
        if (hasSignature(start, row)) return row.format;
    }
    return nullptr;
}

const char* likelyFormatOf(std::string_view start, std::string_view extension) {
    for (const NamedFormat& named : namedFormats) {
        if (named.extension != extension) continue;
        for (const Signature& row : likelyStarts) {
            const bool isOfFormat =
                row.format == nullptr || std::string_view(row.format) == named.format;
            if (isOfFormat && hasSignature(start, row)) return named.format;
        }
    }
    return nullptr;
}

}  // namespace

const std::string& streamFormats() {
    static const std::string joined = [] {
        std::string list;
        for (const char* format : formats) list.append(list.empty() ? "" : ",").append(format);
        return list;
    }();
    return joined;
}

const char* streamFormatOf(Input& input, std::uint64_t tagLength, std::string_view extension) {
    constexpr std::size_t length = 32;
    const std::string start = input.bytesAt(0, length);
    const std::string content = tagLength == 0 ? start : input.bytesAt(tagLength, length);
    if (const char* const format = signedFormatOf(content, signatures)) return format;
    if (tagLength > 0) {
        // Few bits alone say it, but few other things stand behind such a tag.
        if (const char* const format = signedFormatOf(content, likelyStarts)) return format;
    }
    return likelyFormatOf(start, extension);
}

}  // namespace marquell::helpers
