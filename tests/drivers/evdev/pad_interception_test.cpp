// Tests the interception of one touchpad, between its events and its clone, without threads.

#include "drivers/evdev/pad_interception.h"
#include "fake_pads.h"
#include "fake_time.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <functional>

namespace glidemap::test {
namespace {

using Texts = std::vector<std::string>;
using Events = std::vector<InputEvent>;

constexpr InputEvent fingerDown{1, EV_ABS, ABS_MT_TRACKING_ID, 5};
constexpr InputEvent fingerUp{1, EV_ABS, ABS_MT_TRACKING_ID, -1};
constexpr InputEvent leftDown{1, EV_KEY, BTN_LEFT, 1};
constexpr InputEvent leftUp{1, EV_KEY, BTN_LEFT, 0};
constexpr InputEvent rightDown{1, EV_KEY, BTN_RIGHT, 1};

class PadInterceptionTest : public testing::Test {
protected:
    PadInterceptionTest() { clicks.setFilter(&filter, this); }

    // Records `event,button` for each call.
    static bool filter(void* context, driver::Device device, std::int32_t event,
                       std::int32_t button) {
        auto& self = *static_cast<PadInterceptionTest*>(context);
        EXPECT_EQ(device, &self.device);
        self.asked.push_back(std::to_string(event) + "," + std::to_string(button));
        return self.answer ? self.answer(event) : true;
    }

    // Switches the filter, and advances the time until the clone is ready or removed.
    void switchOn(bool on = true) {
        clicks.switchOn(on);
        interception->settle();
        letPass(on ? std::chrono::nanoseconds(CloneIntroduction::readerGracePeriod)
                   : PadInterception::cloneRetention);
    }

    void letPass(std::chrono::nanoseconds time) {
        watchTime.advance(time);
        interception->settle();
    }

    // Sends frames, which the driver reads immediately.
    void say(const std::vector<Events>& frames, double time = 1) {
        for (const Events& frame : frames) {
            for (const InputEvent& event : frame) {
                interception->add(event);
            }
            interception->endFrame(time);
        }
        interception->settle();
    }

    // Reads the pending events of the stream as one frame, as the driver does.
    void readStream(double time = 1) {
        Events frame;
        InputEvent event;
        while (pad.next(event) == OpenPad::Read::event) {
            frame.push_back(event);
        }
        say({frame}, time);
    }

    const FakeSystem& system() const { return *stream->system(); }
    FakeSystem& system() { return *stream->system(); }

    int device = 0;
    Texts asked;
    std::function<bool(std::int32_t)> answer;
    FakeTime watchTime;
    std::atomic<int> wakes = 0;
    ClickInterception clicks{watchTime, [this] { ++wakes; },
                             [] {
                                 return std::make_unique<FakeCloneWatch>();
                             }};
    std::shared_ptr<FakeStream> stream = std::make_shared<FakeStream>();
    FakeOpenPad pad{stream};
    std::unique_ptr<PadInterception> interception =
        std::make_unique<PadInterception>(&device, pad, clicks);
};

TEST_F(PadInterceptionTest, DoesNotGrabWhileSwitchedOff) {
    say({{fingerDown}, {leftDown}, {leftUp}, {fingerUp}});
    EXPECT_EQ(system().journal(), Texts());
    EXPECT_EQ(asked, Texts());
}

TEST_F(PadInterceptionTest, DoesNotGrabWithoutAFilter) {
    clicks.setFilter(nullptr, nullptr);
    switchOn();
    EXPECT_EQ(system().journal(), Texts());
}

TEST_F(PadInterceptionTest, GrabsAndUngrabsAnUntouchedTouchpadImmediately) {
    switchOn();
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab"}));
    switchOn(false);
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "ungrab", "destroy"}));
    EXPECT_GE(wakes, 2);
}

TEST_F(PadInterceptionTest, RestingFingerOrHeldKeyDelaysTheGrabAndTheUngrab) {
    struct Row {
        const char* what;
        InputEvent hold;
        InputEvent release;
    };
    const Row rows[] = {
        {"a finger", fingerDown, fingerUp},
        {"a button", leftDown, leftUp},
        {"any key", {1, EV_KEY, KEY_CNT - 1, 1}, {1, EV_KEY, KEY_CNT - 1, 0}},
    };
    answer = [](std::int32_t) {
        return false;
    };
    for (const Row& row : rows) {
        const std::size_t before = system().journal().size();
        switchOn(false);
        say({{row.hold}});
        switchOn();
        EXPECT_FALSE(system().isGrabbed()) << row.what;
        say({{row.release}});
        EXPECT_TRUE(system().isGrabbed()) << row.what;
        say({{row.hold}});
        switchOn(false);
        EXPECT_TRUE(system().isGrabbed()) << row.what;
        say({{row.release}});
        EXPECT_FALSE(system().isGrabbed()) << row.what;
        letPass(PadInterception::cloneRetention);
        EXPECT_EQ(system().journal().size(), before + 6) << row.what;
    }
}

TEST_F(PadInterceptionTest, OmitsADroppedPressAndItsReleaseFromTheirFrames) {
    switchOn();
    say({{fingerDown}, {leftDown, {1, EV_ABS, ABS_MT_POSITION_X, 4}}, {leftUp}, {fingerUp}});
    EXPECT_EQ(system().journal(),
              (Texts{"clone", "grab", "3:57=5", "3:53=4 3:55=2", "3:55=0", "3:57=-1"}));
    EXPECT_EQ(asked, (Texts{"0,0", "1,0"}));
}

TEST_F(PadInterceptionTest, DroppedPressWithoutAFingerWritesNothing) {
    switchOn();
    say({{leftDown}, {leftUp}});
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab"}));
}

TEST_F(PadInterceptionTest, DroppedPressAndReleaseInOneFrameLeaveNoPalm) {
    switchOn();
    say({{fingerDown, leftDown}, {fingerUp, leftUp}, {fingerDown}});
    EXPECT_EQ(system().journal(),
              (Texts{"clone", "grab", "3:57=5 3:55=2", "3:57=-1 3:55=0", "3:57=5"}));
}

TEST_F(PadInterceptionTest, FingersStayPalmsUntilTheReleaseWhenSwitchedOffDuringADroppedPress) {
    switchOn();
    say({{fingerDown}, {leftDown}});
    switchOn(false);
    say({{leftUp}, {fingerUp}});
    letPass(PadInterception::cloneRetention);
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "3:57=5", "3:55=2", "1:272=0 3:55=0",
                                         "3:57=-1", "ungrab", "destroy"}));
}

// The contact was a palm until it lifted, so programs do not recognise a tap.
TEST_F(PadInterceptionTest, EndingTheInterceptionLiftsPalmsDuringADroppedPress) {
    switchOn();
    say({{fingerDown}, {leftDown}});
    interception->end();
    EXPECT_EQ(system().journal(),
              (Texts{"clone", "grab", "3:57=5", "3:55=2", "3:57=-1", "ungrab", "destroy"}));
}

TEST_F(PadInterceptionTest, ForwardsButtonChangesThatTheFilterAllows) {
    answer = [](std::int32_t) {
        return false;
    };
    switchOn();
    say({{fingerDown, leftDown}, {leftUp}, {rightDown}});
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "3:57=5 1:272=1", "1:272=0", "1:273=1"}));
    EXPECT_EQ(asked, (Texts{"0,0", "1,0", "0,1"}));
}

TEST_F(PadInterceptionTest, MiddleButtonIsNotFiltered) {
    switchOn();
    say({{{1, EV_KEY, BTN_MIDDLE, 1}}, {{1, EV_KEY, BTN_MIDDLE, 0}}});
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "1:274=1", "1:274=0"}));
    EXPECT_EQ(asked, Texts());
}

TEST_F(PadInterceptionTest, CallsTheFilterForEachButtonChangeWithinAFrame) {
    switchOn();
    answer = [this](std::int32_t) {
        return asked.size() <= 2;
    };
    say({{leftDown, leftUp, leftDown, leftUp}});
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "1:272=1 1:272=0"}));
    EXPECT_EQ(asked, (Texts{"0,0", "1,0", "0,0", "1,0"}));
}

TEST_F(PadInterceptionTest, DoesNotCallTheFilterForARepeatedButtonState) {
    switchOn();
    say({{leftUp}, {leftDown}, {leftDown}});
    EXPECT_EQ(asked, (Texts{"0,0"}));
}

TEST_F(PadInterceptionTest, NeverDropsTheReleaseOfAForwardedPress) {
    switchOn();
    answer = [](std::int32_t event) {
        return event == driver::clickFilterButtonUp;
    };
    say({{leftDown}, {leftUp}, {leftDown, leftUp}});
    EXPECT_EQ(system().journal(),
              (Texts{"clone", "grab", "1:272=1", "1:272=0", "1:272=1 1:272=0"}));
}

TEST_F(PadInterceptionTest, ForwardsClicksUnfilteredWhenSwitchedOffDuringATouch) {
    switchOn();
    say({{fingerDown}});
    switchOn(false);
    say({{leftDown}, {leftUp}});
    EXPECT_EQ(asked, Texts());
    say({{fingerUp}});
    letPass(PadInterception::cloneRetention);
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "3:57=5", "1:272=1", "1:272=0", "3:57=-1",
                                         "ungrab", "destroy"}));
}

TEST_F(PadInterceptionTest, KeepsForwardingWhenSwitchedOffAndOnDuringATouch) {
    switchOn();
    say({{fingerDown}});
    switchOn(false);
    switchOn();
    say({{fingerUp}});
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "3:57=5", "3:57=-1"}));
}

TEST_F(PadInterceptionTest, EventsForAMissingSlotAreNotForwarded) {
    constexpr std::int32_t slotCount = 5; // as in FakeOpenPad
    for (const std::int32_t missing : {-1, slotCount, slotCount + 1}) {
        const std::size_t before = system().journal().size();
        switchOn();
        say({{fingerDown},
             {{1, EV_ABS, ABS_MT_SLOT, missing}, {1, EV_ABS, ABS_MT_POSITION_X, 7}},
             {{1, EV_ABS, ABS_MT_POSITION_X, 8}, {1, EV_ABS, ABS_MT_TRACKING_ID, 6}},
             {{1, EV_ABS, ABS_MT_SLOT, slotCount - 1}, {1, EV_ABS, ABS_MT_TRACKING_ID, 7}},
             {{1, EV_ABS, ABS_MT_TRACKING_ID, -1}, {1, EV_ABS, ABS_MT_SLOT, 0}, fingerUp}});
        switchOn(false);
        const Texts journal = system().journal();
        EXPECT_EQ(Texts(journal.begin() + static_cast<std::ptrdiff_t>(before), journal.end()),
                  (Texts{"clone", "grab", "3:57=5", "3:47=4 3:57=7", "3:57=-1 3:47=0 3:57=-1",
                         "ungrab", "destroy"}))
            << missing;
    }
}

// The finger landed after the last read and before the attempt to grab, so other programs have
// already received its events.
TEST_F(PadInterceptionTest, DoesNotGrabWhileATouchIsUnread) {
    stream->send({fingerDown});
    switchOn();
    EXPECT_EQ(system().journal(), Texts{"clone"});
    EXPECT_EQ(interception->obstacle(), nullptr);
    readStream();
    EXPECT_EQ(system().journal(), Texts{"clone"});
    stream->send({fingerUp});
    readStream();
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab"}));
}

// The finger landed between the last read and the ungrab, so other programs have not received its
// events.
TEST_F(PadInterceptionTest, DoesNotUngrabWhileATouchIsUnread) {
    switchOn();
    stream->send({fingerDown});
    switchOn(false);
    readStream();
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "3:57=5"}));
    stream->send({fingerUp});
    readStream();
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "3:57=5", "3:57=-1", "ungrab"}));
    letPass(PadInterception::cloneRetention);
    EXPECT_EQ(system().journal(),
              (Texts{"clone", "grab", "3:57=5", "3:57=-1", "ungrab", "destroy"}));
}

// A pad that cannot look whether other programs have received events grabs a touchpad although a
// finger has just landed.
TEST_F(PadInterceptionTest, TouchThatBeganBeforeTheGrabIsNotForwarded) {
    system().setTime(10);
    switchOn();
    say({{fingerDown}}, 9.999);
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "ungrab"}));
    say({{leftDown}, {leftUp}, {fingerUp}}, 10.5);
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "ungrab", "grab"}));
    EXPECT_EQ(asked, Texts());
}

TEST_F(PadInterceptionTest, TouchThatBeganAtTheGrabIsForwarded) {
    system().setTime(10);
    switchOn();
    say({{fingerDown}}, 10);
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "3:57=5"}));
}

TEST_F(PadInterceptionTest, TapBeforeTheGrabIsNotForwarded) {
    system().setTime(10);
    switchOn();
    say({{fingerDown, fingerUp}}, 9);
    say({{fingerDown}}, 11);
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "3:57=5"}));
}

TEST_F(PadInterceptionTest, RetriesFailedCloneCreationOnlyWhenSwitchedOnAgain) {
    system().allowClones(false);
    switchOn();
    say({{fingerDown}, {leftDown}, {leftUp}, {fingerUp}});
    system().allowClones(true);
    say({{fingerDown}, {fingerUp}});
    EXPECT_EQ(system().journal(), Texts());
    EXPECT_EQ(asked, Texts());
    switchOn();
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab"}));
}

TEST_F(PadInterceptionTest, RetriesAFailedGrabWheneverTheTouchpadBecomesNeutral) {
    system().setGrabbedByOthers(true);
    switchOn();
    say({{fingerDown}, {leftDown}, {leftUp}, {fingerUp}});
    EXPECT_EQ(system().journal(), (Texts{"clone"}));
    system().setGrabbedByOthers(false);
    say({{fingerDown}});
    EXPECT_FALSE(system().isGrabbed());
    say({{fingerUp}});
    EXPECT_TRUE(system().isGrabbed());
    EXPECT_EQ(asked, Texts());
}

TEST_F(PadInterceptionTest, FailedCloneWriteUngrabsTheTouchpadImmediately) {
    switchOn();
    say({{fingerDown}});
    system().breakClone();
    say({{{1, EV_ABS, ABS_MT_POSITION_X, 4}}});
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "3:57=5", "ungrab", "destroy"}));
    say({{fingerUp}});
    EXPECT_FALSE(system().isGrabbed());
    switchOn();
    EXPECT_TRUE(system().isGrabbed());
}

TEST_F(PadInterceptionTest, EndingTheInterceptionLiftsFingersAndReleasesButtons) {
    answer = [](std::int32_t) {
        return false;
    };
    switchOn();
    say({{fingerDown, leftDown}});
    interception->end();
    EXPECT_EQ(system().journal(),
              (Texts{"clone", "grab", "3:57=5 1:272=1", "3:57=-1 1:272=0", "ungrab", "destroy"}));
    say({{leftUp}, {fingerUp}});
    switchOn();
    EXPECT_FALSE(system().isGrabbed()) << "end() was called";
}

TEST_F(PadInterceptionTest, LosingTheTouchpadEndsTouchesAndButtonPresses) {
    switchOn();
    say({{fingerDown}, {leftDown}});
    interception->disconnect();
    EXPECT_EQ(asked, (Texts{"0,0", "1,0"}));
    EXPECT_EQ(system().journal(),
              (Texts{"clone", "grab", "3:57=5", "3:55=2", "3:57=-1", "ungrab", "destroy"}));
}

TEST_F(PadInterceptionTest, DestructorUngrabsTheTouchpad) {
    switchOn();
    interception.reset();
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "ungrab", "destroy"}));
}

TEST_F(PadInterceptionTest, FilterMayEndTheInterceptionDuringItsCall) {
    switchOn();
    answer = [this](std::int32_t) {
        interception->end();
        return true;
    };
    say({{fingerDown, leftDown, rightDown}});
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "ungrab", "destroy"}));
    EXPECT_EQ(asked, (Texts{"0,0"}));
}

TEST_F(PadInterceptionTest, FilterMaySwitchItselfOffDuringItsCall) {
    switchOn();
    answer = [this](std::int32_t) {
        clicks.switchOn(false);
        return true;
    };
    say({{fingerDown, leftDown}, {leftUp}, {fingerUp}});
    letPass(PadInterception::cloneRetention);
    EXPECT_EQ(asked, (Texts{"0,0"}));
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "3:57=5 3:55=2", "1:272=0 3:55=0",
                                         "3:57=-1", "ungrab", "destroy"}));
}

TEST_F(PadInterceptionTest, TouchpadWithoutButtonsIsNotGrabbed) {
    stream->hasButtons = false;
    switchOn();
    say({{fingerDown}, {fingerUp}});
    EXPECT_EQ(system().journal(), Texts());
}

TEST_F(PadInterceptionTest, DoesNotGrabWhileNoProgramCanReadTheClone) {
    struct Row {
        CloneStanding standing;
        const char* obstacle;
    };
    const Row rows[] = {
        {{false, false, std::nullopt},
         "the kernel has made no event node for the touchpad's clone"},
        {{true, false, true}, "udev has not announced the touchpad's clone as a touchpad"},
        {{true, true, false}, "no program has opened the touchpad's clone"},
    };
    for (const Row& row : rows) {
        const std::size_t before = system().journal().size();
        system().setStanding(row.standing);
        switchOn();
        letPass(CloneIntroduction::patience - CloneIntroduction::readerGracePeriod -
                std::chrono::nanoseconds(1));
        EXPECT_EQ(system().journal().size(), before + 1) << row.obstacle;
        EXPECT_TRUE(interception->isIntroducing());
        letPass(std::chrono::nanoseconds(1));
        const Texts journal = system().journal();
        EXPECT_EQ(Texts(journal.begin() + static_cast<std::ptrdiff_t>(before), journal.end()),
                  (Texts{"clone", "destroy"}));
        EXPECT_STREQ(interception->obstacle(), row.obstacle);
        EXPECT_FALSE(interception->nextLook().has_value());
        EXPECT_EQ(clicks.cloneWatch(), nullptr) << "no clone is left to watch";
        say({{fingerDown}, {leftDown}, {leftUp}, {fingerUp}});
    }
    EXPECT_EQ(asked, Texts());
}

TEST_F(PadInterceptionTest, GrabsAfterTheGracePeriodWhenTheCloneIsOpenedLate) {
    system().setStanding({true, false, false});
    switchOn();
    letPass(std::chrono::seconds(1));
    system().setStanding({true, true, false});
    letPass(std::chrono::milliseconds(500));
    system().setStanding({true, true, true});
    letPass(std::chrono::nanoseconds(0));
    letPass(CloneIntroduction::readerGracePeriod - std::chrono::nanoseconds(1));
    EXPECT_FALSE(system().isGrabbed());
    letPass(std::chrono::nanoseconds(1));
    EXPECT_TRUE(system().isGrabbed());
    EXPECT_EQ(interception->obstacle(), nullptr);
}

TEST_F(PadInterceptionTest, ReaderThatClosesTheCloneRestartsTheGracePeriod) {
    system().setStanding({true, true, true});
    clicks.switchOn(true);
    interception->settle();
    letPass(CloneIntroduction::readerGracePeriod / 2);
    system().setStanding({true, true, false});
    letPass(CloneIntroduction::readerGracePeriod);
    system().setStanding({true, true, true});
    letPass(std::chrono::nanoseconds(0));
    EXPECT_FALSE(system().isGrabbed());
    letPass(CloneIntroduction::readerGracePeriod);
    EXPECT_TRUE(system().isGrabbed());
}

TEST_F(PadInterceptionTest, GracePeriodIsLongerIfTheSystemDoesNotReportReaders) {
    system().setStanding({true, true, std::nullopt});
    switchOn();
    letPass(CloneIntroduction::unknownReaderGracePeriod - CloneIntroduction::readerGracePeriod -
            std::chrono::nanoseconds(1));
    EXPECT_FALSE(system().isGrabbed());
    letPass(std::chrono::nanoseconds(1));
    EXPECT_TRUE(system().isGrabbed());
}

// The interception retries when the touchpad is used, not on a timer, because an unused touchpad
// needs no clone.
TEST_F(PadInterceptionTest, RetriesAnUnreadCloneAfterPausesThatDoubleUpToTenMinutes) {
    system().setStanding({true, true, false});
    switchOn();
    letPass(CloneIntroduction::patience);
    const auto tries = [&] {
        return std::ranges::count(system().journal(), "clone");
    };
    for (const int seconds : {1, 2, 4, 8, 16, 32, 64, 128, 256, 512, 600, 600}) {
        const std::chrono::seconds pause(seconds);
        const auto before = tries();
        letPass(pause - std::chrono::nanoseconds(1));
        EXPECT_EQ(tries(), before);
        letPass(std::chrono::nanoseconds(1));
        EXPECT_EQ(tries(), before + 1);
        letPass(CloneIntroduction::patience);
    }
    system().setStanding({true, true, true});
    switchOn();
    EXPECT_TRUE(system().isGrabbed()) << "switching on again must not wait for the pause";
}

TEST_F(PadInterceptionTest, ReusesTheRetainedCloneWhenSwitchedOnAgain) {
    switchOn();
    clicks.switchOn(false);
    interception->settle();
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "ungrab"}));
    letPass(PadInterception::cloneRetention - std::chrono::nanoseconds(1));
    clicks.switchOn(true);
    interception->settle();
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "ungrab", "grab"}));
    EXPECT_FALSE(interception->nextLook().has_value());
}

// The finger landed between the last read and the ungrab, so other programs have not received its
// events.
TEST_F(PadInterceptionTest, TouchThatBeganBeforeTheUngrabIsForwarded) {
    system().setTime(10);
    switchOn();
    system().setTime(20);
    clicks.switchOn(false);
    interception->settle();
    EXPECT_FALSE(system().isGrabbed());
    say({{fingerDown}}, 19.999);
    EXPECT_TRUE(system().isGrabbed());
    say({{leftDown}, {leftUp}, {fingerUp}}, 20.5);
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "ungrab", "grab", "3:57=5", "1:272=1",
                                         "1:272=0", "3:57=-1", "ungrab"}));
}

TEST_F(PadInterceptionTest, TouchThatBeganAfterTheUngrabIsNotForwarded) {
    system().setTime(10);
    switchOn();
    system().setTime(20);
    clicks.switchOn(false);
    interception->settle();
    say({{fingerDown}}, 20);
    say({{fingerUp}}, 21);
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "ungrab"}));
}

TEST_F(PadInterceptionTest, TouchThatBeganBeforeTheUngrabIsForwardedAfterANewGrab) {
    system().setTime(10);
    switchOn();
    system().setTime(20);
    clicks.switchOn(false);
    interception->settle();
    system().setTime(21);
    clicks.switchOn(true);
    interception->settle();
    say({{fingerDown}}, 19.999);
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "ungrab", "grab", "3:57=5"}));
}

// The watchdog is paused before a signal such as SIGTSTP stops the process. A stopped process could
// neither grab the touchpad nor remove a new clone.
TEST_F(PadInterceptionTest, CreatesNoCloneWhileTheWatchdogIsPaused) {
    switchOn();
    clicks.watchdog().pause();
    letPass(CloneIntroduction::readerGracePeriod);
    say({{fingerDown}, {fingerUp}});
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "ungrab", "destroy"}));
    EXPECT_EQ(asked, Texts());

    clicks.watchdog().resume();
    EXPECT_TRUE(clicks.noticeStall());
    EXPECT_EQ(asked, (Texts{std::to_string(driver::clickFilterDisabledByTimeout) + ",0"}));
    switchOn();
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "ungrab", "destroy", "clone", "grab"}));
}

TEST_F(PadInterceptionTest, HangingFilterStopsForwardingUntilItIsSwitchedOnAgain) {
    switchOn();
    bool switchesOn = false;
    answer = [&](std::int32_t event) {
        if (event == driver::clickFilterButtonDown) {
            clicks.watchdog().work();
            EXPECT_TRUE(watchTime.waitUntilWaitingFor(std::chrono::seconds(1)));
            watchTime.advance(std::chrono::seconds(1));
            EXPECT_TRUE(system().waitUntilGrabbed(false));
        } else if (event == driver::clickFilterDisabledByTimeout && switchesOn) {
            clicks.switchOn(true);
        }
        return true;
    };
    say({{fingerDown}, {leftDown}, {{1, EV_ABS, ABS_MT_POSITION_X, 4}}});
    const Texts stalled{"clone", "grab", "3:57=5", "ungrab", "destroy"};
    EXPECT_EQ(system().journal(), stalled);
    EXPECT_EQ(asked, (Texts{"0,0", "2,0"}));
    say({{leftUp}, {fingerUp}});
    EXPECT_EQ(system().journal(), stalled);

    switchesOn = true;
    switchOn();
    say({{fingerDown}, {leftDown}});
    say({{leftUp}});
    EXPECT_FALSE(system().isGrabbed());
    say({{fingerUp}});
    letPass(CloneIntroduction::readerGracePeriod);
    EXPECT_TRUE(system().isGrabbed());
    EXPECT_EQ(asked, (Texts{"0,0", "2,0", "0,0", "2,0"}));
}

} // namespace
} // namespace glidemap::test
