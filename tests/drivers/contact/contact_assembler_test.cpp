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

TEST(ContactAssembler, AContactMakesTouchThenTouchesThenLeavesInOneReport) {
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
        {"identifiers are counted here, not in the kernel, and never come back",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(65535).place(10, 10).sync().up().sync();
             pad.down(0).place(20, 20).sync().up().sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.01 1:left(0.10,0.90)", "1.02 2:make(0.20,0.80)",
          "1.03 2:left(0.20,0.80)"}},
    });
}

TEST(ContactAssembler, PositionsComeFromTheStateOfTheSlot) {
    check({
        {"a finger landing where its slot last was tells no position",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(40, 60).sync().up().sync();
             pad.down(2).sync();
         },
         {"1.00 1:make(0.40,0.40)", "1.01 1:left(0.40,0.40)", "1.02 2:make(0.40,0.40)"}},
        {"a finger on the same row tells x only",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(40, 60).sync().up().sync();
             pad.down(2).absolute(ABS_MT_POSITION_X, 70).sync();
         },
         {"1.00 1:make(0.40,0.40)", "1.01 1:left(0.40,0.40)", "1.02 2:make(0.70,0.40)"}},
        {"a slot without a contact may be moved, unseen",
         padWithSlots(5),
         [](Pad& pad) {
             pad.place(30, 30).sync();
             pad.down(1).sync();
         },
         {"1.01 1:make(0.30,0.70)"}},
        {"a contact leaves from where it was last reported",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(40, 60).sync();
             pad.place(90, 90).up().sync();
         },
         {"1.00 1:make(0.40,0.40)", "1.01 1:left(0.40,0.40)"}},
    });
}

TEST(ContactAssembler, SlotsThatDoNotExistAreIgnored) {
    constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
    const auto contactIn = [](std::int32_t number) {
        return [number](Pad& pad) {
            pad.slot(number).down(1).place(10, 10).sync();
        };
    };
    check({
        {"the last slot exists", padWithSlots(2), contactIn(1), {"1.00 1:make(0.10,0.90)"}},
        {"one beyond the last", padWithSlots(2), contactIn(2), {}},
        {"a negative one", padWithSlots(2), contactIn(-1), {}},
        {"far beyond", padWithSlots(2), contactIn(largest), {}},
        {"a pad without slots", padWithSlots(0), contactIn(0), {}},
        {"a pad with fewer than none", padWithSlots(-3), contactIn(0), {}},
        {"a pad that claims more slots than there can be, within what is believed of it",
         padWithSlots(largest),
         contactIn(255),
         {"1.00 1:make(0.10,0.90)"}},
        {"and beyond", padWithSlots(largest), contactIn(256), {}},
        {"a contact is untouched by them",
         padWithSlots(2),
         [](Pad& pad) {
             pad.down(1).place(10, 10).sync();
             pad.slot(2).place(90, 90).up().sync();
             pad.slot(0).place(20, 10).sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.02 1:touch(0.20,0.90)"}},
    });
}

TEST(ContactAssembler, TrackingIdsBeginAndEndContacts) {
    check({
        {"one ends and another begins in the same slot and frame: both are told",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).sync();
             pad.up().down(2).place(80, 80).sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.01 1:left(0.10,0.90) 2:make(0.80,0.20)"}},
        {"an id over another one is the same contact",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).sync();
             pad.down(2).place(20, 10).sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.01 1:touch(0.20,0.90)"}},
        {"an id over another one and nothing else is nothing",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).sync().down(2).sync(); },
         {"1.00 1:make(0.10,0.90)"}},
        {"the end of nothing is nothing", padWithSlots(5), [](Pad& pad) { pad.up().sync(); }, {}},
        {"a contact that was down before the recording stays absent",
         padWithSlots(5),
         [](Pad& pad) {
             pad.place(10, 10).sync();
             pad.place(12, 10).sync();
             pad.up().sync();
         },
         {}},
        {"one that comes and goes between two synchronisations was never there",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).up().sync().down(2).sync(); },
         {"1.01 1:make(0.10,0.90)"}},
        {"one leaves, and another comes and goes, in one frame: the first is told",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).sync().up().down(2).up().sync(); },
         {"1.00 1:make(0.10,0.90)", "1.01 1:left(0.10,0.90)"}},
    });
}

TEST(ContactAssembler, ReportsOnlyWhatChangedAContact) {
    check({
        {"a synchronisation without events",
         padWithSlots(5),
         [](Pad& pad) { pad.sync().down(1).place(10, 10).sync().sync().sync(); },
         {"1.01 1:make(0.10,0.90)"}},
        {"values that are what they were",
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
        {"the size of a contact is part of it",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).sync();
             pad.absolute(ABS_MT_TOUCH_MAJOR, 5).sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.01 1:touch(0.10,0.90)"}},
        {"all contacts are in a report that one of them caused",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).slot(1).down(2).place(20, 20).sync();
             pad.place(30, 20).sync();
         },
         {"1.00 1:make(0.10,0.90) 2:make(0.20,0.80)",
          "1.01 1:touch(0.10,0.90) 2:touch(0.30,0.80)"}},
    });
}

TEST(ContactAssembler, PalmsAndHoveringFingersArePresentButDoNotTouch) {
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
        {"a palm from the start leaves as one",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).absolute(ABS_MT_TOOL_TYPE, MT_TOOL_PALM).place(10, 10).sync();
             pad.up().sync();
         },
         {"1.00 1:hover(0.10,0.90)", "1.01 1:left(0.10,0.90)"}},
        {"at a distance",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).absolute(ABS_MT_DISTANCE, 1).sync();
             pad.absolute(ABS_MT_DISTANCE, 0).sync();
         },
         {"1.00 1:hover(0.10,0.90)", "1.01 1:make(0.10,0.90)"}},
        {"without pressure, on a pad that reports pressure",
         pressurePad(),
         [](Pad& pad) {
             pad.down(1).place(10, 10).sync();
             pad.absolute(ABS_MT_PRESSURE, 1).sync();
             pad.absolute(ABS_MT_PRESSURE, 0).sync();
         },
         {"1.00 1:hover(0.10,0.90)", "1.01 1:make(0.10,0.90)", "1.02 1:hover(0.10,0.90)"}},
        {"a pad that reports no pressure is not asked for it",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).absolute(ABS_MT_PRESSURE, 0).sync(); },
         {"1.00 1:make(0.10,0.90)"}},
    });
}

TEST(ContactAssembler, ButtonsComeWithTheFrameTheyBelongTo) {
    check({
        {"each button, without a contact",
         padWithSlots(5),
         [](Pad& pad) {
             pad.key(BTN_LEFT, true).sync();
             pad.key(BTN_RIGHT, true).key(BTN_LEFT, false).sync();
             pad.key(BTN_MIDDLE, true).sync().sync();
         },
         {"button 0 down", "button 1 down", "button 0 up", "button 2 down"}},
        {"after the contacts of the same moment",
         padWithSlots(5),
         [](Pad& pad) { pad.key(BTN_LEFT, true).down(1).place(10, 10).sync(); },
         {"1.00 1:make(0.10,0.90)", "button 0 down"}},
        {"down and up in one frame",
         padWithSlots(5),
         [](Pad& pad) { pad.key(BTN_LEFT, true).key(BTN_LEFT, false).sync(); },
         {"button 0 down", "button 0 up"}},
        {"a chattering button: what came of it",
         padWithSlots(5),
         [](Pad& pad) {
             pad.key(BTN_LEFT, true).key(BTN_RIGHT, true);
             pad.key(BTN_LEFT, false).key(BTN_LEFT, true).sync();
         },
         {"button 0 down", "button 1 down"}},
        {"what it already is does not happen again",
         padWithSlots(5),
         [](Pad& pad) {
             pad.key(BTN_LEFT, false).sync();
             pad.key(BTN_LEFT, true).sync().key(BTN_LEFT, true).sync();
         },
         {"button 0 down"}},
        {"side buttons are no buttons of a touchpad",
         padWithSlots(5),
         [](Pad& pad) { pad.key(BTN_SIDE, true).key(BTN_TOUCH, true).sync(); },
         {}},
    });
}

TEST(ContactAssembler, LostEventsCountForNothingUntilTheNextSynchronisation) {
    check({
        {"a move, an end and a button are lost, what follows counts",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).sync();
             pad.event(EV_SYN, SYN_DROPPED, 0).place(90, 90).up().key(BTN_LEFT, true).sync();
             pad.place(20, 10).sync();
         },
         {"1.00 1:make(0.10,0.90)", "1.02 1:touch(0.20,0.90)"}},
        {"what came before the loss counts",
         padWithSlots(5),
         [](Pad& pad) {
             pad.down(1).place(10, 10).event(EV_SYN, SYN_DROPPED, 0).place(90, 90).sync();
         },
         {"1.00 1:make(0.10,0.90)"}},
    });
}

TEST(ContactAssembler, ReleasingEndsEverythingWithAnEmptyReport) {
    check({
        {"nothing was there", padWithSlots(5), [](Pad& pad) { pad.release(); }, {}},
        {"all have left before",
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
        {"a contact whose end was not yet told",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).sync().up().release().sync(); },
         {"1.00 1:make(0.10,0.90)", "1.01"}},
        {"a contact that nobody heard of",
         padWithSlots(5),
         [](Pad& pad) { pad.down(1).place(10, 10).release().sync(); },
         {}},
        {"afterwards slots hold nothing and identifiers go on",
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
