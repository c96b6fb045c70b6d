// An application object with an event loop, for one test.
#pragma once

#include <QCoreApplication>

namespace glidemap::test {

class Application {
public:
    // Runs the loop until quit() or exit().
    void run() { QCoreApplication::exec(); }
    static void quit() { QCoreApplication::quit(); }

private:
    int count = 1;
    char name[5] = "test";
    char* arguments[2] = {name, nullptr};
    QCoreApplication application{count, arguments};
};

} // namespace glidemap::test
