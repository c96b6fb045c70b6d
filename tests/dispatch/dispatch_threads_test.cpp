// Sends gestures from two threads and clicks from a third, while the main thread changes everything
// that they read. This test is meant for the thread sanitizer.

#include "dispatch/click_demand.h"
#include "dispatch/click_monitor.h"
#include "dispatch_stage.h"
#include "kit/fake_click_tap.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace glidemap::test {
namespace {

using enum GestureType;

constexpr int turns = 3'000;
constexpr int gestureThreads = 2;

const Application editor = {editorID, editorName};
const Application other = {"org.example.Other", "Other"};

// Returns one of the two lists between which the main thread alternates; `first` is 0 or 2. The key
// shows which application a binding is for: 1 and 3 (S, F) are for the editor, 0 and 2 (A, D) for
// all others.
BindingList bindings(std::uint16_t first) {
    const BindingScope inEditor = AppScope{editorID, editorName};
    const auto inEditorKey = static_cast<std::uint16_t>(first + 1);
    return {typing(first, twoFingerTap), typing(inEditorKey, twoFingerTap, inEditor),
            typing(first, twoFingerClick), typing(inEditorKey, twoFingerClick, inEditor)};
}

class DispatchThreadsTest : public testing::Test {
protected:
    DispatchThreadsTest() {
        monitor.onClickGesture = [this](GestureType gesture) {
            return stage.dispatcher->handleClickGesture(gesture);
        };
        monitor.start();
    }

    // Returns whether the entry's action is bound in the entry's application.
    static bool isConsistent(const GestureLogEntry& entry) {
        const bool isInEditor = entry.appName == editorName;
        return isInEditor
                   ? entry.matchedAction == "Shortcut S" || entry.matchedAction == "快捷键 S" ||
                         entry.matchedAction == "Shortcut F" || entry.matchedAction == "快捷键 F"
                   : entry.matchedAction == "Shortcut A" || entry.matchedAction == "快捷键 A" ||
                         entry.matchedAction == "Shortcut D" || entry.matchedAction == "快捷键 D";
    }

    void noteEntry() {
        const auto& entries = stage.dispatcher->recentEvents();
        if (!entries.empty() && entries.front().id != newest) {
            newest = entries.front().id;
            ++entriesSeen;
            inconsistent += isConsistent(entries.front()) ? 0 : 1;
        }
    }

    void gesture() { handled += stage.dispatcher->handle(twoFingerTap, true) ? 1 : 0; }

    void click() {
        const auto press = tap->offer({ClickEventType::leftMouseDown, 0});
        handled += press == ClickTap::Verdict::drop ? 1 : 0;
        unpaired += tap->offer({ClickEventType::leftMouseUp, 0}) == press ? 0 : 1;
    }

    void changeAllState(int turn) {
        stage.store->setBindings(bindings(turn % 2 == 0 ? 0 : 2));
        stage.workspace->setFrontmost(turn % 3 == 0 ? editor : other);
        stage.dispatcher->setMasterEnabled(turn % 5 != 0);
        stage.lang.setCode(turn % 7 == 0 ? "zh" : "en");
    }

    DispatchStage stage{bindings(0)};
    std::shared_ptr<FakeClickTap> tap = std::make_shared<FakeClickTap>();
    ClickMonitor monitor{tap, [] {
                             return 2;
                         }};
    std::atomic<int> handled = 0;
    std::atomic<int> unpaired = 0;
    std::atomic<int> threadsAtWork = 0;
    Uuid newest = Uuid::generate();
    int entriesSeen = 0;
    int inconsistent = 0;
};

TEST_F(DispatchThreadsTest, EveryAcceptedGestureRunsAndIsLoggedOnce) {
    const Subscription subscription =
        stage.dispatcher->changes().subscribe({}, [this] { noteEntry(); });
    std::vector<std::thread> threads;
    const auto work = [&](auto once) {
        ++threadsAtWork;
        threads.emplace_back([this, once] {
            for (int turn = 0; turn < turns; ++turn) {
                once();
            }
            --threadsAtWork;
        });
    };
    for (int count = 0; count < gestureThreads; ++count) {
        work([this] { gesture(); });
    }
    work([this] { click(); });

    // Waits for an accepted gesture. The first iteration of the loop below switches the master
    // switch off, and on a busy machine the threads could finish before a later iteration switches
    // it on again.
    while (handled == 0) {
        std::this_thread::yield();
    }
    for (int turn = 0; threadsAtWork > 0; ++turn) {
        changeAllState(turn);
        stage.mainQueue->runAll();
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    stage.mainQueue->runAll();

    EXPECT_EQ(stage.keyEvents->posts.size(), static_cast<std::size_t>(handled));
    EXPECT_EQ(entriesSeen, handled);
    EXPECT_EQ(inconsistent, 0);
    EXPECT_EQ(unpaired, 0);
}

TEST_F(DispatchThreadsTest, DispatcherMayBeDestroyedWhileItsWorkIsQueued) {
    stage.dispatcher->setMasterEnabled(true);
    std::thread engine([this] {
        const auto dispatcher = stage.dispatcher;
        for (int turn = 0; turn < turns; ++turn) {
            dispatcher->handle(twoFingerTap, true);
        }
    });
    stage.mainQueue->waitForOne();
    stage.mainQueue->runNext();
    engine.join();
    stage.dispatcher.reset();
    stage.mainQueue->runAll();
    EXPECT_EQ(stage.keyEvents->posts.size(), 1U);
}

} // namespace
} // namespace glidemap::test
