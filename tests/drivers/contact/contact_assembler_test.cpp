#include "drivers/contact/contact_assembler.h"
#include "pad_events.h"

#include <gtest/gtest.h>

#include <limits>

namespace glidemap::test {
namespace {

void check(const std::vector<StoryRow>& rows) {
    for (const StoryRow& row : rows) {
        SCOPED_TRACE(row.name);
        Pad pad(row.description);
        row.story(pad);
        EXPECT_EQ(pad.reports, row.expected);
    }
}

TEST(ContactAssembler, ReportsEachContactAsLandingThenTouchingThenLeaving) {
    check({
        {"one finger",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(900).place(50, 20).sync();
             pad.place(60, 20).sync();
             pad.place(60, 30).sync();
             pad.up().sync();
         },
         {"1.00 1:make(0.50,0.80)", "1.01 1:touch(0.60,0.80)", "1.02 1:touch(0.60,0.70)",
          "1.03 1:left(0.60,0.70)"}},
        {"two fingers, the first leaves first",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(900).place(10, 10).sync();
             pad.slot(1).down(901).place(20, 10).sync();
             pad.slot(0).up().sync();
             pad.slot(1).up().sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.01 1:touch(0.10,0.90) 2:make(0.20,0.90)",
          "1.02 1:left(0.10,0.90) 2:touch(0.20,0.90)", "1.03 2:left(0.20,0.90)"}},
        {"identifiers are independent of the kernel's and never reused",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(65535).place(10, 10).sync().up().sync();
             pad.down(0).place(20, 20).sync().up().sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.01 1:left(0.10,0.90)", "1.02 2:make(0.20,0.80)",
          "1.03 2:left(0.20,0.80)"}},
    });
}

TEST(ContactAssembler, KeepsPositionsThatTheKernelDoesNotRepeat) {
    check({
        {"the kernel sends no position for a finger that lands at its slot's last one",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(40, 60).sync().up().sync();
             pad.down(2).sync();
         },
         {"1.00 1:make(0.40,0.40)", "1.01 1:left(0.40,0.40)", "1.02 2:make(0.40,0.40)"}},
        {"the kernel sends only x for a finger on the same row",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(40, 60).sync().up().sync();
             pad.down(2).absolute(ABS_MT_POSITION_X, 70).sync();
         },
         {"1.00 1:make(0.40,0.40)", "1.01 1:left(0.40,0.40)", "1.02 2:make(0.70,0.40)"}},
        {"moving a slot without a contact is not reported",
         padWithSlots(5),
         [](Pad& pad) {
             pad.place(30, 30).sync();
             pad.down(1).sync();
         },
         {"1.01 1:make(0.30,0.70)"}},
        {"a contact leaves from its last reported position",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(40, 60).sync();
             pad.place(90, 90).up().sync();
         },
         {"1.00 1:make(0.40,0.40)", "1.01 1:left(0.40,0.40)"}},
    });
}

TEST(ContactAssembler, IgnoresInvalidSlots) {
    constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
    const auto contactIn = [](std::int32_t number) {
        return [number](Pad& pad) {
            pad.slot(number).down(1).place(10, 10).sync();
        };
    };
    check({
        {"the last slot exists", padWithSlots(2), contactIn(1), {"1.00 1:make(0.10,0.90)"}},
        {"the first invalid slot", padWithSlots(2), contactIn(2), {}},
        {"a negative slot", padWithSlots(2), contactIn(-1), {}},
        {"far beyond", padWithSlots(2), contactIn(largest), {}},
        {"a pad without slots", padWithSlots(0), contactIn(0), {}},
        {"a negative number of slots", padWithSlots(-3), contactIn(0), {}},
        {"too many slots: the last slot within the limit",
         padWithSlots(largest),
         contactIn(255),
         {"1.00 1:make(0.10,0.90)"}},
        {"and beyond", padWithSlots(largest), contactIn(256), {}},
        {"an invalid slot does not affect a contact",
         padWithSlots(2),
         [](Pad& pad) {
             pad.down(1).place(10, 10).sync();
             pad.slot(2).place(90, 90).up().sync();
             pad.slot(0).place(20, 10).sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.02 1:touch(0.20,0.90)"}},
    });
}

TEST(ContactAssembler, TrackingIDsBeginAndEndContacts) {
    check({
        {"a contact ends and another begins in the same slot and frame: reports both",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).sync();
             pad.up().down(2).place(80, 80).sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.01 1:left(0.10,0.90) 2:make(0.80,0.20)"}},
        {"a new id without an end between continues the contact",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).sync();
             pad.down(2).place(20, 10).sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.01 1:touch(0.20,0.90)"}},
        {"a new id without any other change is not reported",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).sync().down(2).sync(); },
         {"1.00 1:make(0.10,0.90)"}},
        {"an end without a contact is not reported",
         padWithSlots(5),
         [](Pad& pad) { pad.up().sync(); },
         {}},
        {"a contact that was down before the recording stays absent",
         padWithSlots(5),
         [](Pad& pad) {
             pad.place(10, 10).sync();
             pad.place(12, 10).sync();
             pad.up().sync();
         },
         {}},
        {"a contact that begins and ends within a frame is not reported",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).up().sync().down(2).sync(); },
         {"1.01 1:make(0.10,0.90)"}},
        {"a contact ends, and another begins and ends, in one frame: reports the first",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).sync().up().down(2).up().sync(); },
         {"1.00 1:make(0.10,0.90)", "1.01 1:left(0.10,0.90)"}},
    });
}

TEST(ContactAssembler, ReportsOnlyFramesThatChangeAContact) {
    check({
        {"a synchronisation without events",
         padWithSlots(5),
         [](Pad& pad) { pad.sync().down(1).place(10, 10).sync().sync().sync(); },
         {"1.01 1:make(0.10,0.90)"}},
        {"unchanged values",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).sync().place(10, 10).sync(); },
         {"1.00 1:make(0.10,0.90)"}},
        {"the single-touch axes and a key of a keyboard",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).sync();
             pad.absolute(ABS_X, 50).absolute(ABS_PRESSURE, 5).key(KEY_A, true).sync();
         },
         {"1.00 1:make(0.10,0.90)"}},
        {"a change of size",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).sync();
             pad.absolute(ABS_MT_TOUCH_MAJOR, 5).sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.01 1:touch(0.10,0.90)"}},
        {"the report contains all contacts, also unchanged ones",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).slot(1).down(2).place(20, 20).sync();
             pad.place(30, 20).sync();
         },
         {"1.00 1:make(0.10,0.90) 2:make(0.20,0.80)",
          "1.01 1:touch(0.10,0.90) 2:touch(0.30,0.80)"}},
    });
}

TEST(ContactAssembler, ReportsPalmsAndHoveringFingersAsHovering) {
    check({
        {"a finger becomes a palm and a finger again",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).sync();
             pad.absolute(ABS_MT_TOOL_TYPE, MT_TOOL_PALM).sync();
             pad.place(11, 10).sync();
             pad.absolute(ABS_MT_TOOL_TYPE, MT_TOOL_FINGER).sync();
             pad.place(12, 10).sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.01 1:hover(0.10,0.90)", "1.02 1:hover(0.11,0.90)",
          "1.03 1:make(0.11,0.90)", "1.04 1:touch(0.12,0.90)"}},
        {"a contact that is a palm from the start leaves",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).absolute(ABS_MT_TOOL_TYPE, MT_TOOL_PALM).place(10, 10).sync();
             pad.up().sync();
         },
         {"1.00 1:hover(0.10,0.90)", "1.01 1:left(0.10,0.90)"}},
        {"a finger at a distance",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).absolute(ABS_MT_DISTANCE, 1).sync();
             pad.absolute(ABS_MT_DISTANCE, 0).sync();
         },
         {"1.00 1:hover(0.10,0.90)", "1.01 1:make(0.10,0.90)"}},
        {"a finger without pressure, on a pad that reports pressure",
         pressurePad(),
         [](Pad& pad) {
             pad.down(1).place(10, 10).sync();
             pad.absolute(ABS_MT_PRESSURE, 1).sync();
             pad.absolute(ABS_MT_PRESSURE, 0).sync();
         },
         {"1.00 1:hover(0.10,0.90)", "1.01 1:make(0.10,0.90)", "1.02 1:hover(0.10,0.90)"}},
        {"a finger on a pad that does not report pressure",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).absolute(ABS_MT_PRESSURE, 0).sync(); },
         {"1.00 1:make(0.10,0.90)"}},
    });
}

TEST(ContactAssembler, ReportsButtonChangesWithTheirFrame) {
    check({
        {"each button, without a contact",
         padWithSlots(5),
         [](Pad& pad) {
             pad.key(BTN_LEFT, true).sync();
             pad.key(BTN_RIGHT, true).key(BTN_LEFT, false).sync();
             pad.key(BTN_MIDDLE, true).sync().sync();
         },
         {"button 0 down", "button 1 down", "button 0 up", "button 2 down"}},
        {"after the contacts of the same frame",
         padWithSlots(5),
         [](Pad& pad) { pad.key(BTN_LEFT, true).down(1).place(10, 10).sync(); },
         {"1.00 1:make(0.10,0.90)", "button 0 down"}},
        {"down and up in one frame",
         padWithSlots(5),
         [](Pad& pad) { pad.key(BTN_LEFT, true).key(BTN_LEFT, false).sync(); },
         {"button 0 down", "button 0 up"}},
        {"a chattering button: its final state counts",
         padWithSlots(5),
         [](Pad& pad) {
             pad.key(BTN_LEFT, true).key(BTN_RIGHT, true);
             pad.key(BTN_LEFT, false).key(BTN_LEFT, true).sync();
         },
         {"button 0 down", "button 1 down"}},
        {"a repeated state is no change",
         padWithSlots(5),
         [](Pad& pad) {
             pad.key(BTN_LEFT, false).sync();
             pad.key(BTN_LEFT, true).sync().key(BTN_LEFT, true).sync();
         },
         {"button 0 down"}},
        {"side buttons are ignored",
         padWithSlots(5),
         [](Pad& pad) { pad.key(BTN_SIDE, true).key(BTN_TOUCH, true).sync(); },
         {}},
    });
}

TEST(ContactAssembler, IgnoresEventsFromSynDroppedToTheNextSynReport) {
    check({
        {"ignores a move, an end and a button; handles later events",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).sync();
             pad.event(EV_SYN, SYN_DROPPED, 0).place(90, 90).up().key(BTN_LEFT, true).sync();
             pad.place(20, 10).sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.02 1:touch(0.20,0.90)"}},
        {"handles the events before the loss",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).event(EV_SYN, SYN_DROPPED, 0).place(90, 90).sync();
         },
         {"1.00 1:make(0.10,0.90)"}},
    });
}

TEST(ContactAssembler, ReleaseEndsAllContactsAndReportsAnEmptyFrame) {
    check({
        {"no contact", padWithSlots(5), [](Pad& pad) { pad.release(); }, {}},
        {"all contacts have left before",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).sync().up().sync().release(); },
         {"1.00 1:make(0.10,0.90)", "1.01 1:left(0.10,0.90)"}},
        {"two contacts and a button",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).slot(1).down(2).place(20, 20).key(BTN_LEFT, true).sync();
             pad.release().release();
         },
         {"1.00 1:make(0.10,0.90) 2:make(0.20,0.80)", "button 0 down", "1.01", "button 0 up"}},
        {"a hovering contact",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).absolute(ABS_MT_DISTANCE, 3).sync().release(); },
         {"1.00 1:hover(0.10,0.90)", "1.01"}},
        {"a contact whose end was not reported yet",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).sync().up().release().sync(); },
         {"1.00 1:make(0.10,0.90)", "1.01"}},
        {"a contact that was never reported",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).release().sync(); },
         {}},
        {"later contacts start on empty slots with new identifiers",
         padWithSlots(5),
         [](Pad& pad) {
             pad.slot(1).down(1).place(10, 10).sync().release();
             pad.place(70, 70).up().sync();
             pad.down(2).absolute(ABS_MT_POSITION_X, 30).sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.01", "1.02 2:make(0.30,0.30)"}},
    });
}

} // namespace
} // namespace glidemap::test
