// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/HelperGivenUpFiles.h"

#include <cstddef>

namespace marquell::platform {
namespace {

constexpr std::size_t bound = 10000;

}  // namespace

void HelperGivenUpFiles::add(const struct ::stat& status) {
    const std::lock_guard lock(mutex_);
    const Key key = keyOf(status);
    if (!keys_.insert(key).second) return;
    order_.push_back(key);
    if (order_.size() <= bound) return;
    keys_.erase(order_.front());
    order_.pop_front();
}

bool HelperGivenUpFiles::contains(const struct ::stat& status) const {
    const std::lock_guard lock(mutex_);
    return !keys_.empty() && keys_.count(keyOf(status)) > 0;
}

HelperGivenUpFiles::Key HelperGivenUpFiles::keyOf(const struct ::stat& status) {
    return {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
            static_cast<std::uint64_t>(status.st_mtim.tv_sec),
            static_cast<std::uint64_t>(status.st_mtim.tv_nsec)};
}

}  // namespace marquell::platform
