#include "key_log.h"
#include "kit/qt_waiting.h"
#include "kit/typist.h"
#include "ui/recorder/key_monitor.h"

#include <gmock/gmock.h>
#include <linux/input-event-codes.h>

#include <QShortcut>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

namespace glidemap {

namespace {

using test::Key;
using testing::ElementsAre;
using testing::IsEmpty;

const Key a{KEY_A, Qt::Key_A, "a"};
const Key b{KEY_B, Qt::Key_B, "b"};
const Key shift{KEY_LEFTSHIFT, Qt::Key_Shift};

class KeyMonitorTest : public testing::Test {
protected:
    KeyMonitorTest() {
        window.show();
        monitor->onPress = [this](const QKeyEvent& event) {
            taken.push_back(event.key());
        };
    }

    KeyLog window;
    test::Typist typist{window};
    std::vector<int> taken;
    std::unique_ptr<KeyMonitor> monitor = std::make_unique<KeyMonitor>();
};

TEST_F(KeyMonitorTest, WindowReceivesKeysUntilTheMonitorStarts) {
    typist.type(a);
    EXPECT_THAT(window.keys(), ElementsAre("+65", "-65"));
    EXPECT_THAT(taken, IsEmpty());
    EXPECT_FALSE(monitor->isInstalled());
}

TEST_F(KeyMonitorTest, WindowReceivesNoKeysWhileTheMonitorRuns) {
    monitor->start();
    typist.type(shift);
    typist.type(a);
    EXPECT_THAT(window.keys(), IsEmpty());
    EXPECT_THAT(taken, ElementsAre(Qt::Key_Shift, Qt::Key_A));
}

TEST_F(KeyMonitorTest, WindowReceivesNoRepeatOrReleaseOfACapturedPressAfterStop) {
    monitor->start();
    typist.press(a);
    monitor->stop();
    typist.repeat(a);
    typist.repeat(a);
    typist.release(a);
    EXPECT_THAT(window.keys(), IsEmpty());
    EXPECT_THAT(taken, ElementsAre(Qt::Key_A));
    EXPECT_FALSE(monitor->isInstalled());
    typist.type(a);
    EXPECT_THAT(window.keys(), ElementsAre("+65", "-65"));
}

TEST_F(KeyMonitorTest, WindowReceivesKeysPressedAfterStopWhileACapturedKeyIsHeld) {
    monitor->start();
    typist.press(a);
    monitor->stop();
    typist.type(b);
    EXPECT_THAT(window.keys(), ElementsAre("+66", "-66"));
    typist.release(a);
    EXPECT_THAT(window.keys(), IsEmpty());
}

TEST_F(KeyMonitorTest, WindowReceivesANewPressOfACapturedKeyWhoseReleaseWasLost) {
    monitor->start();
    typist.press(a);
    monitor->stop();
    typist.press(a); // a second press without a release: the release was lost
    typist.repeat(a);
    typist.release(a);
    EXPECT_THAT(window.keys(), ElementsAre("+65", "-65 again", "+65 again", "-65"));
    EXPECT_FALSE(monitor->isInstalled());
}

TEST_F(KeyMonitorTest, RepeatOfAKeyHeldBeforeStartIsNotReported) {
    typist.press(a);
    monitor->start();
    window.keys();
    typist.repeat(a);
    EXPECT_THAT(taken, IsEmpty());
    EXPECT_THAT(window.keys(), ElementsAre("-65 again"));
    typist.release(a);
    EXPECT_THAT(window.keys(), ElementsAre("-65"))
        << "the window received the press, so it receives the release";
}

TEST_F(KeyMonitorTest, HeldKeyIsReportedOnce) {
    monitor->start();
    typist.press(a);
    typist.repeat(a);
    typist.repeat(a);
    EXPECT_THAT(taken, ElementsAre(Qt::Key_A));
    EXPECT_THAT(window.keys(), IsEmpty());
}

TEST_F(KeyMonitorTest, KeyIsIdentifiedByItsScanCode) {
    monitor->start();
    typist.press({KEY_1, Qt::Key_Exclam, "!"});
    monitor->stop();
    typist.release({KEY_1, Qt::Key_1, "1"}); // Shift was released before 1
    EXPECT_THAT(window.keys(), IsEmpty());
    EXPECT_FALSE(monitor->isInstalled());
}

TEST_F(KeyMonitorTest, SyntheticKeysAreIdentifiedByTheirQtKey) {
    monitor->start();
    typist.press({0, Qt::Key_A, "a"});
    monitor->stop();
    typist.type({0, Qt::Key_B, "b"});
    EXPECT_THAT(window.keys(), ElementsAre("+66", "-66"));
    typist.release({0, Qt::Key_A, "a"});
    EXPECT_THAT(window.keys(), IsEmpty());
}

TEST_F(KeyMonitorTest, SecondStartIsIgnored) {
    monitor->start();
    monitor->start();
    typist.type(a);
    EXPECT_THAT(taken, ElementsAre(Qt::Key_A));
    monitor->stop();
    typist.type(b);
    EXPECT_THAT(taken, ElementsAre(Qt::Key_A));
    EXPECT_THAT(window.keys(), ElementsAre("+66", "-66"));
}

TEST_F(KeyMonitorTest, WindowReceivesTheReleaseOfACapturedPressAfterRemove) {
    monitor->start();
    typist.press(a);
    monitor->remove();
    EXPECT_FALSE(monitor->isInstalled());
    typist.release(a);
    EXPECT_THAT(window.keys(), ElementsAre("-65"));
}

TEST_F(KeyMonitorTest, DestroyedMonitorCapturesNothing) {
    monitor->start();
    typist.press(a);
    monitor.reset();
    typist.release(a);
    typist.type(b);
    EXPECT_THAT(window.keys(), ElementsAre("-65", "+66", "-66"));
}

// Sends the key through Qt's own input path, which queries shortcuts first.
TEST_F(KeyMonitorTest, NoShortcutIsTriggeredWhileTheMonitorRuns) {
    int setOff = 0;
    const QShortcut shortcut(QKeySequence("Ctrl+N"), &window, [&setOff] { ++setOff; });
    ASSERT_TRUE(test::waitForWindowActive(&window));
    monitor->start();
    QTest::keyClick(window.windowHandle(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(setOff, 0);
    EXPECT_THAT(taken, testing::Contains(Qt::Key_N));
    monitor->stop();
    QTest::keyClick(window.windowHandle(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(setOff, 1);
}

} // namespace

} // namespace glidemap
