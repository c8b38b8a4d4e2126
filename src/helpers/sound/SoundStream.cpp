// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/sound/SoundStream.h"

#include <array>
#include <cmath>

#include "helpers/common/DecodedText.h"
#include "helpers/common/Numbers.h"
#include "helpers/sound/SoundStreams.h"

namespace marquell::helpers {
namespace {

struct CodecName {
    std::string_view code;
    std::string_view name;
};

constexpr std::array codecNames = {
    CodecName{"NONE", linearPcm},
    CodecName{"lpcm", linearPcm},
    CodecName{"twos", linearPcm},
    CodecName{"sowt", linearPcm},
    CodecName{"raw ", linearPcm},
    CodecName{"in24", linearPcm},
    CodecName{"in32", linearPcm},
    CodecName{"42ni", linearPcm},
    CodecName{"23ni", linearPcm},
    CodecName{"fl32", floatingPcm},
    CodecName{"FL32", floatingPcm},
    CodecName{"fl64", floatingPcm},
    CodecName{"FL64", floatingPcm},
    CodecName{"alaw", aLaw},
    CodecName{"ALAW", aLaw},
    CodecName{"ulaw", muLaw},
    CodecName{"ULAW", muLaw},
    CodecName{"ima4", "IMA ADPCM"},
    CodecName{"MAC3", "MACE 3:1"},
    CodecName{"MAC6", "MACE 6:1"},
    CodecName{"GSM ", "GSM 6.10"},
    CodecName{"agsm", "GSM 6.10"},
    CodecName{"G722", "G.722"},
    CodecName{"alac", "Apple Lossless"},
    CodecName{"aac ", "AAC"},
    CodecName{"aach", "AAC"},
    CodecName{"aacp", "AAC"},
    CodecName{"aacl", "AAC"},
    CodecName{"aace", "AAC"},
    CodecName{".mp1", "MP1"},
    CodecName{".mp2", "MP2"},
    CodecName{".mp3", "MP3"},
    CodecName{"ac-3", "AC-3"},
    CodecName{"ec-3", "E-AC-3"},
    CodecName{"samr", "AMR-NB"},
    CodecName{"sawb", "AMR-WB"},
    CodecName{"ilbc", "iLBC"},
    CodecName{"opus", "Opus"},
    CodecName{"flac", "FLAC"},
    CodecName{"QDM2", "QDesign Music 2"},
    CodecName{"QDMC", "QDesign Music"},
    CodecName{"Qclp", "QCELP"},
};

/// Behind the tags that lie in front of some FLAC files.
std::uint64_t endOfId3Tags(Input& input) {
    constexpr int most = 16;
    std::uint64_t position = 0;
    for (int count = 0; count < most; ++count) {
        const std::string header = input.bytesAt(position, 10);
        if (header.size() < 10 || !header.starts_with("ID3")) break;
        std::uint64_t length = 0;
        for (std::size_t i = 6; i < 10; ++i) {
            length = length << 7U | (bigEndian(header, i, 1) & 0x7FU);
        }
        constexpr std::uint64_t footerFlag = 0x10;
        const bool hasFooter = (bigEndian(header, 5, 1) & footerFlag) != 0;
        position += (hasFooter ? 20 : 10) + length;
    }
    return position;
}

}  // namespace

std::string codecOfCharacters(std::string_view code) {
    for (const CodecName& known : codecNames) {
        if (known.code == code) return std::string(known.name);
    }
    return isReadableText(code) ? decodedText(code, Charset::likely) : std::string();
}

bool isUncompressed(std::string_view codec) {
    return codec == linearPcm || codec == floatingPcm || codec == aLaw || codec == muLaw;
}

void setNumbers(SoundStream& stream, const SoundNumbers& numbers) {
    const double seconds = numbers.frames / numbers.sampleRate;
    if (std::isfinite(seconds) && seconds >= 0) stream.seconds = seconds;
    double bitRate = numbers.bitsPerFrame * numbers.sampleRate;
    if (!(bitRate > 0)) bitRate = numbers.statedBitRate;
    if (!(bitRate > 0)) bitRate = static_cast<double>(numbers.bytes) * 8 / seconds;
    if (std::isfinite(bitRate) && bitRate > 0) stream.bitRate = bitRate;
    constexpr std::uint64_t most = 64;
    if (numbers.bitsPerSample > 0 && numbers.bitsPerSample <= most) {
        stream.bitsPerSample = static_cast<unsigned>(numbers.bitsPerSample);
    }
}

std::optional<SoundStream> readSoundStream(Input& input) {
    const ChunkFile chunkFile = chunkFileOf(input);
    if (chunkFile.isKnown) {
        return chunkFile.type == fourCharacters("WAVE") ? readWaveStream(input, chunkFile.form)
                                                        : readAiffStream(input);
    }
    const std::string start = input.bytesAt(0, 4);
    if (start == "caff") return readCafStream(input);
    if (start == ".snd") return readAuStream(input);
    const std::uint64_t position = endOfId3Tags(input);
    if (input.bytesAt(position, 4) == "fLaC") return readFlacStream(input, position);
    return std::nullopt;
}

}  // namespace marquell::helpers
