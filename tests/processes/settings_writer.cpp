// SPDX-License-Identifier: GPL-3.0-or-later
// A program with settings, led through its standard input by a test:
//     set KEY NUMBER    observe KEY    save    count
// It prints "KEY NUMBER" when an observer hears of a key and "saved" after a save. "count" sets x,
// then y to one number after the other for ever, and prints each tenth once that is saved. It ends
// with its input.
#include <poll.h>
#include <unistd.h>

#include <cstdint>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>

#include "platform/MainQueue.h"
#include "platform/UserDefaults.h"

namespace marquell::platform {
namespace {

std::int64_t number(const UserDefaults& store, const std::string& key) {
    const auto value = store.object(key);
    return value ? std::get<std::int64_t>(*value) : 0;
}

void count(UserDefaults& store) {
    for (std::int64_t i = number(store, "x") + 1;; ++i) {
        store.setObject(i, "x");
        store.setObject(i, "y");
        if (i % 10 == 0 && store.synchronize()) std::cout << i << std::endl;
    }
}

void obey(UserDefaults& store, std::istringstream line) {
    std::string word;
    std::string key;
    std::int64_t value = 0;
    line >> word >> key >> value;
    if (word == "set") store.setObject(value, key);
    if (word == "count") count(store);
    if (word == "save" && store.synchronize()) std::cout << "saved" << std::endl;
    if (word == "observe") {
        store.addObserver(
            key, [&store, key] { std::cout << key << ' ' << number(store, key) << std::endl; });
    }
}

/// Runs what comes through the main queue and the input, until the latter ends.
void run(UserDefaults& store, PumpedMainQueue& queue) {
    std::string input;
    for (;;) {
        queue.drain();
        pollfd ready = {STDIN_FILENO, POLLIN, 0};
        if (::poll(&ready, 1, 1) == 0) continue;
        char block[4096];
        const ssize_t length = ::read(STDIN_FILENO, block, sizeof block);
        if (length <= 0) return;
        input.append(block, static_cast<std::size_t>(length));
        for (std::size_t end = 0; (end = input.find('\n')) != std::string::npos;) {
            obey(store, std::istringstream(input.substr(0, end)));
            input.erase(0, end + 1);
            queue.drain();
        }
    }
}

}  // namespace
}  // namespace marquell::platform

int main(int /*count*/, char** arguments) {
    using namespace marquell::platform;
    PumpedMainQueue queue;
    MainQueue::install(&queue);
    const auto report = [](const std::string& message) { std::cerr << message << std::endl; };
    const std::shared_ptr<UserDefaults> store = UserDefaults::open(arguments[1], report);
    run(*store, queue);
}
