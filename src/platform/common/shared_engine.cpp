#include "platform/common/shared_engine.h"

#include "platform/common/steady_uptime_clock.h"
#include "platform/common/threaded_delayed_work.h"
#include "platform/common/threaded_serial_queue.h"
#include "recognition/touch_engine.h"

#include <memory>
#include <utility>

namespace glidemap {

MultitouchDeviceManager& makeSharedEngine(TouchDriverPlatform platform,
                                          void (*setUpThread)(std::string_view name),
                                          WorkWithin within) {
    MultitouchDeviceManager::configureShared(std::move(platform));
    TouchEngine::configureShared([setUpThread, within]() -> TouchEngine::Ports {
        return {std::make_shared<SteadyUptimeClock>(),
                std::make_shared<ThreadedSerialQueue>(
                    [setUpThread] { setUpThread(TouchEngine::queueLabel); }, within),
                std::make_shared<ThreadedDelayedWork>(
                    [setUpThread] { setUpThread("delayed work"); }, within),
                &MultitouchDeviceManager::shared()};
    });
    return MultitouchDeviceManager::shared();
}

} // namespace glidemap
