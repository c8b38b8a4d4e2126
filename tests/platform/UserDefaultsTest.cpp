// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <limits>
#include <memory>
#include <mutex>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/FileLock.h"
#include "platform/MainQueue.h"
#include "platform/Surroundings.h"
#include "platform/UserDefaults.h"
#include "platform/UserFolders.h"

namespace marquell::platform {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Json = nlohmann::json;
using Texts = std::vector<std::string>;

constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();

DefaultsValue whole(std::int64_t value) { return value; }
DefaultsValue text(const char* value) { return std::string(value); }

class UserDefaultsTest : public testing::Test {
protected:
    void SetUp() override { std::filesystem::create_directory(folder_ / "marquell"); }
    void TearDown() override { MainQueue::install(nullptr); }

    std::shared_ptr<UserDefaults> open(std::chrono::milliseconds patience = 30ms) {
        const auto report = [this](const std::string& message) {
            const std::lock_guard lock(mutex_);
            reports_.push_back(message);
        };
        return UserDefaults::open(file_, report, patience);
    }

    /// What was reported since the last call.
    std::vector<std::string> reports() {
        const std::lock_guard lock(mutex_);
        return std::exchange(reports_, {});
    }

    /// The names beside the settings file, without it and its lock.
    std::set<std::string> others() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_ / "marquell")) {
            names.insert(entry.path().filename().string());
        }
        names.erase("settings.json");
        names.erase("settings.json.lock");
        return names;
    }

    Json stored() const { return Json::parse(tests::contentOf(file_)).at("settings"); }

    /// Runs the main queue until `condition` holds.
    bool reaches(const std::function<bool()>& condition) {
        const auto end = std::chrono::steady_clock::now() + 10s;
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end) return false;
            if (queue_.drain() == 0) std::this_thread::yield();
        }
        return true;
    }

    const tests::TemporaryFolder folder_;
    const std::string file_ = folder_ / "marquell/settings.json";
    PumpedMainQueue queue_;

private:
    std::mutex mutex_;
    std::vector<std::string> reports_;  // guarded by mutex_
};

TEST(DefaultsValue, FitsTheTypeOfAModel) {
    const DefaultsValue truth = true;
    const DefaultsValue seven = whole(7);
    const DefaultsValue half = 0.5;
    const auto none = std::nullopt;
    using Row = std::tuple<DefaultsValue, DefaultsValue, std::optional<DefaultsValue>>;
    for (const auto& [value, model, expected] :
         {Row{whole(0), truth, false}, Row{1.0, truth, true}, Row{whole(2), truth, none},
          Row{text("true"), truth, none}, Row{truth, seven, none}, Row{-3.0, seven, whole(-3)},
          Row{3.5, seven, none}, Row{0x1p63, seven, none}, Row{-0x1p63, seven, whole(lowest)},
          Row{std::nan(""), seven, none}, Row{whole(150), half, 150.0}, Row{truth, half, none},
          Row{DefaultsOther(), text("a"), none}, Row{Texts{}, Texts{"a"}, Texts{}}}) {
        EXPECT_EQ(fitted(value, model), expected)
            << testing::PrintToString(value) << " as " << testing::PrintToString(model);
    }
}

TEST(UserFolders, FollowTheEnvironmentWhereItHasAbsolutePaths) {
    using Row = std::tuple<const char*, const char*, const char*>;
    for (const auto& [configuration, home, expected] :
         {Row{"/c", "/h", "/c"}, Row{"c", "/h", "/h/.config"}, Row{"", "/h", "/h/.config"}}) {
        const tests::Environment environment{{"XDG_CONFIG_HOME", configuration}, {"HOME", home}};
        EXPECT_EQ(configurationFolder(), expected);
    }
    const tests::Environment environment{{"XDG_CONFIG_HOME", ""}, {"HOME", ""}};
    EXPECT_THAT(configurationFolder(), testing::MatchesRegex("/.*/\\.config"));
}

TEST_F(UserDefaultsTest, LooksForStoredValuesThenForRegisteredOnes) {
    tests::writeFile(
        file_, R"({"settings": {"width": "wide", "on": 1, "other": {}, "n": 1e3, "x": 150}})");
    const std::string before = tests::contentOf(file_);
    {
        const auto store = open();
        EXPECT_EQ(store->object("width"), text("wide"));
        store->registerDefault("width", whole(5));
        store->registerDefault("on", false);
        store->registerDefault("n", whole(0));
        EXPECT_EQ(store->object("width"), whole(5)) << "a text is no width";
        EXPECT_EQ(store->string("width"), std::nullopt);
        EXPECT_EQ(store->object("on"), DefaultsValue(true));
        EXPECT_EQ(store->object("n"), whole(1000));
        EXPECT_EQ(store->object("other"), DefaultsValue(DefaultsOther()));
        EXPECT_EQ(store->object("missing"), std::nullopt);
        store->setObject(true, "on");  // of another type, so it is a change, and so is the next
        store->setObject(150.0, "x");
    }
    EXPECT_EQ(open()->object("x"), DefaultsValue(150.0));
    EXPECT_EQ(stored(),
              Json::parse(R"({"width": "wide", "on": true, "other": {}, "n": 1e3, "x": 150})"));
    tests::writeFile(file_, before);
    {
        const auto store = open();
        store->registerDefault("width", whole(5));
        store->setObject(text("wide"), "width");
        store->setObject(DefaultsOther(), "other");
        store->removeObject("missing");
        EXPECT_TRUE(store->synchronize());
        store->setObject(whole(6), "width");
        store->removeObject("width");
        EXPECT_EQ(store->object("width"), whole(5));
        store->setObject(text("wide"), "width");
        store->keepInMemory("on");
        EXPECT_EQ(store->object("on"), std::nullopt);
        store->setObject(Texts{"\xff/a"}, "on");
        store->keepInMemory("on");
        EXPECT_EQ(store->object("on"), DefaultsValue(Texts{"\xff/a"}));
    }
    EXPECT_EQ(tests::contentOf(file_), before) << "nothing differs, so the form is kept too";
    EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(UserDefaultsTest, ReadsBackWhatItWroteAndKeepsWhatItDoesNotKnow) {
    const double infinity = std::numeric_limits<double>::infinity();
    const auto bytes = [](const std::string& of) { return DefaultsValue(DefaultsData{of}); };
    const std::vector<DefaultsValue> values = {true,
                                               false,
                                               whole(0),
                                               whole(lowest),
                                               whole(~lowest),
                                               150.0,
                                               0.1,
                                               5e-324,
                                               1e300,
                                               infinity,
                                               -infinity,
                                               text(""),
                                               text("\x01\"\\\n\u2028\U0001F600"),
                                               std::string("a\0b", 3),
                                               Texts(),
                                               Texts(1, ""),
                                               Texts(2, "[a]"),
                                               bytes(""),
                                               bytes(std::string("\0\xff\n", 3)),
                                               bytes("1"),
                                               bytes("1234")};
    const char* unknown = R"("a": null, "b": [1, "x"], "c": {"d": {}}, "e": 18446744073709551615,
        "f": {"data": "YR=="}, "g": {"number": "9"}, "h": {"data": "", "x": 1}, "i": [[]])";
    tests::writeFile(file_,
                     R"({"version": 7, "z": [1.50], "settings": {)" + std::string(unknown) + "}}");
    {
        const auto store = open();
        for (std::size_t i = 0; i < values.size(); ++i) {
            store->setObject(values[i], "value " + std::to_string(i));
        }
        store->setObject(std::nan(""), "nan");
        store->setObject(text("a\xff\xed\xa0\x80z"), "bytes");
        EXPECT_EQ(store->string("bytes"), "a\uFFFD\uFFFD\uFFFD\uFFFDz")
            << "as the file will have it";
    }
    const auto store = open();
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(store->object("value " + std::to_string(i)), values[i]) << i;
    }
    EXPECT_TRUE(std::isnan(std::get<double>(store->object("nan").value())));
    EXPECT_EQ(store->string("bytes"), "a\uFFFD\uFFFD\uFFFD\uFFFDz");
    Json document = Json::parse(tests::contentOf(file_));
    EXPECT_EQ(document["version"], 7);
    EXPECT_EQ(document["z"], Json::array({1.5}));
    const Json kept = Json::parse("{" + std::string(unknown) + "}");
    for (const auto& [key, value] : kept.items()) {
        EXPECT_EQ(document["settings"][key], value) << key;
        EXPECT_EQ(store->object(key), DefaultsValue(DefaultsOther())) << key;
    }
    EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(UserDefaultsTest, MakesAFileForTheUserAlone) {
    std::filesystem::remove(folder_ / "marquell");
    {
        const auto store = open();
        store->addObserver("key", [] {});
        EXPECT_EQ(store->object("key"), std::nullopt);
        EXPECT_THAT(folder_.names(), IsEmpty()) << "nothing is made by reading";
        store->setObject(text("value"), "key");
    }
    EXPECT_THAT(others(), IsEmpty());
    struct stat status = {};
    ASSERT_EQ(::stat(file_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
    ASSERT_EQ(::stat((folder_ / "marquell").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700U);
    EXPECT_EQ(tests::contentOf(file_), R"({
    "settings": {
        "key": "value"
    },
    "version": 1
}
)");
}

TEST_F(UserDefaultsTest, AllowsObserversToDoAnything) {
    auto store = open();
    std::vector<std::string> calls;
    UserDefaults::ObserverId doomed = 0;
    UserDefaults::ObserverId self = 0;
    auto state = std::make_shared<std::string>("self");
    self = store->addObserver("key", [&, state] {
        store->removeObserver(self);
        store->removeObserver(doomed);
        store->addObserver("key", [&] { calls.emplace_back("added"); });
        calls.push_back(*state);  // still there, though it is removed
        if (store->object("key") == whole(1)) store->setObject(whole(2), "key");
        calls.emplace_back("self ends");
    });
    state.reset();
    doomed = store->addObserver("key", [&] { calls.emplace_back("doomed"); });
    store->addObserver("key", [&] {
        calls.push_back("last sees " +
                        std::to_string(std::get<std::int64_t>(*store->object("key"))));
    });
    store->setObject(whole(1), "key");
    EXPECT_THAT(calls, ElementsAre("self", "last sees 2", "added", "self ends", "last sees 2"));

    store->addObserver("end", [&] { store.reset(); });
    store->addObserver("end", [&] { calls.emplace_back("after the end"); });
    store->setObject(whole(1), "end");
    EXPECT_EQ(store, nullptr);
    EXPECT_EQ(calls.back(), "after the end");
    EXPECT_EQ(stored(), Json::parse(R"({"key": 2, "end": 1})"));
}

TEST_F(UserDefaultsTest, ServesManyThreadsAndStoresAtOnce) {
    MainQueue::install(&queue_);
    const std::vector<std::shared_ptr<UserDefaults>> stores = {open(10s), open(10s)};
    constexpr int last = 300;
    std::atomic<int> calls = 0;
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&, number] {
            UserDefaults& store = *stores[static_cast<std::size_t>(number % 2)];
            const std::string key = "key " + std::to_string(number);
            for (int i = 1; i <= last; ++i) {
                const auto id = store.addObserver(key, [&] { ++calls; });
                store.setObject(whole(i), key);
                store.setObject(whole(i), "shared");
                EXPECT_EQ(store.object(key), whole(i));
                EXPECT_TRUE(i % 100 != 0 || store.synchronize());
                store.removeObserver(id);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(calls, 4 * last);
    for (const char* key : {"key 0", "key 1", "key 2", "key 3", "shared"}) {
        for (const auto& store : stores) {
            EXPECT_TRUE(reaches([&] { return store->object(key) == whole(last); })) << key;
        }
    }
}

TEST_F(UserDefaultsTest, SetsAsideWhatItDoesNotUnderstand) {
    std::filesystem::create_symlink("real", file_);
    const std::string real = folder_ / "marquell/real";
    std::set<std::string> asides;
    for (const auto& [content, problem] : std::vector<std::pair<std::string, std::string>>{
             {"", "line 1, column 1: found the end of the file, expected JSON"},
             {"{\n \"a\": tru}", R"(line 2, column 10: found " "a": tru}", expected JSON)"},
             {"{\"settings\": {\"a\": 1}", "line 1, column 22: found the end"},
             {"{\"a\": \"\xff\"}", "line 1, column 8"},
             {"[]", "found JSON of type array, expected object"},
             {"{\"settings\": 1}", "member \"settings\": found JSON of type number"},
             {"{\"settings\": {\"a\": " + std::string(63, '[') + std::string(63, ']') + "}}",
              "found values more than 64 levels"},
             {std::string(100'000, '['), "found values more than 64 levels"}}) {
        tests::writeFile(real, R"({"settings": {"known": [1], "key": 0}})");
        const auto store = open();
        tests::writeFile(real, content);
        const auto late = open();
        EXPECT_EQ(late->object("known"), std::nullopt);
        EXPECT_THAT(reports(), ElementsAre(HasSubstr(file_ + "\": " + problem))) << content;
        EXPECT_EQ(tests::contentOf(real), content) << "nothing is written by reading";

        store->setObject(whole(1), "key");
        EXPECT_TRUE(store->synchronize());
        EXPECT_EQ(stored(), Json::parse(R"({"known": [1], "key": 1})")) << content;
        const std::string aside = "real.corrupt-" + std::to_string(asides.size() + 1);
        asides.insert(aside);
        EXPECT_EQ(tests::contentOf(folder_ / ("marquell/" + aside)), content);
        EXPECT_THAT(reports(), ElementsAre(HasSubstr(aside)));
    }
    asides.insert("real");
    EXPECT_EQ(others(), asides);
    EXPECT_TRUE(std::filesystem::is_symlink(file_));
}

TEST_F(UserDefaultsTest, PutsBackWhatItCanNotReplace) {
    tests::writeFile(file_, R"({"settings": {"known": 1}})");
    const auto store = open();
    tests::writeFile(file_, "{");
    store->setObject(whole(2), "key");
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit old = {};
    ::getrlimit(RLIMIT_FSIZE, &old);
    const rlimit full = {1, old.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &full);  // as good as a full disk
    const bool isSaved = store->synchronize();
    ::setrlimit(RLIMIT_FSIZE, &old);
    EXPECT_FALSE(isSaved);
    EXPECT_EQ(tests::contentOf(file_), "{");
    EXPECT_THAT(others(), IsEmpty());
    EXPECT_TRUE(store->synchronize());
    EXPECT_EQ(stored(), Json::parse(R"({"known": 1, "key": 2})"));
    std::signal(SIGXFSZ, oldHandler);
}

TEST_F(UserDefaultsTest, LeavesAloneWhatItCanNotRead) {
    const std::string large = folder_ / "large";
    tests::writeFile(large, R"({"settings": {}})");
    std::filesystem::resize_file(large, 17 * 1024 * 1024);
    tests::writeFile(folder_ / "closed", R"({"settings": {"x": 1}})");
    std::filesystem::permissions(folder_ / "closed", std::filesystem::perms::none);
    using Obstacle = std::function<void()>;
    std::vector<std::pair<Obstacle, std::string>> obstacles = {
        {[&] { std::filesystem::create_directory(file_); }, "regular file"},
        {[&] { ASSERT_EQ(::mkfifo(file_.c_str(), 0600), 0); }, "regular file"},
        {[&] { std::filesystem::create_symlink(large, file_); }, "16 MB"},
    };
    if (::geteuid() != 0) {  // root may read anything
        obstacles.emplace_back([&] { std::filesystem::rename(folder_ / "closed", file_); },
                               "Permission denied");
    }
    for (const auto& [obstacle, problem] : obstacles) {
        obstacle();
        const auto before = std::filesystem::status(file_);
        const auto store = open();
        EXPECT_THAT(reports(), ElementsAre(HasSubstr(problem)));
        store->setObject(whole(1), "key");
        EXPECT_FALSE(store->synchronize());
        store->setObject(whole(2), "key");
        EXPECT_FALSE(store->synchronize());
        EXPECT_THAT(reports(), IsEmpty()) << "it is told once";
        EXPECT_EQ(store->object("key"), whole(2));
        EXPECT_EQ(std::filesystem::status(file_), before);
        EXPECT_THAT(others(), IsEmpty());

        std::filesystem::remove(file_);
        EXPECT_TRUE(store->synchronize());
        EXPECT_EQ(stored(), Json::parse(R"({"key": 2})"));
        std::filesystem::remove(file_);
    }
    EXPECT_EQ(std::filesystem::file_size(large), 17U * 1024 * 1024);
}

TEST_F(UserDefaultsTest, WritesLaterWhatALockOrAFolderKeptFromTheFile) {
    auto store = open();
    const std::atomic<bool> isHurried = false;
    auto lock = std::make_unique<FileLock>(SettingsFile::lockOf(file_), 0ms, isHurried);
    ASSERT_EQ(lock->error(), 0);
    store->setObject(whole(1), "a");
    EXPECT_FALSE(store->synchronize());
    EXPECT_THAT(reports(), ElementsAre(HasSubstr("locked")));
    EXPECT_FALSE(std::filesystem::exists(file_));
    lock.reset();
    store->setObject(whole(2), "b");
    EXPECT_TRUE(reaches([&] { return std::filesystem::exists(file_); }));
    EXPECT_TRUE(store->synchronize());
    EXPECT_EQ(stored(), Json::parse(R"({"a": 1, "b": 2})"));

    std::filesystem::remove_all(folder_ / "marquell");
    tests::writeFile(folder_ / "marquell", "in the way");
    store->setObject(whole(3), "a");
    EXPECT_FALSE(store->synchronize());
    EXPECT_THAT(reports(), ElementsAre(HasSubstr("Not a directory")));
    std::filesystem::remove(folder_ / "marquell");
    store.reset();
    EXPECT_EQ(stored(), Json::parse(R"({"a": 3})")) << "the file was gone, and b with it";
}

TEST_F(UserDefaultsTest, HearsOfChangesByOthersInWhateverWayTheyAreMade) {
    MainQueue::install(&queue_);
    std::filesystem::create_symlink(folder_ / "real.json", file_);
    const auto writer = open();
    const auto store = open();
    store->registerDefault("key", whole(0));
    int calls = 0;
    store->addObserver("key", [&] { ++calls; });
    const auto write = [&](const std::string& path, int value) {
        tests::writeFile(path, R"({"settings": {"key": )" + std::to_string(value) + "}}");
    };
    const std::string folder = folder_ / "marquell";
    const std::string fresh = folder_ / "fresh";
    const std::vector<std::pair<std::function<void()>, int>> steps = {
        {[&] { writer->setObject(whole(1), "key"); }, 1},  // behind the link
        {[&] { writer->removeObject("key"); }, 0},
        {[&] { write(fresh, 2), std::filesystem::rename(fresh, file_); }, 2},
        {[&] { write(file_, 3); }, 3},
        {[&] { write(file_, 4); }, 4},
        {[&] { std::filesystem::remove(file_), write(file_, 5); }, 5},
        {[&] {
             std::filesystem::rename(folder, folder_ / "away");
             std::filesystem::create_directory(folder);
             write(file_, 7);
         },
         7},
        {[&] { std::filesystem::remove_all(folder); }, 0},
        {[&] { std::filesystem::create_directory(folder), write(file_, 8); }, 8},
        {[&] { write(file_, 9); }, 9},
    };
    for (const auto& [step, value] : steps) {
        const int before = calls;
        step();
        EXPECT_TRUE(reaches([&, now = value] {
            return store->object("key") == whole(now) && calls > before;
        })) << value;
    }
}

TEST_F(UserDefaultsTest, HearsOnlyOfValuesThatDiffer) {
    MainQueue::install(&queue_);
    const auto store = open();
    store->keepInMemory("private");
    store->registerDefault("fits", true);
    std::vector<std::string> calls;
    for (const char* name : {"key", "own", "private", "fits", "no number", "gone"}) {
        store->addObserver(name, [&calls, name] { calls.emplace_back(name); });
    }
    store->setObject(whole(5), "own");
    store->setObject(std::nan(""), "no number");
    ASSERT_TRUE(store->synchronize());
    const auto write = [&](int value) {
        tests::writeFile(file_,
                         R"({"settings": {"own": 5, "no number": {"number": "nan"},
            "private": 1, "fits": 1, "key": )" +
                             std::to_string(value) + "}}");
        return reaches([&] { return store->object("key") == whole(value); });
    };
    EXPECT_TRUE(write(1));
    tests::writeFile(file_, "{");  // as if in the middle of a change; the store waits a while
    const auto end = std::chrono::steady_clock::now() + 150ms;
    EXPECT_TRUE(reaches([&] { return std::chrono::steady_clock::now() > end; }));
    EXPECT_TRUE(write(2));
    EXPECT_TRUE(reaches([&] { return calls.size() >= 4; }));
    EXPECT_THAT(calls, ElementsAre("own", "no number", "key", "key"));
    EXPECT_EQ(store->object("private"), std::nullopt);

    calls.clear();
    std::filesystem::remove(file_);
    EXPECT_TRUE(reaches([&] { return calls.size() >= 3; }));
    EXPECT_THAT(calls, ElementsAre("key", "no number", "own"));
}

}  // namespace
}  // namespace marquell::platform
