// The application object of one test, with functions that run its event loop.
#pragma once

#include "kit/patience.h"

#include <QCoreApplication>
#include <QNetworkProxy>
#include <QTest>
#include <chrono>
#include <functional>

namespace glidemap::test {

// On a busy machine, tests retry with longer timeouts, up to this limit.
inline constexpr std::chrono::seconds maxTimeout{64};
static_assert(maxTimeout < patience);

class Application {
public:
    // The tests' servers are local, so requests must bypass any proxy.
    Application() { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }

    // Only a failing test reaches this timeout.
    static bool runUntil(const std::function<bool()>& happened) {
        return QTest::qWaitFor(happened, std::chrono::milliseconds(patience).count());
    }

    // Processes pending events, and the events that they post in turn.
    static void runPendingTasks() {
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
