// An application object for one test, whose event loop runs until something has happened.
#pragma once

#include <QCoreApplication>
#include <QNetworkProxy>
#include <QTest>
#include <chrono>
#include <functional>

namespace glidemap::test {

class Application {
public:
    // The servers of tests are here, whatever stands between this machine and others.
    Application() { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }

    // Nothing waits as long as this unless it has failed.
    static bool runUntil(const std::function<bool()>& happened) {
        return QTest::qWaitFor(happened, 30'000);
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
