// An application object for one test, whose event loop runs until something has happened.
#pragma once

#include "kit/patience.h"

#include <QCoreApplication>
#include <QNetworkProxy>
#include <QTest>
#include <chrono>
#include <functional>

namespace glidemap::test {

// On a busy machine tests raise their time limits, up to this one.
inline constexpr std::chrono::seconds longestLimit{64};
static_assert(longestLimit < patience);

class Application {
public:
    // The servers of tests are here, whatever stands between this machine and others.
    Application() { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }

    // Nothing waits as long as this unless it has failed.
    static bool runUntil(const std::function<bool()>& happened) {
        return QTest::qWaitFor(happened, std::chrono::milliseconds(patience).count());
    }

    // What waits to be run, and what that makes wait.
    static void runWhatWaits() {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

private:
    int count = 1;
    char name[5] = "test";
    char* arguments[2] = {name, nullptr};
    QCoreApplication application{count, arguments};
};

} // namespace glidemap::test
