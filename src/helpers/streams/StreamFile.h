// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "helpers/common/Input.h"

extern "C" {
#include <libavformat/avformat.h>
}

namespace marquell::helpers {

/// A sound or video file opened by the media library, which gets to see nothing but its bytes
/// behind the ID3 tags that it may begin with.
class StreamFile {
public:
    /// `extension` helps to tell the format of what has no signature. The input must live as long.
    StreamFile(Input& input, std::string_view extension);
    ~StreamFile();
    StreamFile(const StreamFile&) = delete;
    StreamFile& operator=(const StreamFile&) = delete;

    /// What the header says; null if the format is none of sound or video. Owned by this.
    const AVFormatContext* context() const { return context_; }

    /// How many bytes precede those that the library sees.
    std::uint64_t tagLength() const { return source_.begin; }

    /// Has packets read, and some of them decoded, for what the header does not say: costs many
    /// times what opening does.
    void readPackets();

private:
    struct Source {
        Input& input;
        std::uint64_t begin;
        std::uint64_t position;  ///< behind `begin`
        std::int64_t deadline;   ///< in processor time of this process, nanoseconds
    };
    struct IoDeleter {
        void operator()(AVIOContext* io) const;
    };

    static int read(void* source, std::uint8_t* buffer, int length);
    static std::int64_t seek(void* source, std::int64_t offset, int whence);
    static int isOverdue(void* source);
    void open(const AVInputFormat* format);

    Source source_;
    std::unique_ptr<AVIOContext, IoDeleter> io_;
    AVFormatContext* context_ = nullptr;
};

}  // namespace marquell::helpers
