// Measures the latency of the whole chain on a real kernel, from the write of the report in which
// two fingers lift until the key of their tap is read.
//
//   touch_to_key/glidemap       touchpad ─▶ our driver, recognition, dispatch, main queue ─▶ keyboard
//   touch_to_key/through_clone  the same while the touchpad is grabbed and cloned
//   touch_to_click/libinput     touchpad ─▶ libinput ─▶ the button event of a tap: the latency of a
//                               desktop that reads the touchpad itself
//
// Runs inside the test kernel (docs/performance.md), which has one processor.
#include "agent_session.h"
#include "bench/samples.h"
#include "device_reader.h"
#include "input_devices.h"
#include "ordinary_pad.h"
#include "pad_hand.h"
#include "quantiles.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <libinput.h>
#include <linux/input.h>
#include <poll.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>

namespace glidemap::bench {

namespace {

using test::Agent;
using test::AgentHome;
using test::DeviceReader;
using test::PadHand;
using test::VirtualPad;

// Too long for a double tap, both in the program and in libinput.
constexpr double betweenTaps = 0.6;

bool failed = false;

void giveUp(benchmark::State& state, const char* reason) {
    failed = true;
    state.SkipWithError(reason);
}

class Measurement {
public:
    explicit Measurement(benchmark::State& benchmarkState)
        : state(benchmarkState), samples(static_cast<std::size_t>(benchmarkState.max_iterations)) {}
    ~Measurement() { reportQuantiles(state, samples); }

    void add(Moment from, Moment to) {
        samples.add(from, to);
        state.SetIterationTime(std::chrono::duration<double>(to - from).count());
    }

private:
    benchmark::State& state;
    Samples samples;
};

enum class Clone { none, read };

void measureTaps(benchmark::State& state, Clone clone) {
    VirtualPad pad(test::ordinaryPad());
    const Agent agent;
    DeviceReader keyboard(test::waitForNode("Glidemap Keyboard").value_or("/dev/null"));
    std::optional<DeviceReader> desktop; // the driver grabs only touchpads whose clone is open
    if (clone == Clone::read) {
        desktop.emplace(test::waitForNode(pad.shape().name, pad.node()).value_or("/dev/null"));
    }
    PadHand hand(pad);
    Measurement measurement(state);
    for ([[maybe_unused]] auto _ : state) {
        hand.pause(betweenTaps).down(2).pause(0.02);
        keyboard.forget();
        const Moment start = now();
        hand.up();
        if (!keyboard.waitForKey(KEY_T, 1)) {
            giveUp(state, "nothing was typed");
            return;
        }
        measurement.add(start, now());
    }
}

void touchToKey(benchmark::State& state) {
    const AgentHome home;
    home.writeBindings({test::bindingJson("twoFingerTap", test::shortcutJson(17, 0))});
    measureTaps(state, Clone::none);
}

void touchToKeyThroughClone(benchmark::State& state) {
    const AgentHome home;
    home.writeBindings({test::bindingJson("twoFingerTap", test::shortcutJson(17, 0)),
                        test::bindingJson("threeFingerClick", test::shortcutJson(17, 0))});
    measureTaps(state, Clone::read);
}

// Reads the touchpad through libinput, with tapping enabled.
class Libinput {
public:
    explicit Libinput(const std::string& node)
        : context(libinput_path_create_context(&interface, nullptr)),
          device(libinput_path_add_device(context, node.c_str())) {
        if (device != nullptr) {
            libinput_device_config_tap_set_enabled(device, LIBINPUT_CONFIG_TAP_ENABLED);
        }
    }
    Libinput(const Libinput&) = delete;
    Libinput& operator=(const Libinput&) = delete;
    ~Libinput() { libinput_unref(context); }

    bool waitForButton() {
        for (;;) {
            libinput_dispatch(context);
            if (takeButton()) {
                return true;
            }
            pollfd waited{libinput_get_fd(context), POLLIN, 0};
            if (poll(&waited, 1, 5000) <= 0) {
                return false;
            }
        }
    }

    void forget() {
        libinput_dispatch(context);
        takeButton();
    }

private:
    bool takeButton() {
        bool pressed = false;
        while (libinput_event* const event = libinput_get_event(context)) {
            pressed |=
                libinput_event_get_type(event) == LIBINPUT_EVENT_POINTER_BUTTON &&
                libinput_event_pointer_get_button_state(libinput_event_get_pointer_event(event)) ==
                    LIBINPUT_BUTTON_STATE_PRESSED;
            libinput_event_destroy(event);
        }
        return pressed;
    }

    static int openNode(const char* path, int flags, void* /*unused*/) { return open(path, flags); }
    static void closeNode(int descriptor, void* /*unused*/) { close(descriptor); }
    static constexpr libinput_interface interface = {openNode, closeNode};

    libinput* context;
    libinput_device* device;
};

void touchToClickOfLibinput(benchmark::State& state) {
    VirtualPad pad(test::ordinaryPad());
    Libinput reader(pad.node());
    PadHand hand(pad);
    Measurement measurement(state);
    for ([[maybe_unused]] auto _ : state) {
        hand.pause(betweenTaps).down(2).pause(0.02);
        reader.forget();
        const Moment start = now();
        hand.up();
        if (!reader.waitForButton()) {
            giveUp(state, "no button was reported");
            return;
        }
        measurement.add(start, now());
    }
}

void registerAll(int taps) {
    const auto prepare = [taps](benchmark::internal::Benchmark* one) {
        one->UseManualTime()->Iterations(taps);
    };
    prepare(benchmark::RegisterBenchmark("touch_to_key/glidemap", touchToKey));
    prepare(benchmark::RegisterBenchmark("touch_to_key/through_clone", touchToKeyThroughClone));
    prepare(benchmark::RegisterBenchmark("touch_to_click/libinput", touchToClickOfLibinput));
}

} // namespace

} // namespace glidemap::bench

// touch_to_key_bench [--taps N] [Google Benchmark's options]
int main(int argumentCount, char** arguments) {
    int taps = 100;
    if (argumentCount > 2 && std::strcmp(arguments[1], "--taps") == 0) {
        taps = std::atoi(arguments[2]);
        arguments[2] = arguments[0];
        argumentCount -= 2;
        arguments += 2;
    }
    benchmark::Initialize(&argumentCount, arguments);
    glidemap::bench::registerAll(taps);
    benchmark::RunSpecifiedBenchmarks();
    return glidemap::bench::failed ? 1 : 0;
}
