// Tests that readers of a clone get the same events as readers of its touchpad, for the
// capabilities and the recorded motion of real touchpads.
//
// Other programs cannot read a grabbed touchpad. So the tests write the same events to a second
// touchpad, the twin, and read the twin.

#include "forwarded_pad.h"
#include "input_devices.h"
#include "recordings.h"

#include <gtest/gtest.h>
#include <linux/input.h>

#include <algorithm>
#include <map>
#include <ostream>
#include <utility>

namespace glidemap::test {
namespace {

const char* const recordings[] = {
    "touchpads/AlpsPS2 ALPS GlidePoint.2-finger-tap.events",
    "touchpads/AlpsPS2-ALPS-DualPoint-TouchPad.events",
    "touchpads/CyPS2 Cypress Trackpad.three_finger_press.events",
    "touchpads/CyPS2 Cypress Trackpad.two_finger_press.events",
    "touchpads/ETPS2 Elantech Touchpad.Samsung-700Z3A.events",
    "touchpads/ETPS2 Elantech Touchpad.events",
    "touchpads/SynPS2 Synaptics TouchPad-with-scrollbuttons.events",
    "touchpads/SynPS2 Synaptics TouchPad.button-rpress.events",
    "touchpads/SynPS2 Synaptics TouchPad.events",
    "touchpads/SynPS2 Synaptics TouchPad.hp8470p.two-finger-scroll-horizontal.events",
};

// The state of a touchpad, as a program can derive it from the touchpad's events.
struct Knowledge {
    std::int32_t slot = 0;
    std::map<std::pair<std::int32_t, int>, std::int32_t> slotValues;
    std::map<int, std::int32_t> values; // values of axes without slots
    std::map<int, std::int32_t> keys;

    static bool isSlotAxis(int code) { return code >= ABS_MT_TOUCH_MAJOR && code <= ABS_MT_TOOL_Y; }

    void learn(const EventFrame& frame) {
        for (const PadEvent& event : frame) {
            if (event.type == EV_KEY) {
                keys[event.code] = event.value;
            } else if (event.type == EV_ABS && event.code == ABS_MT_SLOT) {
                slot = event.value;
            } else if (event.type == EV_ABS && isSlotAxis(event.code)) {
                slotValues[{slot, event.code}] = event.value;
            } else if (event.type == EV_ABS) {
                values[event.code] = event.value;
            }
        }
    }

    bool isDown(std::int32_t number) const {
        const auto id = slotValues.find({number, ABS_MT_TRACKING_ID});
        return id != slotValues.end() && id->second >= 0;
    }

    // Returns the axes of each touching finger's slot, the pressed keys, and, while a finger
    // touches, the axes without slots. Omits values of 0, because 0 is the initial value.
    std::map<std::string, std::int32_t> present() const {
        std::map<std::string, std::int32_t> result;
        bool touched = false;
        for (const auto& [place, value] : slotValues) {
            if (isDown(place.first) && value != 0) {
                touched = true;
                result["slot " + std::to_string(place.first) + " axis " +
                       std::to_string(place.second)] = value;
            }
        }
        for (const auto& [key, value] : keys) {
            if (value != 0) {
                result["key " + std::to_string(key)] = value;
            }
        }
        for (const auto& [code, value] : values) {
            if (touched && value != 0) {
                result["axis " + std::to_string(code)] = value;
            }
        }
        return result;
    }
};

bool hasLanding(const EventFrame& frame) {
    return std::ranges::any_of(frame, [](const PadEvent& event) {
        return event.type == EV_ABS && event.code == ABS_MT_TRACKING_ID && event.value >= 0;
    });
}

EventFrame withoutSlots(EventFrame frame) {
    std::erase_if(frame, [](const PadEvent& event) {
        return event.type == EV_ABS && event.code == ABS_MT_SLOT;
    });
    return frame;
}

// A forwarded touchpad, and its twin, which is not grabbed.
class Twins {
public:
    explicit Twins(const PadShape& shape) : forwarded(shape), twin(shape, "virtual/twin") {
        forwarded.filter.answer([](const AskedClick&) { return false; });
    }

    void write(const EventFrame& frame) {
        forwarded.pad.write(frame);
        twin.write(frame);
    }

    // Lifts all fingers, releases all keys and selects slot 0, as at the beginning of a recording.
    void makeNeutral() {
        EventFrame frame;
        for (std::int32_t slot = twin.shape().slotCount() - 1; slot >= 0; --slot) {
            frame.push_back({EV_ABS, ABS_MT_SLOT, slot});
            frame.push_back({EV_ABS, ABS_MT_TRACKING_ID, -1});
        }
        for (const int key : twin.shape().keys) {
            frame.push_back({EV_KEY, static_cast<std::uint16_t>(key), 0});
        }
        write(frame);
        forwarded.session.settle(forwarded.pad);
    }

    void play(const std::vector<EventFrame>& frames) {
        constexpr std::size_t framesThatReadersKeep = 4;
        for (std::size_t index = 0; index < frames.size(); ++index) {
            write(frames[index]);
            if (index % framesThatReadersKeep == 0 || index + 1 == frames.size()) {
                listen();
            }
        }
    }

    ForwardedPad forwarded;
    VirtualPad twin;
    EventReader reader{twin.node()};
    std::vector<EventFrame> fromTwin;
    std::vector<EventFrame> fromClone;

private:
    void listen() {
        append(fromTwin, framesWithoutMarker(reader.read()));
        if (forwarded.clone != nullptr) {
            append(fromClone, framesWithoutMarker(forwarded.readClone()));
        } else {
            forwarded.session.settle(forwarded.pad);
        }
    }

    static void append(std::vector<EventFrame>& all, std::vector<EventFrame> more) {
        all.insert(all.end(), std::make_move_iterator(more.begin()),
                   std::make_move_iterator(more.end()));
    }
};

class CloneMotionTest : public testing::TestWithParam<const char*> {
protected:
    static RecordedPad recorded() { return readRecordedPad(recordingsFolder() / GetParam()); }
};

TEST_P(CloneMotionTest, CloneHasTheTouchpadsCapabilities) {
    GLIDEMAP_NEEDS_RECORDINGS();
    ForwardedPad forwarded(shapeToday(recorded()));
    forwarded.switchOn();
    const auto clone = waitForClone();
    PadShape expected = shapeOf(forwarded.pad.node());
    expected.axes.try_emplace(ABS_MT_TOOL_TYPE, PadAxis{0, MT_TOOL_PALM, 0, 0, 0});
    EXPECT_EQ(shapeOf(clone), expected);
    EXPECT_EQ(physicalPathOf(clone), "glidemap/clone/" + physicalPathOf(forwarded.pad.node()));
    EXPECT_EQ(udevProperty(clone, "ID_INPUT_TOUCHPAD"), "1");
}

TEST_P(CloneMotionTest, CloneReaderReceivesTheSameEventsAsATouchpadReader) {
    GLIDEMAP_NEEDS_RECORDINGS();
    const RecordedPad pad = recorded();
    Twins twins(shapeToday(pad));
    twins.forwarded.switchOn();
    twins.play(pad.frames);
    ASSERT_EQ(twins.fromClone.size(), twins.fromTwin.size());
    for (std::size_t index = 0; index < twins.fromTwin.size(); ++index) {
        ASSERT_EQ(twins.fromClone[index], twins.fromTwin[index]) << "frame " << index;
    }
    EXPECT_GT(twins.fromTwin.size(), pad.frames.size() / 2);
    EXPECT_TRUE(twins.forwarded.others.isQuiet());
}

TEST_P(CloneMotionTest, CloneOfAUsedTouchpadReportsTheStateOfTheTouchpad) {
    GLIDEMAP_NEEDS_RECORDINGS();
    const RecordedPad pad = recorded();
    Twins twins(shapeToday(pad));
    twins.play(pad.frames);
    twins.makeNeutral();
    Knowledge ofTwin;
    for (const EventFrame& frame : twins.fromTwin) {
        ofTwin.learn(frame);
    }
    for (const EventFrame& frame : framesWithoutMarker(twins.reader.read())) {
        ofTwin.learn(frame);
    }
    twins.forwarded.switchOn();
    twins.fromTwin.clear();
    twins.play(pad.frames);

    Knowledge ofClone;
    ASSERT_EQ(twins.fromClone.size(), twins.fromTwin.size());
    for (std::size_t index = 0; index < twins.fromTwin.size(); ++index) {
        const EventFrame& expected = twins.fromTwin[index];
        const EventFrame& received = twins.fromClone[index];
        ofTwin.learn(expected);
        ofClone.learn(received);
        ASSERT_EQ(ofClone.present(), ofTwin.present()) << "frame " << index;
        if (!hasLanding(expected)) {
            ASSERT_EQ(withoutSlots(received), withoutSlots(expected)) << "frame " << index;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Recordings, CloneMotionTest, testing::ValuesIn(recordings),
                         [](const auto& instance) { return testName(instance.param); });

} // namespace
} // namespace glidemap::test
