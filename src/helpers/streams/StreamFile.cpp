// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/streams/StreamFile.h"

#include <algorithm>
#include <ctime>
#include <span>

#include "helpers/sound/Id3Tag.h"
#include "helpers/streams/StreamFormats.h"

namespace marquell::helpers {
namespace {

constexpr int bufferLength = 16384;
constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
constexpr std::int64_t processorTime = nanosecondsPerSecond;

std::int64_t processorTimeNow() {
    timespec now{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return now.tv_sec * nanosecondsPerSecond + now.tv_nsec;
}

/// Stands in for what opens the files that a file names: there are none.
int openNothing(AVFormatContext* /*context*/, AVIOContext** /*io*/, const char* /*url*/,
                int /*flags*/, AVDictionary** /*options*/) {
    return AVERROR(EPERM);
}

}  // namespace

void StreamFile::IoDeleter::operator()(AVIOContext* io) const {
    av_freep(&io->buffer);  // not what it was made with: the library replaces it
    avio_context_free(&io);
}

StreamFile::StreamFile(Input& input, std::string_view extension)
    // In these tags the library takes time that grows with the square of the fields, seconds for
    // some MB, and a lot of memory. readSoundTags has what is in them.
    : source_{input, id3TagsEnd(input), 0, processorTimeNow() + processorTime} {
    auto* const buffer = static_cast<unsigned char*>(av_malloc(bufferLength));
    if (buffer == nullptr) return;
    io_.reset(avio_alloc_context(buffer, bufferLength, 0, &source_, read, nullptr, seek));
    if (io_ == nullptr) {
        av_free(buffer);
        return;
    }
    const char* const format = streamFormatOf(input, source_.begin, extension);
    if (format != nullptr) open(av_find_input_format(format));
    if (context_ == nullptr) open(nullptr);
}

StreamFile::~StreamFile() {
    if (context_ != nullptr) avformat_close_input(&context_);
}

void StreamFile::open(const AVInputFormat* format) {
    AVFormatContext* context = avformat_alloc_context();
    if (context == nullptr || avio_seek(io_.get(), 0, SEEK_SET) < 0) {
        avformat_free_context(context);
        return;
    }
    context->pb = io_.get();
    context->io_open = openNothing;
    context->interrupt_callback = {isOverdue, &source_};
    context->probesize = 2 << 20;
    context->max_probe_packets = 500;
    context->max_streams = 200;
    AVDictionary* options = nullptr;
    av_dict_set(&options, "format_whitelist", streamFormats().c_str(), 0);
    av_dict_set(&options, "protocol_whitelist", "", 0);
    av_dict_set_int(&options, "formatprobesize", 1 << 16, 0);
    // Frees the context if it fails.
    if (avformat_open_input(&context, "", format, &options) == 0) context_ = context;
    av_dict_free(&options);
}

void StreamFile::readPackets() {
    // Streams without a list of them turn up among the packets. Sound alone has better use for
    // more: its rate is estimated from them.
    const bool isUnlisted = (context_->ctx_flags & AVFMTCTX_NOHEADER) != 0;
    if (isUnlisted) context_->max_analyze_duration = AV_TIME_BASE;
    avformat_find_stream_info(context_, nullptr);
}

int StreamFile::read(void* source, std::uint8_t* buffer, int length) {
    auto& from = *static_cast<Source*>(source);
    if (isOverdue(source) != 0) return AVERROR_EXIT;
    const std::span<std::uint8_t> bytes(buffer, static_cast<std::size_t>(std::max(length, 0)));
    const std::size_t count = from.input.readAt(
        from.begin + from.position, {reinterpret_cast<char*>(bytes.data()), bytes.size()});
    from.position += count;
    return count > 0 ? static_cast<int>(count) : AVERROR_EOF;
}

std::int64_t StreamFile::seek(void* source, std::int64_t offset, int whence) {
    auto& from = *static_cast<Source*>(source);
    if (whence == AVSEEK_SIZE) return static_cast<std::int64_t>(from.input.size() - from.begin);
    if (whence != SEEK_SET || offset < 0) return AVERROR(EINVAL);
    from.position = static_cast<std::uint64_t>(offset);
    return offset;
}

int StreamFile::isOverdue(void* source) {
    return processorTimeNow() > static_cast<const Source*>(source)->deadline ? 1 : 0;
}

}  // namespace marquell::helpers
