// SPDX-License-Identifier: GPL-3.0-or-later
// Bounds the fields that the media library keeps of one part of a file. It looks at all of them
// before it adds one, and copies what it has before it appends to one: some MB of tags take
// minutes, in which it does not ask whether it shall stop.
#include <dlfcn.h>

#include <cstddef>
#include <cstring>

extern "C" {
#include <libavutil/dict.h>
#include <libavutil/mem.h>
}

namespace {

using SetEntry = int(AVDictionary**, const char*, const char*, int);

constexpr int mostEntries = 256;
constexpr std::size_t longestAppended = 8192;

bool isFull(const AVDictionary* dictionary, const char* key, int flags) {
    if (av_dict_count(dictionary) >= mostEntries) return true;
    if ((flags & AV_DICT_APPEND) == 0) return false;
    const AVDictionaryEntry* const entry = av_dict_get(dictionary, key, nullptr, flags);
    return entry != nullptr && ::strnlen(entry->value, longestAppended) == longestAppended;
}

}  // namespace

/// Found before the library's own by all other libraries, and adds nothing to what is full.
extern "C" int av_dict_set(AVDictionary** pm, const char* key, const char* value, int flags) {
    static auto* const set = reinterpret_cast<SetEntry*>(::dlsym(RTLD_NEXT, "av_dict_set"));
    if (value == nullptr || !isFull(*pm, key, flags)) {
        return set(pm, key, value, flags);
    }
    // Given away by the caller.
    if ((flags & AV_DICT_DONT_STRDUP_KEY) != 0) av_free(const_cast<char*>(key));
    if ((flags & AV_DICT_DONT_STRDUP_VAL) != 0) av_free(const_cast<char*>(value));
    return 0;
}
