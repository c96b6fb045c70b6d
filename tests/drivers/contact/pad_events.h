// Sends a touchpad's kernel events and formats the resulting reports as text.
//
//   Pad pad(padWithSlots(2));
//   pad.slot(0).down(7).place(50, 50).sync();
//   EXPECT_EQ(pad.reports, std::vector<std::string>{"1.00 1:make(0.50,0.50)"});
//
// A report is formatted as its time and its contacts, `identifier:state(x,y)`, and a button change
// as `button 0 down`. A frame without changes adds no text.
#pragma once

#include "drivers/contact/contact_assembler.h"

#include <linux/input.h>

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace glidemap::test {

// Describes a touchpad of 100 by 100 units, with 2 units per millimetre.
inline PadDescription padWithSlots(std::int32_t slotCount) {
    PadDescription pad;
    pad.name = "test pad";
    pad.slotCount = slotCount;
    pad.x = {0, 100, 2};
    pad.y = {0, 100, 2};
    return pad;
}

inline PadDescription semiMultitouchPad() {
    PadDescription pad = padWithSlots(2);
    pad.semiMultitouch = true;
    return pad;
}

inline PadDescription pressurePad() {
    PadDescription pad = padWithSlots(5);
    pad.pressure = AxisRange{0, 200, 0};
    return pad;
}

inline std::string stateName(std::int32_t state) {
    switch (state) {
    case 2:
        return "hover";
    case 3:
        return "make";
    case 4:
        return "touch";
    case 7:
        return "left";
    default:
        return std::to_string(state);
    }
}

inline std::string text(const MTTouch& record) {
    char buffer[96];
    const MTPoint position = record.normalized.pos;
    std::snprintf(buffer, sizeof buffer, " %d:%s(%.2f,%.2f)", record.identifier,
                  stateName(record.state).c_str(), static_cast<double>(position.x),
                  static_cast<double>(position.y));
    return buffer;
}

class Pad {
public:
    explicit Pad(const PadDescription& description) : assembler(description) {}

    Pad& at(double newTime) {
        time = newTime;
        return *this;
    }
    Pad& event(std::uint16_t type, std::uint16_t code, std::int32_t value) {
        keep(assembler.handle({time, type, code, value}));
        return *this;
    }
    Pad& absolute(std::uint16_t code, std::int32_t value) { return event(EV_ABS, code, value); }
    Pad& key(std::uint16_t code, bool down) { return event(EV_KEY, code, down ? 1 : 0); }

    Pad& slot(std::int32_t number) { return absolute(ABS_MT_SLOT, number); }
    Pad& down(std::int32_t trackingId) { return absolute(ABS_MT_TRACKING_ID, trackingId); }
    Pad& up() { return absolute(ABS_MT_TRACKING_ID, -1); }
    // Uses the kernel's coordinates: y grows downwards.
    Pad& place(std::int32_t x, std::int32_t y) {
        return absolute(ABS_MT_POSITION_X, x).absolute(ABS_MT_POSITION_Y, y);
    }

    // Ends the frame and advances the time by 10 ms.
    Pad& sync() {
        event(EV_SYN, SYN_REPORT, 0);
        time += 0.01;
        return *this;
    }
    Pad& release() {
        keep(&assembler.release(time));
        return *this;
    }

    std::vector<std::string> reports;
    std::vector<MTTouch> lastRecords;

private:
    void keep(const PadFrame* frame) {
        if (frame == nullptr) {
            return;
        }
        if (frame->contactsChanged) {
            char line[32];
            std::snprintf(line, sizeof line, "%.2f", frame->timestamp);
            reports.emplace_back(line);
            for (const MTTouch& record : frame->contacts) {
                reports.back() += text(record);
            }
            lastRecords.assign(frame->contacts.begin(), frame->contacts.end());
        }
        for (const ButtonChange& change : frame->buttons) {
            reports.push_back("button " + std::to_string(change.button) +
                              (change.down ? " down" : " up"));
        }
    }

    ContactAssembler assembler;
    double time = 1;
};

// A sequence of events and the reports that it causes.
struct StoryRow {
    const char* name;
    PadDescription description;
    std::function<void(Pad&)> story;
    std::vector<std::string> expected;
};

} // namespace glidemap::test
