// Sends arbitrary reports at arbitrary times through the whole pipeline: from the contact callback
// through the recognizer to the gestures that the engine delivers.
//
// The input describes a hand and a faulty driver: fingers land, move and lift, time passes, and
// records may contain arbitrary values. These rules must hold for every input:
//
//   - the finger count equals the number of touching records in the latest report;
//   - while fingers are down, only hold-and-tap and long press are recognised. A session has at
//     most one long press, and none after a hold-and-tap. The number of gestures per report is at
//     most one plus the number of fingers that vanished;
//   - at the end of a session, at most one gesture is recognised in addition to hold-and-taps, and
//     none if the session had a hold-and-tap or a long press;
//   - no gesture is recognised outside a session, except single taps that delayed work reports, at
//     most as many as were held back;
//   - the gestures that the engine delivers are at least a quarter of a second apart;
//   - after the input, a clean tap is recognised as a tap.
#include "fuzz_input.h"
#include "input/multitouch_device_manager.h"
#include "platform/virtual/virtual_time.h"
#include "recognition/touch_engine.h"
#include "require.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <set>
#include <span>
#include <vector>

namespace {

using namespace glidemap;
using fuzz::Input;
using fuzz::require;

bool isFixAndTap(GestureType gesture) {
    return category(gesture) == GestureCategory::fixAndTap;
}

bool isLongPress(GestureType gesture) {
    return category(gesture) == GestureCategory::longPress;
}

bool mayBeHeldBack(GestureType gesture) {
    return gesture >= GestureType::twoFingerTap && gesture <= GestureType::fourFingerTap;
}

// Owns the engine under test, and derives the expected session from the reports alone.
class Pipeline {
public:
    explicit Pipeline(bool doubleTapsBound) : manager({"/no/such/driver", {}}) {
        engine = TouchEngine::create({time.clock(), time.queue(), time.delayedWork(), &manager});
        engine->onGesture = [this](GestureType) {
            delivered();
        };
        auto& recognizer = engine->sessionRecognizer();
        recognizer.doubleTapBindingExists = [doubleTapsBound, this](int) {
            heldBack += doubleTapsBound ? 1 : 0;
            return doubleTapsBound;
        };
        recognizer.onGesture = [this, deliver = recognizer.onGesture](GestureType gesture) {
            require(gesture != GestureType::drawCircle, "a circle has a direction");
            require(category(gesture) != GestureCategory::click, "clicks are not touched");
            (isFrameRunning ? ofFrame : ofDelayedWork).push_back(gesture);
            deliver(gesture);
        };
        engine->start();
    }
    Pipeline(const Pipeline&) = delete;
    Pipeline& operator=(const Pipeline&) = delete;
    ~Pipeline() { engine->stop(); }

    void report(const std::vector<MTTouch>& records, double timestamp) {
        pass([&] { time.advanceTo(timestamp); });
        MultitouchDeviceManager::contactCallback(nullptr, records.empty() ? nullptr : &records[0],
                                                 static_cast<std::int32_t>(records.size()),
                                                 timestamp, 0);
        checkFrameOf(records);
    }

    // The next two functions send an invalid report: one without records, and one whose count is
    // too large.
    void reportWithoutRecords(std::int32_t count) {
        MultitouchDeviceManager::contactCallback(nullptr, nullptr, count, time.now(), 0);
        checkFrameOf({});
    }

    void reportUnbelievably(std::int32_t count) {
        const MTTouch record{};
        const int before = engine->touchingCount();
        MultitouchDeviceManager::contactCallback(nullptr, &record, std::max(count, 65'537),
                                                 time.now(), 0);
        require(engine->touchingCount() == before, "an invalid report does not change the count");
    }

    void runDelayedWork() {
        pass([&] { time.runRemaining(); });
    }

    // Performs a two-finger tap on an untouched pad and returns the recognised gestures.
    std::vector<GestureType> tap(double start) {
        std::vector<MTTouch> records(2);
        for (std::size_t finger = 0; finger < 2; ++finger) {
            records[finger].identifier = static_cast<std::int32_t>(finger);
            records[finger].state = 4;
            records[finger].normalized.pos = {0.4F + 0.1F * static_cast<float>(finger), 0.5F};
        }
        runDelayedWork();
        report(records, start);
        report({}, start);
        std::vector<GestureType> reported = ofFrame;
        runDelayedWork();
        reported.insert(reported.end(), ofDelayedWork.begin(), ofDelayedWork.end());
        return reported;
    }

private:
    template <typename Step>
    void pass(Step step) {
        ofDelayedWork.clear();
        step();
        for (const GestureType gesture : ofDelayedWork) {
            require(mayBeHeldBack(gesture), "delayed work brings single taps only");
            require(heldBack-- > 0, "at most as many taps are late as were held back");
        }
    }

    void delivered() {
        const double now = time.clock()->uptime();
        require(!(now - lastDelivery < 0.25), "deliveries are a quarter second apart");
        lastDelivery = now;
    }

    void checkCount(const std::vector<MTTouch>& records) const {
        const auto touching = std::ranges::count_if(
            records, [](const MTTouch& record) { return isTouchingState(record.state); });
        require(engine->touchingCount() == touching, "the count is that of the latest report");
    }

    void checkFrameOf(const std::vector<MTTouch>& records) {
        checkCount(records);
        ofFrame.clear();
        isFrameRunning = true;
        time.runSubmitted();
        isFrameRunning = false;
        checkGestures(records);
    }

    void checkGestures(const std::vector<MTTouch>& records) {
        const std::set<std::int32_t> present = fingersIn(records);
        const auto vanished =
            std::ranges::count_if(live, [&](std::int32_t id) { return !present.contains(id); });
        require(static_cast<std::ptrdiff_t>(ofFrame.size()) <= vanished + 1,
                "at most one more gesture than vanished fingers");
        if (present.empty()) {
            checkEnd();
        } else {
            checkFingersDown();
        }
        live = present;
    }

    void checkFingersDown() {
        for (const GestureType gesture : ofFrame) {
            require(isFixAndTap(gesture) || isLongPress(gesture),
                    "only hold-and-tap and long press are recognised while fingers are down");
            require(!isLongPress(gesture) || !isTaken, "a taken session has no long press");
            isTaken = true;
        }
    }

    void checkEnd() {
        require(!live.empty() || ofFrame.empty(), "without a session nothing is decided");
        int decisions = 0;
        for (const GestureType gesture : ofFrame) {
            isTaken = isTaken || isFixAndTap(gesture);
            decisions += isFixAndTap(gesture) ? 0 : 1;
            require(!isLongPress(gesture), "no long press without fingers");
        }
        require(decisions <= (isTaken ? 0 : 1),
                "at most one gesture at the session's end, none after hold-and-tap or long press");
        isTaken = false;
    }

    // A finger counts from its first valid position on. Later invalid positions do not matter.
    std::set<std::int32_t> fingersIn(const std::vector<MTTouch>& records) const {
        std::set<std::int32_t> fingers;
        for (const MTTouch& record : records) {
            const MTPoint place = record.normalized.pos;
            const bool isSomewhere = std::isfinite(place.x) && std::isfinite(place.y);
            if (isTouchingState(record.state) &&
                (isSomewhere || live.contains(record.identifier))) {
                fingers.insert(record.identifier);
            }
        }
        return fingers;
    }

    VirtualTime time;
    MultitouchDeviceManager manager;
    std::shared_ptr<TouchEngine> engine;
    std::set<std::int32_t> live;
    bool isTaken = false; // a long press or a hold-and-tap was recognised in this session
    bool isFrameRunning = false;
    long heldBack = 0;
    double lastDelivery = -1e300;
    std::vector<GestureType> ofFrame;
    std::vector<GestureType> ofDelayedWork;
};

// Interprets the input bytes as finger movements and driver faults.
class Performer {
public:
    explicit Performer(std::span<const std::uint8_t> bytes)
        : input(bytes), pipeline((input.byte() & 1) != 0) {}

    void perform() {
        while (!input.isOver()) {
            act(input.byte() % 10);
        }
        endCleanly();
    }

private:
    void act(int verb) {
        switch (verb) {
        case 0:
            return land();
        case 1:
            return lift();
        case 2:
            return move();
        case 3:
            return spoil();
        case 4:
            return pass(input.byte() / 1000.0);
        case 5:
            return pass(limits[input.byte() % std::size(limits)]);
        case 6:
            return pass(input.value<double>() - time);
        case 7:
            contacts.clear();
            return pass(0.008);
        case 8:
            return pipeline.reportWithoutRecords(input.value<std::int32_t>());
        default:
            return pipeline.reportUnbelievably(input.value<std::int32_t>());
        }
    }

    void land() {
        if (contacts.size() < 12) {
            MTTouch contact{};
            contact.identifier = nextIdentifier++ % 16;
            contact.state = 4;
            contact.normalized.pos = {static_cast<float>(input.fraction()),
                                      static_cast<float>(input.fraction())};
            contacts.push_back(contact);
        }
    }

    MTTouch* anyContact() {
        return contacts.empty() ? nullptr : &contacts[input.byte() % contacts.size()];
    }

    void lift() {
        if (const MTTouch* contact = anyContact()) {
            contacts.erase(contacts.begin() + (contact - contacts.data()));
        }
    }

    // Moves all fingers by the same displacement, or moves only one finger.
    void move() {
        const MTPoint way = {input.value<std::int8_t>() / 256.0F,
                             input.value<std::int8_t>() / 256.0F};
        MTTouch* alone = (input.byte() & 1) != 0 ? anyContact() : nullptr;
        for (MTTouch& contact : contacts) {
            if (alone == nullptr || alone == &contact) {
                contact.normalized.pos.x += way.x;
                contact.normalized.pos.y += way.y;
            }
        }
    }

    void spoil() {
        if (MTTouch* contact = anyContact()) {
            switch (input.byte() % 4) {
            case 0:
                contact->identifier = input.value<std::int32_t>();
                break;
            case 1:
                contact->state = input.value<std::int32_t>();
                break;
            case 2:
                contact->normalized.pos = input.value<MTPoint>();
                break;
            default:
                *contact = input.value<MTTouch>();
            }
        }
    }

    void pass(double seconds) {
        time += seconds;
        pipeline.report(contacts, time);
        if (!std::isfinite(time)) {
            time = 0;
        }
    }

    void endCleanly() {
        contacts.clear();
        pass(0.008);
        // For large absolute times, a double cannot represent fractions of a second.
        const auto reported = pipeline.tap(std::abs(time) < 1e9 ? time + 10 : 0);
        // After time has gone backwards, the previous tap may seem recent, which makes this a
        // double tap.
        require(reported == std::vector{GestureType::twoFingerTap} ||
                    reported == std::vector{GestureType::twoFingerDoubleTap},
                "afterwards a clean tap is recognised as a tap");
    }

    // Durations around the recognizer's limits, and negative durations.
    static constexpr double limits[] = {0,    0.004, 0.008, 0.15, 0.2, 0.25, 0.3,  0.4,
                                        0.45, 0.6,   0.8,   1.5,  3,   60,   -0.1, -1e6};

    Input input;
    Pipeline pipeline;
    std::vector<MTTouch> contacts;
    std::int32_t nextIdentifier = 0;
    double time = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Performer(std::span(data, size)).perform();
    return 0;
}
