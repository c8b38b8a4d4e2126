// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/MainQueue.h"
#include "platform/Surroundings.h"
#include "platform/UserDefaults.h"
#include "variables/Debouncer.h"
#include "variables/KVOResponder.h"
#include "variables/Streams.h"

namespace marquell::variables {
namespace {

using testing::ElementsAre;
using std::chrono_literals::operator""s;
using platform::UserDefaults;

TEST(KVOResponder, ObservesWhileItLives) {
    const tests::TemporaryFolder folder;
    const auto defaults = UserDefaults::open(folder / "settings.json", [](const auto&) {});
    std::vector<std::string> calls;
    const auto note = [&](platform::KeyValueObservable& object, const std::string& key) {
        calls.push_back(key + (&object == defaults.get() ? "" : " of another"));
    };
    std::optional<KVOResponder> cold(std::in_place, "a", defaults, false, note);
    const KVOResponder hot("b", defaults, true, note);
    EXPECT_THAT(calls, ElementsAre("b"));
    // One that ends itself, and the one behind it.
    std::optional<KVOResponder> last;
    KVOResponder ending("a", defaults, false, [&](auto&, auto&) {
        calls.emplace_back("end");
        cold.reset();
        last.reset();
    });
    last.emplace("a", defaults, false, note);
    defaults->setObject(1, "a");
    defaults->setObject(1, "a");
    EXPECT_THAT(calls, ElementsAre("b", "a", "end", "end"));
}

TEST(EndOfLifeBag, RunsItsClosuresInOrder) {
    std::vector<int> order;
    {
        EndOfLifeBag bag;
        for (const int number : {1, 2, 3}) {
            bag.closures.emplace_back([&order, number] { order.push_back(number); });
        }
    }
    EXPECT_THAT(order, ElementsAre(1, 2, 3));
}

TEST(Streams, MapWhatAProducerSends) {
    const auto source = std::make_shared<Producer<int>>();
    std::vector<std::string> received;
    const auto subscriber = std::make_shared<Subscriber<std::string>>(
        [&](const std::string& text) { received.push_back(text); });
    auto mapper = std::make_unique<Mapper<int, std::string>>(
        source, [](int number) { return std::to_string(number); });
    source->send(1);
    EXPECT_EQ(mapper->latestValue(), "1");
    mapper->subscribe(subscriber);
    source->send(2);
    // The mapper may end while its source sends.
    source->subscribe(std::make_shared<Subscriber<int>>([&](int) { mapper.reset(); }));
    source->send(3);
    EXPECT_THAT(received, ElementsAre("1", "2"));
    EXPECT_EQ(source->latestValue(), 3);
}

TEST(Debouncer, RunsTheLastActionOfABurst) {
    platform::PumpedMainQueue queue;
    platform::MainQueue::install(&queue);
    std::vector<int> order;
    {
        Debouncer debouncer(1s);
        for (const int number : {1, 2, 3}) {
            debouncer.run([&order, number] { order.push_back(number); });
            queue.advance(0.9s);
        }
        EXPECT_THAT(order, ElementsAre());
        queue.advance(0.1s);
        EXPECT_THAT(order, ElementsAre(3));
        debouncer.run([&order] { order.push_back(4); });
    }
    queue.advance(2s);
    EXPECT_THAT(order, ElementsAre(3)) << "its owner has gone";
    platform::MainQueue::install(nullptr);
}

}  // namespace
}  // namespace marquell::variables
