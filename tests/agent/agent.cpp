// glidemap-agent [--never-ask]: Glidemap without its interface, for tests and measurements.
//
// Prints "ready" when all services have started, then a line for each entry of the gesture log, for
// example "twoFingerTap → Lock Screen @ Firefox". SIGTERM and SIGINT end it normally, with status
// 0. With --never-ask it does not ask the user for missing access.
#include "core/gesture_type.h"
#include "headless_glidemap.h"
#include "platform/qt/termination_signals.h"

#include <QCoreApplication>
#include <iostream>
#include <string_view>

namespace {

using glidemap::GestureLogEntry;
using glidemap::test::Prompt;

void print(const GestureLogEntry& entry) {
    std::cout << rawValue(entry.gesture) << " → "
              << entry.matchedAction.value_or("(no matching binding)") << " @ "
              << entry.appName.value_or("(unknown)") << std::endl;
}

} // namespace

int main(int count, char* arguments[]) {
    const bool neverAsks = count == 2 && std::string_view(arguments[1]) == "--never-ask";
    if (count != 1 && !neverAsks) {
        std::cerr << "usage: glidemap-agent [--never-ask]" << std::endl;
        return 2;
    }
    QCoreApplication application(count, arguments);
    const glidemap::TerminationSignals endings(&QCoreApplication::quit);
    glidemap::test::HeadlessGlidemap program;
    program.start(neverAsks ? Prompt::never : Prompt::askUser, print);
    program.mainQueue().submit([] { std::cout << "ready" << std::endl; });
    const int status = QCoreApplication::exec();
    program.stop();
    return status;
}
