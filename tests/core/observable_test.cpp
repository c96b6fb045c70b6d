#include "core/observable.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap {
namespace {

using Log = std::vector<std::string>;

TEST(ObservableTest, NotificationsReachEverySubscriberInOrder) {
    Observable observable;
    Log log;
    const auto first = observable.subscribe([&] { log.emplace_back("first will"); },
                                            [&] { log.emplace_back("first did"); });
    const auto second = observable.subscribe([&] { log.emplace_back("second will"); },
                                             [&] { log.emplace_back("second did"); });
    observable.announceWillChange();
    observable.announceDidChange();
    EXPECT_EQ(log, (Log{"first will", "second will", "first did", "second did"}));
}

TEST(ObservableTest, EitherCallbackMayBeEmpty) {
    Observable observable;
    int did = 0;
    const auto silent = observable.subscribe({}, {});
    const auto onlyDid = observable.subscribe({}, [&] { ++did; });
    observable.announceWillChange();
    EXPECT_EQ(did, 0);
    observable.announceDidChange();
    EXPECT_EQ(did, 1);
}

TEST(ObservableTest, ReleasedSubscriptionIsNotNotified) {
    Observable observable;
    int notified = 0;
    auto released = observable.subscribe([&] { ++notified; });
    released.release();
    {
        const auto scoped = observable.subscribe([&] { ++notified; });
    }
    observable.announceWillChange();
    EXPECT_EQ(notified, 0);
}

TEST(ObservableTest, MovedSubscriptionIsStillNotified) {
    Observable observable;
    int notified = 0;
    Subscription kept;
    {
        auto made = observable.subscribe([&] { ++notified; });
        kept = std::move(made);
    }
    observable.announceWillChange();
    EXPECT_EQ(notified, 1);
    kept = observable.subscribe({});
    observable.announceWillChange();
    EXPECT_EQ(notified, 1);
}

TEST(ObservableTest, ObserverMayUnsubscribeDuringItsNotification) {
    Observable observable;
    int notified = 0;
    Subscription itself;
    itself = observable.subscribe([&] {
        ++notified;
        itself.release();
        ++notified; // a callback is not destroyed while it runs
    });
    observable.announceWillChange();
    observable.announceWillChange();
    EXPECT_EQ(notified, 2);
}

TEST(ObservableTest, ObserverReleasedDuringANotificationIsNotCalled) {
    Observable observable;
    int notified = 0;
    Subscription second;
    const auto first = observable.subscribe([&] { second.release(); });
    second = observable.subscribe([&] { ++notified; });
    observable.announceWillChange();
    EXPECT_EQ(notified, 0);
}

TEST(ObservableTest, ObserverMaySubscribeAnotherObserverDuringItsNotification) {
    Observable observable;
    int notified = 0;
    std::optional<Subscription> added;
    const auto first = observable.subscribe([&] {
        if (!added) {
            added = observable.subscribe([&] { ++notified; });
        }
    });
    observable.announceWillChange();
    EXPECT_EQ(notified, 0); // the new subscription takes effect with the next notification
    observable.announceWillChange();
    EXPECT_EQ(notified, 1);
}

TEST(ObservableTest, ObserverMayTriggerAnotherNotification) {
    Observable observable;
    int notified = 0;
    const auto subscription = observable.subscribe([&] {
        if (++notified < 3) {
            observable.announceWillChange();
        }
    });
    observable.announceWillChange();
    EXPECT_EQ(notified, 3);
}

TEST(ObservableTest, SubscriptionMayOutliveTheObservedObject) {
    auto observable = std::make_unique<Observable>();
    auto subscription = observable->subscribe([] {});
    observable.reset();
    subscription.release();
}

TEST(ObservableTest, ObservedObjectMayBeDestroyedDuringANotification) {
    auto observable = std::make_unique<Observable>();
    int notified = 0;
    const auto first = observable->subscribe([&] { observable.reset(); });
    const auto second = observable->subscribe([&] { ++notified; });
    observable->announceWillChange();
    EXPECT_EQ(observable, nullptr);
    EXPECT_EQ(notified, 1);
}

} // namespace
} // namespace glidemap
