// agent_idle [--seconds N]: measures how often the threads of the idle program wake up, and the
// program's memory. Fails if a thread wakes up.
//
// Runs inside the test kernel (docs/performance.md). The touchpad is grabbed and cloned, and has
// been touched and clicked before, so that every thread exists.
#include "agent_session.h"
#include "device_reader.h"
#include "input_devices.h"
#include "ordinary_pad.h"
#include "pad_hand.h"
#include "running_process.h"

#include <cstdlib>
#include <cstring>
#include <iostream>

namespace glidemap::bench {

namespace {

int run(double seconds) {
    const test::AgentHome home;
    home.writeBindings({test::bindingJson("twoFingerTap", test::shortcutJson(17, 0)),
                        test::bindingJson("twoFingerDoubleTap", test::shortcutJson(17, 0)),
                        test::bindingJson("twoFingerClick", test::shortcutJson(17, 0))});
    test::VirtualPad pad(test::ordinaryPad());
    test::Agent agent;
    const auto clone = test::waitForNode(pad.shape().name, pad.node());
    if (!clone) {
        return 2;
    }
    // The driver grabs the touchpad only after a program has opened the clone.
    const test::DeviceReader desktop(*clone);
    test::PadHand(pad).pause(1).tap(2).pause(1).click(2).pause(2);
    if (!agent.waitForLog("twoFingerTap") || !agent.waitForLog("twoFingerClick")) {
        return 2;
    }
    const long woken = wakeUpsDuring(agent.id(), seconds, std::cout);
    const Memory memory = memoryOf(agent.id());
    std::cout << "resident " << memory.resident << " KiB, of which private " << memory.privatePages
              << " KiB\n";
    return woken == 0 ? 0 : 1;
}

} // namespace

} // namespace glidemap::bench

int main(int count, char** arguments) {
    double seconds = 10;
    if (count == 3 && std::strcmp(arguments[1], "--seconds") == 0) {
        seconds = std::strtod(arguments[2], nullptr);
    }
    return glidemap::bench::run(seconds);
}
