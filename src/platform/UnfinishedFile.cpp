// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/UnfinishedFile.h"

#include <unistd.h>

#include <array>
#include <atomic>
#include <climits>
#include <csignal>

namespace marquell::platform {
namespace {

enum class State { free, changing, noted };

// What a signal handler may look at.
std::atomic<State> state = State::free;
int notedFolder = -1;                           // belongs to who set `changing`
std::array<char, NAME_MAX + 1> notedName = {};  // likewise

extern "C" void endTidily(int signal) {
    if (state.load(std::memory_order_acquire) == State::noted) {
        ::unlinkat(notedFolder, notedName.data(), 0);
    }
    std::signal(signal, SIG_DFL);
    std::raise(signal);  // ends the process when this returns
}

}  // namespace

void UnfinishedFile::note(int folder, const std::string& name) {
    forget();
    State expected = State::free;
    if (name.size() >= notedName.size()) return;
    if (!state.compare_exchange_strong(expected, State::changing)) return;
    notedFolder = folder;
    notedName[name.copy(notedName.data(), name.size())] = '\0';
    state.store(State::noted, std::memory_order_release);
    isNoted_ = true;
}

void UnfinishedFile::forget() {
    if (isNoted_) state.store(State::free, std::memory_order_release);
    isNoted_ = false;
}

void tidyUpOnSignals() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        if (std::signal(signal, &endTidily) == SIG_IGN) std::signal(signal, SIG_IGN);
    }
}

}  // namespace marquell::platform
