// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "helpers/common/IndexProperties.h"
#include "helpers/sound/SoundTagIndex.h"
#include "helpers/sound/SoundTags.h"
#include "helpers/streams/StreamCodecs.h"
#include "helpers/streams/StreamFile.h"
#include "helpers/streams/StreamReaders.h"
#include "helpers/streams/StreamTags.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

namespace marquell::helpers {
namespace {

using platform::IndexAttribute;
using platform::PropertyDictionary;

/// In bytes.
struct FileLengths {
    std::uint64_t whole = 0;
    std::uint64_t tags = 0;  ///< in front
};

struct Kind {
    AVMediaType type = AVMEDIA_TYPE_UNKNOWN;
    const char* name = nullptr;
    std::optional<IndexAttribute> bitRate;
};

constexpr std::array kinds = {
    Kind{AVMEDIA_TYPE_AUDIO, "Sound", IndexAttribute::kMDItemAudioBitRate},
    Kind{AVMEDIA_TYPE_VIDEO, "Video", IndexAttribute::kMDItemVideoBitRate},
    Kind{AVMEDIA_TYPE_SUBTITLE, "Subtitles", std::nullopt},
};

const Kind* kindOf(const AVStream& stream) {
    const auto* const found = std::find_if(kinds.begin(), kinds.end(), [&stream](const Kind& row) {
        return row.type == stream.codecpar->codec_type;
    });
    return found != kinds.end() ? found : nullptr;
}

bool isPicture(const AVStream& stream) {
    return (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
}

using Streams = std::vector<const AVStream*>;

/// Those that are played: neither pictures nor data.
Streams playedStreams(const AVFormatContext& context) {
    Streams streams;
    for (const AVStream* const stream : std::span(context.streams, context.nb_streams)) {
        const bool isPlayed = kindOf(*stream) != nullptr && !isPicture(*stream);
        if (isPlayed && stream->codecpar->codec_id != AV_CODEC_ID_NONE) streams.push_back(stream);
    }
    return streams;
}

std::optional<double> bitsPerSample(const AVCodecParameters& codec) {
    if (!isLosslessSound(codec.codec_id)) return std::nullopt;
    for (const int bits : {codec.bits_per_raw_sample, codec.bits_per_coded_sample}) {
        if (bits > 0 && bits <= 64) return bits;
    }
    return std::nullopt;
}

/// What MPEG-1 says where the rate varies.
constexpr std::int64_t variableRate = 0x3FFFF * std::int64_t{400};

/// What writers of Matroska have counted, as a tag of the stream.
std::optional<double> countedBitRate(const AVStream& stream) {
    for (const char* const name : {"BPS", "BPS-eng"}) {
        const AVDictionaryEntry* const entry = av_dict_get(stream.metadata, name, nullptr, 0);
        if (entry == nullptr) continue;
        const std::string_view text = entry->value;
        std::uint32_t rate = 0;
        const auto [end, error] = std::from_chars(text.begin(), text.end(), rate);
        if (error == std::errc() && end == text.end() && rate > 0) return rate;
    }
    return std::nullopt;
}

std::optional<double> statedBitRate(const AVStream& stream) {
    const AVCodecParameters& codec = *stream.codecpar;
    if (codec.bit_rate > 0 && codec.bit_rate != variableRate) return codec.bit_rate;
    const int bits = av_get_exact_bits_per_sample(codec.codec_id);
    const double pcmRate = double{1} * bits * codec.sample_rate * codec.ch_layout.nb_channels;
    if (pcmRate > 0) return pcmRate;
    return countedBitRate(stream);
}

bool isComplete(const AVStream& stream) {
    const AVCodecParameters& codec = *stream.codecpar;
    if (codec.codec_type == AVMEDIA_TYPE_VIDEO) return codec.width > 0 && codec.height > 0;
    if (codec.codec_type != AVMEDIA_TYPE_AUDIO) return true;
    // The rate of MP3 is in its frames; from the length of the file it would not come out exactly.
    if (codec.codec_id == AV_CODEC_ID_MP3) return codec.bit_rate > 0;
    return !isLosslessSound(codec.codec_id) || bitsPerSample(codec).has_value();
}

/// Where there are no time stamps the library divides the length of the file by the rates.
bool isGuessed(const AVFormatContext& context) {
    return context.duration_estimation_method == AVFMT_DURATION_FROM_BITRATE &&
           std::ranges::any_of(playedStreams(context), [](const AVStream* stream) {
               return stream->codecpar->bit_rate == variableRate;
           });
}

std::optional<double> secondsOf(const AVFormatContext& context) {
    if (isGuessed(context)) return std::nullopt;
    double seconds = static_cast<double>(context.duration) / AV_TIME_BASE;
    if (context.duration == AV_NOPTS_VALUE) {
        seconds = 0;
        for (const AVStream* const stream : playedStreams(context)) {
            if (stream->duration == AV_NOPTS_VALUE) continue;
            const double length = static_cast<double>(stream->duration);
            seconds = std::max(seconds, length * av_q2d(stream->time_base));
        }
    }
    if (!std::isfinite(seconds) || seconds <= 0) return std::nullopt;
    return seconds;
}

/// Whether the header said all there is to be told.
bool isComplete(const AVFormatContext& context) {
    if ((context.ctx_flags & AVFMTCTX_NOHEADER) != 0) return false;
    const Streams streams = playedStreams(context);
    if (streams.empty()) return true;
    return secondsOf(context) &&
           std::ranges::all_of(streams, [](const AVStream* stream) { return isComplete(*stream); });
}

std::optional<double> totalBitRate(const AVFormatContext& context, FileLengths lengths) {
    const auto seconds = secondsOf(context);
    if (!seconds) return std::nullopt;
    // The library's own is that of what it sees.
    if (lengths.tags == 0 && context.bit_rate > 0) return context.bit_rate;
    return std::floor(static_cast<double>(lengths.whole) * 8 / *seconds);
}

/// The length of the file without its tags and pictures.
std::uint64_t playedBytes(const AVFormatContext& context, FileLengths lengths) {
    std::uint64_t bytes = lengths.whole - lengths.tags;
    for (const AVStream* const stream : std::span(context.streams, context.nb_streams)) {
        const auto picture = static_cast<std::uint64_t>(std::max(stream->attached_pic.size, 0));
        if (isPicture(*stream) && picture < bytes) bytes -= picture;
    }
    return bytes;
}

/// The rates of the streams; where only one of them is not stated, it is what the others leave.
/// Subtitles take next to nothing.
std::vector<std::optional<double>> bitRates(const AVFormatContext& context, const Streams& streams,
                                            FileLengths lengths) {
    std::vector<std::optional<double>> rates;
    double stated = 0;
    for (const AVStream* const stream : streams) {
        const bool isCounted = kindOf(*stream)->bitRate.has_value();
        const auto rate = statedBitRate(*stream);
        rates.push_back(isCounted ? rate : rate.value_or(0));
        stated += rate.value_or(0);
    }
    const auto seconds = secondsOf(context);
    constexpr std::optional<double> unknown;
    if (std::ranges::count(rates, unknown) != 1 || !seconds) return rates;
    const double rest = static_cast<double>(playedBytes(context, lengths)) * 8 / *seconds - stated;
    if (rest > 0) *std::ranges::find(rates, unknown) = rest;
    return rates;
}

void addBitRates(PropertyDictionary& index, const AVFormatContext& context, const Streams& streams,
                 FileLengths lengths) {
    const auto rates = bitRates(context, streams, lengths);
    for (const Kind& kind : kinds) {
        if (!kind.bitRate) continue;
        std::optional<double> sum;
        for (std::size_t i = 0; i < streams.size(); ++i) {
            if (kindOf(*streams[i]) != &kind || !rates[i]) continue;
            sum = sum.value_or(0) + *rates[i];
        }
        if (sum) addNumber(index, *kind.bitRate, std::round(*sum));
    }
    addNumber(index, IndexAttribute::kMDItemTotalBitRate, totalBitRate(context, lengths));
}

void addKindsAndCodecs(PropertyDictionary& index, const Streams& streams) {
    std::vector<std::string> types;
    std::vector<std::string> codecs;
    const auto addOnce = [](std::vector<std::string>& list, std::string text) {
        if (std::ranges::find(list, text) == list.end()) list.push_back(std::move(text));
    };
    for (const AVStream* const stream : streams) {
        addOnce(types, kindOf(*stream)->name);
        addOnce(codecs, streamCodecName(stream->codecpar->codec_id));
    }
    addTexts(index, IndexAttribute::kMDItemMediaTypes, std::move(types));
    addTexts(index, IndexAttribute::kMDItemCodecs, std::move(codecs));
}

void addParameters(PropertyDictionary& index, const Streams& streams) {
    for (const AVStream* const stream : streams) {
        const AVCodecParameters& codec = *stream->codecpar;
        if (codec.codec_type == AVMEDIA_TYPE_AUDIO) {
            addNumber(index, IndexAttribute::kMDItemBitsPerSample, bitsPerSample(codec));
        } else if (codec.codec_type == AVMEDIA_TYPE_VIDEO && codec.width > 0 && codec.height > 0) {
            addNumber(index, IndexAttribute::kMDItemPixelWidth, codec.width);
            addNumber(index, IndexAttribute::kMDItemPixelHeight, codec.height);
            addNumber(index, IndexAttribute::kMDItemPixelCount,
                      static_cast<double>(codec.width) * codec.height);
        }
    }
}

/// Whether readSoundTags reads the format: what it refuses there must not come back from the
/// library.
bool hasKnownTags(const AVFormatContext& context) {
    constexpr std::array<std::string_view, 6> formats = {
        "mov,mp4,m4a,3gp,3g2,mj2", "wav", "aiff", "caf", "au", "flac"};
    return std::ranges::find(formats, std::string_view(context.iformat->name)) != formats.end();
}

void addStreams(PropertyDictionary& index, StreamFile& file, std::uint64_t length) {
    const AVFormatContext& context = *file.context();
    if (!isComplete(context)) file.readPackets();
    const Streams streams = playedStreams(context);
    addKindsAndCodecs(index, streams);
    addParameters(index, streams);
    addNumber(index, IndexAttribute::kMDItemDurationSeconds, secondsOf(context));
    if (!streams.empty()) addBitRates(index, context, streams, {length, file.tagLength()});
}

}  // namespace

std::optional<PropertyDictionary> streamIndex(Input& input, std::string_view extension) {
    StreamFile file(input, extension);
    PropertyDictionary index;
    if (file.context() != nullptr) addStreams(index, file, input.size());
    // They may stand in front of streams that are broken.
    SoundTags tags = readSoundTags(input, extension);
    if (tags.isEmpty() && file.context() != nullptr && !hasKnownTags(*file.context())) {
        tags = streamTags(*file.context(), input);
    }
    addSoundTagIndex(index, tags);
    if (index.empty()) return std::nullopt;
    return index;
}

}  // namespace marquell::helpers
