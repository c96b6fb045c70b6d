// glidemap-record: records the touchpads' reports and recognises their gestures, until it is
// interrupted.

#include "core/gesture_type.h"
#include "input/multitouch_device_manager.h"
#include "interruption.h"
#include "messages.h"
#include "options.h"
#include "platform/common/steady_uptime_clock.h"
#include "platform/common/threaded_delayed_work.h"
#include "platform/common/threaded_serial_queue.h"
#include "platform/linux/thread_setup.h"
#include "platform/linux/touch_driver_platform.h"
#include "recognition/touch_engine.h"
#include "recorder.h"
#include "touchpads.h"

#include <cerrno>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>
#include <variant>

namespace glidemap::record {
namespace {

enum Status : int { success = 0, failure = 1, badUsage = 2 };

int printError(const std::string& message) {
    const bool ended = message.ends_with('\n');
    std::fprintf(stderr, "glidemap-record: %s%s", message.c_str(), ended ? "" : "\n");
    return failure;
}

std::string reason(int errorNumber) {
    return std::generic_category().message(errorNumber);
}

// Prints a line in the format of glidemap-replay. Two threads report gestures, so each line is
// written with one call to keep it whole.
void announce(std::FILE* output, double time, GestureType gesture) {
    std::fprintf(output, "%12.3f  %-26s  %s\n", time, std::string(rawValue(gesture)).c_str(),
                 displayName(gesture).c_str());
    std::fflush(output);
}

std::shared_ptr<TouchEngine> makeEngine(MultitouchDeviceManager& manager, std::FILE* output) {
    const auto responsive = [] {
        setUpResponsiveThread(TouchEngine::queueLabel);
    };
    const auto clock = std::make_shared<SteadyUptimeClock>();
    auto engine = TouchEngine::create({
        .clock = clock,
        .queue = std::make_shared<ThreadedSerialQueue>(responsive),
        .delayedWork = std::make_shared<ThreadedDelayedWork>(responsive),
        .deviceManager = &manager,
    });
    engine->onGesture = [clock, output](GestureType gesture) {
        announce(output, clock->uptime(), gesture);
    };
    return engine;
}

int record(const Options& options) {
    const Interruption interruption;
    MultitouchDeviceManager manager(touchDriverPlatform());
    if (manager.loadError().has_value()) {
        return printError("the touch driver cannot be used: " + *manager.loadError());
    }
    Touchpads touchpads(manager);
    if (!touchpads.exist()) {
        return printError(nothingToRecord(touchpads.unreadableCount()));
    }

    std::ofstream file;
    const std::string place = options.file.value_or("standard output");
    if (options.file.has_value()) {
        file.open(place, std::ios::binary | std::ios::trunc);
        if (!file) {
            return printError("cannot write " + place + ": " + reason(errno));
        }
    }
    Recorder recorder(options.file.has_value() ? file : std::cout, touchpads.names(),
                      [&interruption] { interruption.fail(); });
    touchpads.listen(recorder);
    const auto engine = makeEngine(manager, options.file.has_value() ? stdout : stderr);
    engine->start();
    if (!touchpads.areStarted()) {
        engine->stop();
        return printError("this touch driver does not support recording");
    }
    // The message follows the start, so that every touch after the message is recorded. The names
    // are empty for a driver that plays recordings.
    const std::string names = touchpads.names();
    std::fprintf(stderr, "Recording%s%s; press Ctrl-C to stop.\n", names.empty() ? "" : " ",
                 names.c_str());
    interruption.wait();
    engine->stop();
    recorder.finish();
    return recorder.error() == 0
               ? success
               : printError("cannot write " + place + ": " + reason(recorder.error()));
}

int run(int count, char** arguments) {
    const auto parsed = parseOptions(count, arguments);
    if (std::holds_alternative<HelpRequest>(parsed)) {
        std::fputs(helpText, stdout);
        return success;
    }
    if (const auto* error = std::get_if<UsageError>(&parsed)) {
        printError(error->message);
        std::fputs(usageText, stderr);
        return badUsage;
    }
    return record(std::get<Options>(parsed));
}

} // namespace
} // namespace glidemap::record

int main(int count, char** arguments) {
    try {
        return glidemap::record::run(count, arguments);
    } catch (const std::exception& error) {
        return glidemap::record::printError(error.what());
    }
}
