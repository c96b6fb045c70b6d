// Tests the checker's rules, without a network or real time.
#include "app/update_checker.h"
#include "application.h"

#include <gtest/gtest.h>

#include <QTimer>
#include <deque>
#include <utility>

namespace glidemap {
namespace {

using namespace std::chrono_literals;
using Version = std::optional<std::string>;
using Lines = std::vector<std::string>;

std::string described(const UpdateResult& result) {
    if (const auto* const error = std::get_if<UpdateError>(&result)) {
        return (error->kind == UpdateError::Kind::transport ? "transport: " : "bad response: ") +
               error->text;
    }
    return std::get<Version>(result).value_or("none");
}

const Fetched noNetwork{"", "no network"};

// Records the checker's requests. The test responds to them.
class UpdateCheckerTest : public testing::Test {
protected:
    struct Timer {
        std::chrono::seconds interval{};
        std::function<void()> block;
        std::weak_ptr<const void> reference;
    };
    using Asked = std::pair<std::string, std::function<void(const Fetched&)>>;

    std::shared_ptr<UpdateChecker> running(Version version) {
        return UpdateChecker::create({
            .host = "updates.example",
            .currentVersion = std::move(version),
            .fetch = [this](const std::string& url,
                            auto done) { asked.emplace_back(url, std::move(done)); },
            .repeat =
                [this](std::chrono::seconds interval, std::function<void()> block) {
                    const auto reference = std::make_shared<const int>();
                    timers.push_back({interval, std::move(block), reference});
                    return reference;
                },
        });
    }

    UpdateChecker::Completion note() {
        return [this](const UpdateResult& result) {
            reported.push_back(described(result));
        };
    }

    void answer(const Fetched& fetched) {
        ASSERT_FALSE(asked.empty());
        const auto done = std::move(asked.front().second);
        asked.pop_front();
        done(fetched);
    }
    void answerVersion(const std::string& version) {
        answer({R"({"version": ")" + version + R"("})", std::nullopt});
    }

    std::deque<Asked> asked;
    std::vector<Timer> timers;
    Lines reported;
};

TEST_F(UpdateCheckerTest, KnowsNoVersionAndSendsNoRequestInitially) {
    const auto checker = running("1.2");
    EXPECT_EQ(checker->latestVersion(), std::nullopt);
    EXPECT_EQ(checker->currentVersion(), "1.2");
    EXPECT_EQ(checker->versionURL(), "https://updates.example/version.json");
    EXPECT_EQ(checker->siteURL(), "https://updates.example/");
    EXPECT_TRUE(asked.empty());
    EXPECT_TRUE(timers.empty());
}

TEST_F(UpdateCheckerTest, NewerVersionIsReportedAndStoredUnchanged) {
    const auto checker = running("1.2");
    checker->check(note());
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked[0].first, checker->versionURL());
    EXPECT_EQ(reported, Lines());
    answerVersion("1.2.1-beta");
    EXPECT_EQ(reported, Lines{"none"}); // the version's last component is not a number
    checker->check(note());
    answerVersion("+1..2.1");
    EXPECT_EQ(reported, (Lines{"none", "+1..2.1"}));
    EXPECT_EQ(checker->latestVersion(), "+1..2.1");
}

TEST_F(UpdateCheckerTest, VersionThatIsNotNewerClearsTheKnownVersion) {
    for (const char* const served : {"1.2", "1.2.0", "1.1", "v9"}) {
        const auto checker = running("1.2");
        checker->check();
        answerVersion("1.3");
        EXPECT_EQ(checker->latestVersion(), "1.3");
        checker->check(note());
        answerVersion(served);
        EXPECT_EQ(checker->latestVersion(), std::nullopt) << served;
        EXPECT_EQ(std::exchange(reported, {}), Lines{"none"}) << served;
    }
}

TEST_F(UpdateCheckerTest, KnownVersionSurvivesEveryFailure) {
    struct Row {
        Fetched fetched;
        std::string reported;
    };
    const Row rows[] = {
        {{"", std::nullopt}, "bad response: not a manifest"},
        {{"[]", std::nullopt}, "bad response: not a manifest"},
        {{"{}", std::nullopt}, "bad response: not a manifest"},
        {{R"({"version": 2})", std::nullopt}, "bad response: not a manifest"},
        {{"<html>", std::nullopt}, "bad response: not a manifest"},
        {{"", "no network"}, "transport: no network"},
        {{R"({"version": "9)", "cut off"}, "transport: cut off"},
        {{R"({"version": 9})", "cut off"}, "transport: cut off"},
    };
    const auto checker = running("1.2");
    checker->check();
    answerVersion("1.3");
    for (const Row& row : rows) {
        checker->check(note());
        answer(row.fetched);
        EXPECT_EQ(std::exchange(reported, {}), Lines{row.reported});
        EXPECT_EQ(checker->latestVersion(), "1.3");
        checker->check();
        answer(row.fetched);
        EXPECT_EQ(checker->latestVersion(), "1.3");
    }
}

TEST_F(UpdateCheckerTest, AcceptsAManifestDespiteATransportError) {
    const auto checker = running("1.2");
    checker->check(note());
    answer({R"({"version": "1.3"})", "cut off"});
    EXPECT_EQ(reported, Lines{"1.3"});
    EXPECT_EQ(checker->latestVersion(), "1.3");
}

TEST_F(UpdateCheckerTest, SendsNoRequestIfTheRunningVersionIsUnknown) {
    const auto checker = running(std::nullopt);
    checker->check(note());
    EXPECT_EQ(reported, Lines{"none"}); // called before check() returned
    checker->check();
    checker->start();
    EXPECT_TRUE(asked.empty());
    EXPECT_EQ(timers.size(), 1U);
}

TEST_F(UpdateCheckerTest, NotifiesNoObserversIfTheRunningVersionIsUnknown) {
    const auto checker = running(std::nullopt);
    const auto watch = checker->changes().subscribe([] { ADD_FAILURE() << "announced"; });
    checker->check(note());
    EXPECT_EQ(checker->latestVersion(), std::nullopt);
}

TEST_F(UpdateCheckerTest, SuccessNotifiesObserversBeforeAndAfterTheChangeThenCallsTheCompletion) {
    const auto checker = running("1.2");
    const auto look = [&](const std::string& when) {
        return [this, when, &checker] {
            reported.push_back(when + checker->latestVersion().value_or("none"));
        };
    };
    const auto watch = checker->changes().subscribe(look("will: "), look("did: "));
    checker->check(note());
    answerVersion("1.3");
    checker->check(note());
    answer(noNetwork);
    checker->check(note());
    answerVersion("1.2");
    EXPECT_EQ(reported, (Lines{"will: none", "did: 1.3", "1.3", "transport: no network",
                               "will: 1.3", "did: none", "none"}));
}

TEST_F(UpdateCheckerTest, ConcurrentChecksStoreTheVersionReceivedLastAndReportTheirOwnResults) {
    const auto checker = running("1.2");
    for (int check = 0; check < 3; ++check) {
        checker->check(note());
    }
    ASSERT_EQ(asked.size(), 3U);
    std::swap(asked[0], asked[2]);
    answerVersion("1.5");
    answerVersion("1.4");
    EXPECT_EQ(checker->latestVersion(), "1.4");
    answer(noNetwork);
    EXPECT_EQ(checker->latestVersion(), "1.4");
    EXPECT_EQ(reported, (Lines{"1.5", "1.4", "transport: no network"}));
}

TEST_F(UpdateCheckerTest, CompletionIsCalledAfterTheCheckerIsDestroyed) {
    auto checker = running("1.2");
    checker->check(note());
    checker->check(note());
    checker->check();
    const std::weak_ptr<UpdateChecker> gone = checker;
    checker.reset();
    EXPECT_TRUE(gone.expired());
    answerVersion("1.3");
    answer(noNetwork);
    answerVersion("1.3");
    EXPECT_EQ(reported, (Lines{"1.3", "transport: no network"}));
}

TEST_F(UpdateCheckerTest, CheckerMayBeDestroyedDuringANotification) {
    auto checker = running("1.2");
    const auto watch = checker->changes().subscribe({}, [&] { checker.reset(); });
    checker->check(note());
    answerVersion("1.3");
    EXPECT_EQ(checker, nullptr);
    EXPECT_EQ(reported, Lines{"1.3"});
}

TEST_F(UpdateCheckerTest, CompletionMayStartAnotherCheck) {
    const auto checker = running("1.2");
    checker->check([&](const UpdateResult& /*result*/) { checker->check(note()); });
    answerVersion("1.3");
    answerVersion("1.4");
    EXPECT_EQ(reported, Lines{"1.4"});
}

TEST_F(UpdateCheckerTest, StartChecksAtOnceAndThenDaily) {
    const auto checker = running("1.2");
    checker->start();
    EXPECT_EQ(asked.size(), 1U);
    ASSERT_EQ(timers.size(), 1U);
    EXPECT_EQ(timers[0].interval, 86'400s);
    for (const char* const version : {"1.3", "1.2", "1.4"}) {
        answerVersion(version);
        EXPECT_TRUE(asked.empty());
        timers[0].block();
        EXPECT_EQ(asked.size(), 1U);
    }
    EXPECT_EQ(checker->latestVersion(), "1.4");
    EXPECT_EQ(timers.size(), 1U);
}

TEST_F(UpdateCheckerTest, TimerOfADestroyedCheckerDoesNothing) {
    auto checker = running("1.2");
    checker->start();
    answerVersion("1.3");
    EXPECT_FALSE(timers[0].reference.expired());
    const std::weak_ptr<UpdateChecker> gone = checker;
    checker.reset();
    EXPECT_TRUE(gone.expired());
    EXPECT_TRUE(timers[0].reference.expired());
    timers[0].block();
    EXPECT_TRUE(asked.empty());
}

TEST_F(UpdateCheckerTest, SecondStartAddsATimerAndReleasesTheReferenceToTheFirstTimer) {
    const auto checker = running("1.2");
    checker->start();
    checker->start();
    EXPECT_EQ(asked.size(), 2U);
    ASSERT_EQ(timers.size(), 2U);
    EXPECT_TRUE(timers[0].reference.expired());
    EXPECT_FALSE(timers[1].reference.expired());
    timers[0].block();
    timers[1].block();
    EXPECT_EQ(asked.size(), 4U);
}

TEST_F(UpdateCheckerTest, RunningVersionIsTheProjectVersion) {
    EXPECT_EQ(UpdateChecker::Setup().currentVersion, GLIDEMAP_VERSION);
    EXPECT_EQ(UpdateChecker::Setup().host, GLIDEMAP_UPDATE_HOST);
}

TEST_F(UpdateCheckerTest, VersionsAreComparedAsNumbers) {
    EXPECT_TRUE(UpdateChecker::isNewer("1.10", "1.9"));
    EXPECT_FALSE(UpdateChecker::isNewer("1.9", "1.10"));
    EXPECT_FALSE(UpdateChecker::isNewer("1.2.0", "1.2"));
}

// Tests the real timer of the program. The tests above replace it.
TEST(MainLoopTimerTest, TimerRepeatsAfterItsReferenceIsReleased) {
    const test::Application application;
    int ran = 0;
    UpdateChecker::onTheMainLoop()(1s, [&] { ++ran; }).reset();
    EXPECT_TRUE(test::Application::runUntil([&] { return ran == 2; }));
}

TEST(MainLoopTimerTest, DailyTimerIsCoarseToSaveWakeUps) {
    const test::Application application;
    const auto reference = UpdateChecker::onTheMainLoop()(UpdateChecker::interval, [] {});
    const auto timers = QCoreApplication::instance()->findChildren<QTimer*>();
    ASSERT_EQ(timers.size(), 1);
    EXPECT_EQ(timers[0]->intervalAsDuration(), 24h);
    EXPECT_EQ(timers[0]->timerType(), Qt::VeryCoarseTimer);
    EXPECT_FALSE(timers[0]->isSingleShot());
    EXPECT_TRUE(timers[0]->isActive());
}

} // namespace
} // namespace glidemap
