#include "bindings/spoken_shortcut.h"
#include "key_log.h"
#include "kit/find_widget.h"
#include "kit/larger_letters.h"
#include "kit/qt_waiting.h"
#include "kit/typist.h"
#include "platform/linux/keyboard/evdev_hardware_keys.h"
#include "platform/linux/keyboard/key_codes.h"
#include "ui/recorder/shortcut_recorder_view.h"
#include "ui/recorder/toolkit_key_presses.h"
#include "ui/theme/style/paint.h"
#include "ui/theme/theme.h"

#include <gmock/gmock.h>
#include <linux/input-event-codes.h>

#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <initializer_list>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

void PrintTo(const KeyShortcut& shortcut, std::ostream* stream) {
    *stream << "key " << shortcut.keyCode << " with " << std::hex << shortcut.modifiers << std::dec;
}

namespace {

using test::Key;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t capsLockOn = 0x2;
constexpr std::uint32_t numLockOn = 0x10;

const Key a{KEY_A, Qt::Key_A, "a"};
const Key escape{KEY_ESC, Qt::Key_Escape};
const Key returnKey{KEY_ENTER, Qt::Key_Return, "\r"};
const Key space{KEY_SPACE, Qt::Key_Space, " "};
const KeyShortcut before{.keyCode = 124, .modifiers = modifier::option | modifier::command};

struct Held {
    const char* what;
    Qt::KeyboardModifiers modifiers;
    std::uint32_t native;
    std::uint64_t stored;
};

class ShortcutRecorderViewTest : public testing::Test {
protected:
    ShortcutRecorderViewTest() {
        Theme::shared().applyTo(*qApp);
        recorder = new ShortcutRecorderView(keys, lang);
        auto* column = new QVBoxLayout(&window);
        column->addWidget(recorder);
        recorder->onRecord = [this](const KeyShortcut& shortcut) {
            recorded.push_back(shortcut);
        };
        window.show();
        button().setFocus();
        EXPECT_TRUE(test::waitForWindowActive(&window));
    }

    QPushButton& button() const { return test::find<QPushButton>(window, "recordShortcut"); }
    void click() const { QTest::mouseClick(&button(), Qt::LeftButton); }

    // Checks that the key is recorded with the modifiers' stored bits, and does not reach the
    // window.
    void expectRecorded(const Key& key, std::uint16_t keyCode, std::initializer_list<Held> rows) {
        for (const Held& held : rows) {
            recorded.clear();
            click();
            typist.modifiers = held.modifiers;
            typist.nativeModifiers = held.native;
            typist.type(key);
            EXPECT_THAT(recorded,
                        ElementsAre(KeyShortcut{.keyCode = keyCode, .modifiers = held.stored}))
                << held.what;
            EXPECT_THAT(window.keys(), IsEmpty()) << held.what;
        }
    }

    const std::shared_ptr<KeyPresses> keys =
        std::make_shared<ToolkitKeyPresses>(std::make_unique<EvdevHardwareKeys>());
    Lang lang{nullptr};
    KeyLog window;
    ShortcutRecorderView* recorder;
    test::Typist typist{window};
    std::vector<KeyShortcut> recorded;
};

TEST_F(ShortcutRecorderViewTest, ClickStartsRecordingAndTheNextKeyIsTheShortcut) {
    EXPECT_FALSE(recorder->isRecording());
    click();
    EXPECT_TRUE(recorder->isRecording());
    typist.type(a);
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_THAT(recorded, ElementsAre(KeyShortcut{.keyCode = 0, .modifiers = 0}));
    EXPECT_EQ(recorder->shortcut(), recorded.front());
    EXPECT_THAT(window.keys(), IsEmpty());
}

TEST_F(ShortcutRecorderViewTest, RecordsOnlyOneKey) {
    click();
    typist.type(a);
    typist.type(escape);
    EXPECT_EQ(recorded.size(), 1U);
    EXPECT_EQ(window.keys().size(), 2U) << "the window receives the second key";
}

TEST_F(ShortcutRecorderViewTest, RecordsNothingBeforeStart) {
    typist.type(a);
    EXPECT_THAT(recorded, IsEmpty());
    EXPECT_EQ(recorder->shortcut(), std::nullopt);
}

TEST_F(ShortcutRecorderViewTest, OnlyTheHeldModifiersAreStored) {
    expectRecorded(
        a, 0,
        {
            {"none", Qt::NoModifier, 0, 0},
            {"Shift", Qt::ShiftModifier, 0x1, 0x20000},
            {"Control", Qt::ControlModifier, 0x4, 0x40000},
            {"Alt is Option", Qt::AltModifier, 0x8, 0x80000},
            {"Super is Command", Qt::MetaModifier, 0x40, 0x100000},
            {"all four",
             Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier, 0x4D,
             0x1E0000},
            {"Caps Lock on", Qt::NoModifier, capsLockOn, 0},
            {"Caps Lock and Num Lock on, Alt held", Qt::AltModifier, capsLockOn | numLockOn | 0x8,
             0x80000},
            {"on the keypad", Qt::KeypadModifier | Qt::ShiftModifier, 0x1, 0x20000},
        });
}

TEST_F(ShortcutRecorderViewTest, AcceptsAnyKeyEvenWithoutModifiers) {
    struct Row {
        const char* what;
        Key key;
        std::uint16_t keyCode;
    };
    const Row rows[] = {
        {"a letter", a, 0},
        {"Return", returnKey, 36},
        {"Tab", {KEY_TAB, Qt::Key_Tab, "\t"}, 48},
        {"Shift and Tab, which Qt calls otherwise", {KEY_TAB, Qt::Key_Backtab}, 48},
        {"Space", space, 49},
        {"Backspace", {KEY_BACKSPACE, Qt::Key_Backspace, "\b"}, 51},
        {"an arrow", {KEY_LEFT, Qt::Key_Left}, 123},
        {"the first function key", {KEY_F1, Qt::Key_F1}, 122},
        {"a function key that few keyboards have", {KEY_F20, Qt::Key_F20}, 90},
        {"Enter on the keypad", {KEY_KPENTER, Qt::Key_Enter, "\r"}, 76},
        {"a digit on the keypad", {KEY_KP7, Qt::Key_7, "7"}, 89},
        {"clear on the keypad", {KEY_NUMLOCK, Qt::Key_NumLock}, 71},
        {"the key that ISO keyboards have more", {KEY_102ND, Qt::Key_Less, "<"}, 10},
        {"a dead key", {KEY_GRAVE, Qt::Key_Dead_Circumflex}, 50},
        {"a letter of another script", {KEY_Q, 0x439, "й"}, 12},
    };
    for (const Row& row : rows) {
        recorded.clear();
        click();
        typist.type(row.key);
        EXPECT_THAT(recorded, ElementsAre(KeyShortcut{.keyCode = row.keyCode, .modifiers = 0}))
            << row.what;
        EXPECT_THAT(window.keys(), IsEmpty()) << row.what;
    }
}

TEST_F(ShortcutRecorderViewTest, EscapeAloneCancelsAndKeepsTheShortcut) {
    recorder->setShortcut(before);
    click();
    typist.type(escape);
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_THAT(recorded, IsEmpty());
    EXPECT_EQ(recorder->shortcut(), before);
    EXPECT_THAT(window.keys(), IsEmpty()) << "nor does it close the sheet";
}

TEST_F(ShortcutRecorderViewTest, EscapeWithAModifierIsRecorded) {
    expectRecorded(escape, 53,
                   {
                       {"Shift", Qt::ShiftModifier, 0x1, 0x20000},
                       {"Command", Qt::MetaModifier, 0x40, 0x100000},
                       {"Caps Lock on", Qt::NoModifier, capsLockOn, 0},
                       {"Caps Lock and Num Lock on", Qt::NoModifier, capsLockOn | numLockOn, 0},
                       {"Caps Lock on and Shift", Qt::ShiftModifier, capsLockOn | 0x1, 0x20000},
                   });
}

TEST_F(ShortcutRecorderViewTest, EscapeCancelsEvenWithNumLockOn) {
    click();
    typist.nativeModifiers = numLockOn;
    typist.type(escape);
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_THAT(recorded, IsEmpty());
}

TEST_F(ShortcutRecorderViewTest, ModifierKeysAloneRecordNothing) {
    const Key modifierKeys[] = {
        {KEY_LEFTSHIFT, Qt::Key_Shift},   {KEY_RIGHTSHIFT, Qt::Key_Shift},
        {KEY_LEFTCTRL, Qt::Key_Control},  {KEY_RIGHTCTRL, Qt::Key_Control},
        {KEY_LEFTALT, Qt::Key_Alt},       {KEY_RIGHTALT, Qt::Key_AltGr},
        {KEY_LEFTMETA, Qt::Key_Meta},     {KEY_RIGHTMETA, Qt::Key_Super_R},
        {KEY_CAPSLOCK, Qt::Key_CapsLock}, {KEY_FN, Qt::Key_unknown},
        {KEY_LEFTALT, Qt::Key_Meta},      {KEY_CAPSLOCK, Qt::Key_Control},
        {KEY_BACKSLASH, Qt::Key_AltGr}, // some layouts have a modifier on this key
    };
    click();
    for (const Key& key : modifierKeys) {
        typist.type(key);
        EXPECT_TRUE(recorder->isRecording()) << key.kernelCode;
        EXPECT_THAT(recorded, IsEmpty()) << key.kernelCode;
        EXPECT_THAT(window.keys(), IsEmpty()) << key.kernelCode;
    }
    typist.modifiers = Qt::ControlModifier;
    typist.type(a);
    EXPECT_THAT(recorded, ElementsAre(KeyShortcut{.keyCode = 0, .modifiers = 0x40000}));
}

TEST_F(ShortcutRecorderViewTest, KeyWithoutAVirtualKeyCodeIsSwallowedAndTheNextKeyIsRecorded) {
    click();
    typist.type({KEY_PLAYPAUSE, Qt::Key_MediaTogglePlayPause});
    typist.type({0, Qt::Key_A, "a"});
    EXPECT_TRUE(recorder->isRecording());
    EXPECT_THAT(recorded, IsEmpty());
    EXPECT_THAT(window.keys(), IsEmpty());
    EXPECT_EQ(recorder->findChild<QPushButton*>()->text(), "This key cannot be used (⎋ to cancel)");
    typist.type(a);
    EXPECT_THAT(recorded, ElementsAre(KeyShortcut{.keyCode = 0, .modifiers = 0}));
}

TEST_F(ShortcutRecorderViewTest, EveryKeyIsRecordedExceptModifiers) {
    for (const KeyCodePair& pair : keyCodePairs()) {
        if (pair.keyCode >= 54 && pair.keyCode <= 63) {
            continue;
        }
        recorded.clear();
        click();
        typist.modifiers = Qt::ControlModifier;
        typist.type({pair.kernelCode, Qt::Key_unknown});
        EXPECT_THAT(recorded,
                    ElementsAre(KeyShortcut{.keyCode = pair.keyCode, .modifiers = 0x40000}));
    }
}

TEST_F(ShortcutRecorderViewTest, SpaceStartsTheRecordingWithoutBeingRecorded) {
    typist.press(space);
    typist.repeat(space);
    typist.release(space);
    EXPECT_TRUE(recorder->isRecording());
    EXPECT_THAT(recorded, IsEmpty());
    typist.type(space);
    EXPECT_THAT(recorded, ElementsAre(KeyShortcut{.keyCode = 49, .modifiers = 0}));
}

TEST_F(ShortcutRecorderViewTest, RecordedSpaceDoesNotRestartTheRecording) {
    click();
    typist.press(space);
    typist.repeat(space);
    typist.release(space);
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_EQ(recorded.size(), 1U);
}

TEST_F(ShortcutRecorderViewTest, KeyHeldBeforeStartIsNotRecorded) {
    typist.press(returnKey);
    recorder->startRecording();
    typist.repeat(returnKey);
    typist.repeat(returnKey);
    EXPECT_TRUE(recorder->isRecording());
    EXPECT_THAT(recorded, IsEmpty());
    typist.release(returnKey);
    typist.type(returnKey);
    EXPECT_THAT(recorded, ElementsAre(KeyShortcut{.keyCode = 36, .modifiers = 0}));
}

TEST_F(ShortcutRecorderViewTest, HeldReturnOrEscapeDoesNotReachTheSheetWhenTheRecordingEnds) {
    for (const Key& key : {returnKey, escape}) {
        click();
        typist.press(key);
        typist.repeat(key);
        typist.repeat(key);
        typist.release(key);
        EXPECT_FALSE(recorder->isRecording());
        EXPECT_THAT(window.keys(), IsEmpty()) << key.meaning;
    }
}

TEST_F(ShortcutRecorderViewTest, ButtonStopsTheRecordingAndKeepsTheShortcut) {
    recorder->setShortcut(before);
    click();
    click();
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_EQ(recorder->shortcut(), before);
    typist.type(a);
    EXPECT_THAT(recorded, IsEmpty());
    EXPECT_EQ(window.keys().size(), 2U);
}

TEST_F(ShortcutRecorderViewTest, SecondStartIsIgnored) {
    recorder->startRecording();
    recorder->startRecording();
    typist.type(a);
    EXPECT_EQ(recorded.size(), 1U);
    typist.type(a);
    EXPECT_EQ(recorded.size(), 1U);
    EXPECT_EQ(window.keys().size(), 2U);
}

TEST_F(ShortcutRecorderViewTest, StopIsIgnoredWhileIdle) {
    recorder->setShortcut(before);
    recorder->stopRecording();
    EXPECT_EQ(recorder->shortcut(), before);
    typist.type(a);
    EXPECT_EQ(window.keys().size(), 2U);
}

TEST_F(ShortcutRecorderViewTest, HidingRemovesTheMonitor) {
    click();
    recorder->hide();
    EXPECT_FALSE(recorder->isRecording());
    typist.type(a);
    EXPECT_THAT(recorded, IsEmpty());
    EXPECT_EQ(window.keys().size(), 2U);
    recorder->show();
    EXPECT_FALSE(recorder->isRecording());
}

TEST_F(ShortcutRecorderViewTest, WindowReceivesTheReleaseOfACapturedPressAfterTheRecorderIsHidden) {
    click();
    typist.press(a);
    recorder->hide();
    typist.release(a);
    EXPECT_EQ(window.keys().size(), 1U);
}

TEST_F(ShortcutRecorderViewTest, DestructionRemovesTheMonitor) {
    click();
    delete recorder;
    typist.type(a);
    EXPECT_THAT(recorded, IsEmpty());
    EXPECT_EQ(window.keys().size(), 2U);
}

TEST_F(ShortcutRecorderViewTest, DisablingStopsTheRecording) {
    click();
    recorder->setEnabled(false);
    EXPECT_FALSE(recorder->isRecording());
    typist.type(a);
    EXPECT_THAT(recorded, IsEmpty());
}

TEST_F(ShortcutRecorderViewTest, CapturesAKeyPressInAnyWindowOfTheProgram) {
    KeyLog other;
    other.show();
    click();
    test::Typist(other).type(a);
    EXPECT_EQ(recorded.size(), 1U);
    EXPECT_THAT(other.keys(), IsEmpty());
}

TEST_F(ShortcutRecorderViewTest, TextsFollowTheLanguageImmediately) {
    const auto expectTexts = [&](const char* labelText, const char* buttonText) {
        EXPECT_EQ(recorder->findChild<QLabel*>()->text(), labelText);
        EXPECT_EQ(button().text(), buttonText);
        const bool showsShortcut = std::string_view(buttonText) == "⌥⌘→";
        EXPECT_EQ(button().accessibleName(),
                  showsShortcut ? "Option Command Right Arrow" : buttonText);
    };
    expectTexts("Shortcut", "Click to record");
    lang.setCode("zh");
    expectTexts("快捷键", "点击录制");
    click();
    expectTexts("快捷键", "请按下快捷键…（⎋ 取消）");
    lang.setCode("en");
    expectTexts("Shortcut", "Press a shortcut… (⎋ to cancel)");
    typist.modifiers = Qt::AltModifier | Qt::MetaModifier;
    typist.type({KEY_RIGHT, Qt::Key_Right});
    expectTexts("Shortcut", "⌥⌘→");
    click();
    expectTexts("Shortcut", "Press a shortcut… (⎋ to cancel)");
    click();
    expectTexts("Shortcut", "⌥⌘→");
    recorder->setShortcut(std::nullopt);
    expectTexts("Shortcut", "Click to record");
}

TEST_F(ShortcutRecorderViewTest, SetShortcutDoesNotCallOnRecord) {
    recorder->setShortcut(before);
    EXPECT_EQ(recorder->shortcut(), before);
    EXPECT_THAT(recorded, IsEmpty());
    EXPECT_EQ(button().text(), "⌥⌘→");
}

// On each side of the label, the button has padding and room for the focus ring.
TEST_F(ShortcutRecorderViewTest, ButtonLabelIsAtLeast160PointsWide) {
    constexpr int aroundLabel = 2 * (14 + style::ringMargin);
    EXPECT_GE(button().width(), 160 + aroundLabel);
    lang.setCode("zh");
    EXPECT_GE(button().minimumWidth(), 160 + aroundLabel);
    recorder->setShortcut(KeyShortcut{.keyCode = 0, .modifiers = 0});
    EXPECT_GE(button().minimumWidth(), 160 + aroundLabel);
}

TEST_F(ShortcutRecorderViewTest, ButtonKeepsItsWidthWithEveryText) {
    for (const double factor : {1.0, 1.5}) {
        const test::LargerLetters letters(factor);
        for (const char* const code : {"en", "zh"}) {
            lang.setCode(code);
            const int width = button().minimumWidth();
            const auto expectRoom = [&] {
                EXPECT_EQ(button().minimumWidth(), width) << code << ", " << factor;
                EXPECT_GE(width, button().sizeHint().width())
                    << code << ", " << factor << ": " << button().text().toStdString();
            };
            expectRoom();
            recorder->startRecording();
            expectRoom();
            typist.type({KEY_PLAYPAUSE, Qt::Key_MediaTogglePlayPause});
            EXPECT_EQ(button().text(), std::string(code) == "en"
                                           ? "This key cannot be used (⎋ to cancel)"
                                           : "无法使用此键（⎋ 取消）");
            expectRoom();
            recorder->setShortcut(before);
            recorder->stopRecording();
            expectRoom();
            recorder->setShortcut(std::nullopt);
        }
    }
}

TEST_F(ShortcutRecorderViewTest, LabelIsTheBuddyOfTheButton) {
    EXPECT_EQ(recorder->findChild<QLabel*>()->buddy(), &button());
}

TEST_F(ShortcutRecorderViewTest, ShowsModifiersWhileTheyAreHeld) {
    const Key control{KEY_LEFTCTRL, Qt::Key_Control};
    const Key alt{KEY_LEFTALT, Qt::Key_Alt};
    click();
    typist.press(control); // the event's modifiers do not include the pressed key
    EXPECT_EQ(button().text(), "⌃…");
    typist.modifiers = Qt::ControlModifier;
    typist.press(alt);
    EXPECT_EQ(button().text(), "⌃⌥…");
    // The modifiers of a release event still include the released key.
    typist.modifiers = Qt::ControlModifier | Qt::AltModifier;
    typist.release(control);
    EXPECT_EQ(button().text(), "⌥…");
    typist.modifiers = Qt::AltModifier;
    typist.release(alt);
    EXPECT_EQ(button().text(), "Press a shortcut… (⎋ to cancel)");
    typist.modifiers = {};
    typist.type(a);
    EXPECT_EQ(button().text(), "A");
}

TEST_F(ShortcutRecorderViewTest, HasAnAccentRingAndTintWhileRecording) {
    const auto countAccent = [&] {
        const QImage picture = button().grab().toImage();
        const QColor accent = Theme::shared().color(Role::accent);
        int count = 0;
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                count += picture.pixelColor(x, y) == accent ? 1 : 0;
            }
        }
        return count;
    };
    button().clearFocus();
    EXPECT_EQ(countAccent(), 0);
    const QColor quiet = button().grab().toImage().pixelColor(12, button().height() / 2);
    recorder->startRecording();
    EXPECT_GT(countAccent(), 200);
    EXPECT_NE(button().grab().toImage().pixelColor(12, button().height() / 2), quiet);
    recorder->stopRecording();
    EXPECT_EQ(countAccent(), 0);
}

TEST_F(ShortcutRecorderViewTest, AccessibleNameSpellsOutTheShortcut) {
    recorder->setShortcut(before);
    EXPECT_EQ(button().accessibleName(), "Option Command Right Arrow");
    EXPECT_EQ(button().toolTip(), "");
    setUsualKeyboard(KeyboardKind::pc);
    recorder->setShortcut(before);
    EXPECT_EQ(button().accessibleName(), "Alt Super Right Arrow");
    EXPECT_EQ(button().toolTip(), "Alt+Super+→");
    setUsualKeyboard(KeyboardKind::apple);
}

// Records the window for which the desktop's own keys are captured.
class FakeDesktopKeys : public DesktopKeys {
public:
    explicit FakeDesktopKeys(QWindow*& captureWindow) : current(captureWindow) {}
    ~FakeDesktopKeys() override { FakeDesktopKeys::giveBack(); }

    void captureFor(QWindow& window) override { current = &window; }
    void giveBack() override { current = nullptr; }

private:
    QWindow*& current;
};

class DesktopKeysTest : public testing::Test {
protected:
    DesktopKeysTest() {
        auto* column = new QVBoxLayout(&window);
        recorder = new ShortcutRecorderView(keys, lang);
        column->addWidget(recorder);
        window.show();
        EXPECT_TRUE(test::waitForWindowActive(&window));
    }

    QWindow* captureWindow = nullptr;
    const std::shared_ptr<KeyPresses> keys = std::make_shared<ToolkitKeyPresses>(
        std::make_unique<EvdevHardwareKeys>(), std::make_unique<FakeDesktopKeys>(captureWindow));
    Lang lang{nullptr};
    KeyLog window;
    ShortcutRecorderView* recorder;
    test::Typist typist{window};
};

TEST_F(DesktopKeysTest, AreGrabbedForTheWindowWhileRecording) {
    EXPECT_EQ(captureWindow, nullptr);
    recorder->startRecording();
    EXPECT_EQ(captureWindow, window.windowHandle());
    typist.type({0, Qt::Key_A, "a"});
    EXPECT_EQ(captureWindow, window.windowHandle()) << "an unusable key does not end the recording";
    typist.type(a);
    EXPECT_EQ(captureWindow, nullptr);
}

TEST_F(DesktopKeysTest, AreReturnedToTheDesktopWhenTheRecordedKeysAreReleased) {
    const Key alt{KEY_LEFTALT, Qt::Key_Alt};
    recorder->startRecording();
    typist.press(alt);
    typist.press(a);
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_EQ(captureWindow, window.windowHandle());
    typist.release(a);
    EXPECT_EQ(captureWindow, window.windowHandle()) << "the modifier is still pressed";
    typist.release(alt);
    EXPECT_EQ(captureWindow, nullptr);
}

// The other window may receive the release of the key, so the recorder must not wait for it.
TEST_F(DesktopKeysTest, AreNotCapturedAgainAfterARecordingIfAnotherWindowWasActive) {
    recorder->startRecording();
    typist.press(a);
    QWidget other;
    other.show();
    EXPECT_TRUE(test::waitForWindowActive(&other));
    EXPECT_EQ(captureWindow, nullptr);
    other.hide();
    window.activateWindow();
    EXPECT_TRUE(test::waitForWindowActive(&window));
    EXPECT_EQ(captureWindow, nullptr);
}

TEST_F(DesktopKeysTest, AreReturnedToTheDesktopAfterTheTimeoutWhileAKeyIsHeld) {
    recorder->setMaxCaptureTime(std::chrono::milliseconds(1));
    recorder->startRecording();
    typist.press(a);
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_TRUE(test::waitFor([this] { return captureWindow == nullptr; }));
}

TEST_F(DesktopKeysTest, AreReturnedToTheDesktopWheneverRecordingEnds) {
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"Escape",
         [this] {
             typist.type(escape);
         }},
        {"stopped",
         [this] {
             recorder->stopRecording();
         }},
        {"disabled",
         [this] {
             recorder->setEnabled(false);
         }},
        {"hidden",
         [this] {
             recorder->hide();
         }},
        {"its window closed",
         [this] {
             window.close();
         }},
    };
    for (const auto& [name, end] : ends) {
        recorder->setEnabled(true);
        recorder->show();
        recorder->startRecording();
        EXPECT_NE(captureWindow, nullptr) << name;
        end();
        EXPECT_EQ(captureWindow, nullptr) << name;
    }
}

TEST_F(DesktopKeysTest, AreReturnedToTheDesktopWhenTheRecorderIsDestroyed) {
    recorder->startRecording();
    delete recorder;
    EXPECT_EQ(captureWindow, nullptr);
}

TEST_F(DesktopKeysTest, AreReturnedToTheDesktopWhileAnotherWindowIsActive) {
    recorder->startRecording();
    QWidget other;
    other.show();
    EXPECT_TRUE(test::waitForWindowActive(&other));
    EXPECT_EQ(captureWindow, nullptr);
    EXPECT_TRUE(recorder->isRecording());
    other.hide();
    window.activateWindow();
    EXPECT_TRUE(test::waitForWindowActive(&window));
    EXPECT_EQ(captureWindow, window.windowHandle());
}

// Capturing must end, because a screen locker needs exclusive access to the keyboard.
TEST_F(DesktopKeysTest, AreReturnedToTheDesktopAfterTheTimeoutWhileRecordingContinues) {
    recorder->setMaxCaptureTime(std::chrono::milliseconds(1));
    recorder->startRecording();
    EXPECT_TRUE(test::waitFor([this] { return captureWindow == nullptr; }));
    EXPECT_TRUE(recorder->isRecording());
    QWidget other;
    other.show();
    EXPECT_TRUE(test::waitForWindowActive(&other));
    other.hide();
    window.activateWindow();
    EXPECT_TRUE(test::waitForWindowActive(&window));
    EXPECT_EQ(captureWindow, nullptr) << "and they are not captured again for the same recording";
}

} // namespace

} // namespace glidemap
