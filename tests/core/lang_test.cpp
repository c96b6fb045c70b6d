#include "core/lang.h"
#include "kit/fake_user_defaults.h"
#include "kit/in_language.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace glidemap {
namespace {

using test::FakeUserDefaults;
using Writes = std::vector<FakeUserDefaults::Write>;

constexpr const char* key = "appLanguage";

// The shared instance reads its store once, so the store is configured before any test runs.
const std::shared_ptr<FakeUserDefaults> sharedStore = [] {
    auto store = std::make_shared<FakeUserDefaults>();
    Lang::configureShared(store);
    return store;
}();

std::shared_ptr<FakeUserDefaults> storeHolding(const char* code) {
    auto store = std::make_shared<FakeUserDefaults>();
    store->stored[key] = code;
    return store;
}

TEST(LangTest, FirstLaunchIsEnglishAndStoresNothing) {
    const auto store = std::make_shared<FakeUserDefaults>();
    const Lang lang(store);
    EXPECT_EQ(lang.code(), "en");
    EXPECT_EQ(lang.choose("yes", "是"), "yes");
    EXPECT_EQ(store->writes, Writes());
    EXPECT_FALSE(store->string(key).has_value());
}

TEST(LangTest, NextLaunchUsesTheStoredCode) {
    const Lang lang(storeHolding("zh"));
    EXPECT_EQ(lang.code(), "zh");
    EXPECT_EQ(lang.choose("yes", "是"), "是");
}

TEST(LangTest, UnknownStoredCodeIsKeptAndShowsEnglish) {
    const auto store = storeHolding("fr");
    const Lang lang(store);
    EXPECT_EQ(lang.code(), "fr");
    EXPECT_EQ(lang.choose("yes", "是"), "yes");
    EXPECT_EQ(store->string(key), "fr");
    EXPECT_EQ(store->writes, Writes());
}

TEST(LangTest, EmptyStoredCodeIsKept) {
    EXPECT_EQ(Lang(storeHolding("")).code(), "");
}

TEST(LangTest, OnlyTheExactCodeSelectsChinese) {
    const Lang english(nullptr);
    Lang lang(nullptr);
    for (const char* code : {"en", "", "zh-Hans", "zh_CN", "ZH", "Zh", " zh", "zh ", "z", "fr"}) {
        lang.setCode(code);
        EXPECT_EQ(lang.choose("yes", "是"), "yes") << code;
        EXPECT_EQ(lang.code(), code);
    }
    lang.setCode("zh");
    EXPECT_EQ(lang.choose("yes", "是"), "是");
}

TEST(LangTest, SettingTheSameCodeAgainIsPersisted) {
    const auto store = std::make_shared<FakeUserDefaults>();
    Lang lang(store);
    lang.setCode("zh");
    lang.setCode("zh");
    lang.setCode("en");
    EXPECT_EQ(store->writes, (Writes{{key, "zh"}, {key, "zh"}, {key, "en"}}));
}

TEST(LangTest, ObserversAreNotifiedBeforeAndAfterEveryWrite) {
    const auto store = std::make_shared<FakeUserDefaults>();
    Lang lang(store);
    std::vector<std::string> log;
    const auto subscription = lang.changes().subscribe(
        [&] {
            log.push_back("will: " + lang.code() + ", " + std::to_string(store->writes.size()));
        },
        [&] {
            log.push_back("did: " + lang.code() + ", " + std::to_string(store->writes.size()));
        });
    lang.setCode("zh");
    lang.setCode("zh");
    EXPECT_EQ(log,
              (std::vector<std::string>{"will: en, 0", "did: zh, 1", "will: zh, 1", "did: zh, 2"}));
}

TEST(LangTest, DestroyedObserverIsNotCalled) {
    Lang lang(nullptr);
    int calls = 0;
    {
        const auto subscription = lang.changes().subscribe([&] { ++calls; });
        lang.setCode("zh");
    }
    lang.setCode("en");
    EXPECT_EQ(calls, 1);
}

TEST(LangTest, KeepsTheCodeInMemoryWithoutAStore) {
    Lang lang(nullptr);
    lang.setCode("zh");
    EXPECT_EQ(lang.code(), "zh");
}

TEST(LangTest, SharedInstanceStoresItsCodeInTheConfiguredStore) {
    EXPECT_EQ(&Lang::shared(), &Lang::shared());
    {
        const test::InLanguage chinese("zh");
        EXPECT_EQ(sharedStore->string(key), "zh");
    }
    EXPECT_EQ(sharedStore->string(key), "en");
}

// The main thread changes the language, while the engine's thread reads it to describe the actions
// in the log of recent gestures.
TEST(LangTest, ReaderOnAnotherThreadGetsTheOldOrTheNewCode) {
    Lang lang(nullptr);
    std::atomic<bool> done = false;
    std::atomic<int> reads = 0;
    std::thread reader([&] {
        while (!done) {
            const std::string code = lang.code();
            EXPECT_TRUE(code == "en" || code == "zh") << code;
            ++reads;
        }
    });
    while (reads < 100) {
        lang.setCode("zh");
        lang.setCode("en");
    }
    done = true;
    reader.join();
}

} // namespace
} // namespace glidemap
