#include "bindings/spoken_shortcut.h"
#include "key_log.h"
#include "kit/find_widget.h"
#include "kit/qt_waiting.h"
#include "platform/linux/keyboard/evdev_hardware_keys.h"
#include "ui/controls/popover.h"
#include "ui/recorder/shortcut_chooser.h"
#include "ui/recorder/shortcut_recorder_view.h"
#include "ui/recorder/toolkit_key_presses.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>
#include <memory>
#include <string>
#include <vector>

namespace glidemap {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint64_t ctrlSuper = modifier::control | modifier::command;

// The editor's shortcut row in a window that is as wide as the editor. The window records each key
// that no control accepted.
class ShortcutChooserTest : public testing::Test {
protected:
    ShortcutChooserTest() {
        setUsualKeyboard(KeyboardKind::pc);
        window.resize(460, 560);
        auto* column = new QVBoxLayout(&window);
        recorder = new ShortcutRecorderView(keys, lang);
        column->addWidget(recorder);
        column->addStretch();
        recorder->onRecord = [this](const KeyShortcut& shortcut) {
            recorded.push_back(shortcut);
        };
        window.show();
        EXPECT_TRUE(test::waitForWindowActive(&window));
    }
    ~ShortcutChooserTest() override { setUsualKeyboard(KeyboardKind::apple); }

    QToolButton& opener() const { return test::find<QToolButton>(window, "chooseShortcut"); }
    void open() const { QTest::mouseClick(&opener(), Qt::LeftButton); }
    bool isOpen() const {
        const auto* const popover = window.findChild<QWidget*>("shortcutChooser");
        return popover != nullptr && popover->isVisible();
    }
    QPushButton& toggle(const char* name) const { return test::find<QPushButton>(window, name); }
    QLineEdit& field() const { return test::find<QLineEdit>(window, "keySearch"); }
    QListView& list() const { return test::find<QListView>(window, "keyList"); }
    std::string marked() const { return list().currentIndex().data().toString().toStdString(); }
    void key(Qt::Key code) const { QTest::keyClick(window.focusWidget(), code); }
    void type(const char* text) const { QTest::keyClicks(window.focusWidget(), text); }

    const std::shared_ptr<KeyPresses> keys =
        std::make_shared<ToolkitKeyPresses>(std::make_unique<EvdevHardwareKeys>());
    Lang lang{nullptr};
    KeyLog window;
    ShortcutRecorderView* recorder;
    std::vector<KeyShortcut> recorded;
};

TEST_F(ShortcutChooserTest, ComposesAShortcutFromKeysThatCannotBePressed) {
    open();
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(window.focusWidget(), &field());
    QTest::mouseClick(&toggle("Ctrl"), Qt::LeftButton);
    QTest::mouseClick(&toggle("Super"), Qt::LeftButton);
    EXPECT_THAT(recorded, IsEmpty()) << "a shortcut needs a key";
    field().setFocus();
    type("f13");
    EXPECT_EQ(marked(), "Print Screen (F13)");
    key(Qt::Key_Return);
    EXPECT_THAT(recorded, ElementsAre(KeyShortcut{.keyCode = 105, .modifiers = ctrlSuper}));
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(test::find<QPushButton>(window, "recordShortcut").text(), "⌃⌘F13");
    EXPECT_EQ(window.focusWidget(), &opener());
    EXPECT_THAT(window.presses(), IsEmpty()) << "Return does not save the sheet";
}

TEST_F(ShortcutChooserTest, OpensWithTheCurrentShortcut) {
    recorder->setShortcut(
        KeyShortcut{.keyCode = 124, .modifiers = modifier::option | modifier::command});
    open();
    EXPECT_FALSE(toggle("Ctrl").isChecked());
    EXPECT_TRUE(toggle("Alt").isChecked());
    EXPECT_FALSE(toggle("Shift").isChecked());
    EXPECT_TRUE(toggle("Super").isChecked());
    EXPECT_EQ(marked(), "Right Arrow (→)");
    EXPECT_TRUE(list().viewport()->rect().intersects(list().visualRect(list().currentIndex())));
}

TEST_F(ShortcutChooserTest, ToggleChangesACompleteShortcutAtOnce) {
    recorder->setShortcut(KeyShortcut{.keyCode = 124, .modifiers = modifier::option});
    open();
    QTest::mouseClick(&toggle("Shift"), Qt::LeftButton);
    QTest::mouseClick(&toggle("Alt"), Qt::LeftButton);
    EXPECT_THAT(recorded, ElementsAre(KeyShortcut{.keyCode = 124,
                                                  .modifiers = modifier::option | modifier::shift},
                                      KeyShortcut{.keyCode = 124, .modifiers = modifier::shift}));
    EXPECT_TRUE(isOpen());
    key(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(recorded.size(), 2U);
    EXPECT_THAT(window.keys(), ElementsAre("-16777216"))
        << "Escape's release only: nothing is cancelled";
}

TEST_F(ShortcutChooserTest, ClickSelectsAKey) {
    open();
    type("keypad 7");
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                      list().visualRect(list().model()->index(1, 0)).center());
    EXPECT_THAT(recorded, ElementsAre(KeyShortcut{.keyCode = 89, .modifiers = 0}));
    EXPECT_FALSE(isOpen());
}

TEST_F(ShortcutChooserTest, ExactNameIsHighlightedBeforePartialMatches) {
    open();
    for (const auto& [typed, expected] : {std::pair("k", "K"),
                                          {"1", "1"},
                                          {"f1", "F1"},
                                          {"esc", "Escape (⎋)"},
                                          {"-", "Minus (-)"}}) {
        field().clear();
        type(typed);
        EXPECT_EQ(marked(), expected);
    }
}

TEST_F(ShortcutChooserTest, KeepsItsMinimumHeightWhileTheListShrinks) {
    open();
    const int height = test::find<QWidget>(window, "shortcutChooser").height();
    const int listHeight = list().height();
    type("keypad enter");
    EXPECT_TRUE(test::waitFor([&] { return list().height() < listHeight; }));
    EXPECT_EQ(test::find<QWidget>(window, "shortcutChooser").minimumHeight(), height);
}

TEST_F(ShortcutChooserTest, TabVisitsTheTogglesAndClosesTheChooserAtEitherEnd) {
    open();
    key(Qt::Key_Backtab);
    EXPECT_EQ(window.focusWidget(), &toggle("Super"));
    key(Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &field());
    for (const char* const name : {"Super", "Shift", "Alt", "Ctrl"}) {
        key(Qt::Key_Backtab);
        EXPECT_EQ(window.focusWidget(), &toggle(name));
    }
    key(Qt::Key_Space);
    EXPECT_TRUE(toggle("Ctrl").isChecked());
    key(Qt::Key_Backtab);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(window.focusWidget(), &opener());
    EXPECT_TRUE(
        test::waitFor([this] { return window.findChild<QWidget*>("shortcutChooser") == nullptr; }));
    open();
    key(Qt::Key_Tab);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(window.focusWidget(), &opener());
}

TEST_F(ShortcutChooserTest, ReturnOnAToggleClosesTheChooserAndDoesNotReachTheSheet) {
    open();
    key(Qt::Key_Backtab);
    key(Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    EXPECT_THAT(window.presses(), IsEmpty()) << "Return does not save the sheet";
}

TEST_F(ShortcutChooserTest, OpeningStopsTheRecording) {
    recorder->startRecording();
    open();
    EXPECT_FALSE(recorder->isRecording());
    type("q");
    EXPECT_EQ(field().text(), "q");
}

TEST_F(ShortcutChooserTest, SecondClickOnTheButtonClosesTheChooser) {
    open();
    open();
    EXPECT_FALSE(isOpen());
}

TEST_F(ShortcutChooserTest, ClosesWhenTheRecorderIsHidden) {
    open();
    recorder->hide();
    EXPECT_FALSE(isOpen());
}

TEST_F(ShortcutChooserTest, ClosesWhenTheRecorderIsDestroyed) {
    open();
    delete recorder;
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(
        test::waitFor([this] { return window.findChild<QWidget*>("shortcutChooser") == nullptr; }));
}

TEST_F(ShortcutChooserTest, TextsExistInBothLanguages) {
    EXPECT_EQ(opener().accessibleName(), "Choose the keys from a list");
    open();
    EXPECT_EQ(field().placeholderText(), "Search keys");
    lang.setCode("zh");
    EXPECT_EQ(opener().accessibleName(), "从列表中选择按键");
    EXPECT_EQ(opener().toolTip(), "从列表中选择按键");
    EXPECT_EQ(field().placeholderText(), "搜索按键");
    EXPECT_EQ(field().accessibleName(), "搜索按键");
    EXPECT_EQ(list().accessibleName(), "按键");
    type("xiao");
    EXPECT_EQ(test::find<QLabel>(window, "nothingFound").text(), "没有匹配的按键");
    EXPECT_TRUE(test::find<QLabel>(window, "nothingFound").isVisible());
    field().setText("小键盘 7");
    EXPECT_EQ(marked(), "小键盘 7");
    field().setText("keypad 7");
    EXPECT_EQ(marked(), "小键盘 7") << "the other language's names are found, too";
}

TEST_F(ShortcutChooserTest, TogglesExposeTheirCheckedState) {
    recorder->setShortcut(KeyShortcut{.keyCode = 0, .modifiers = modifier::option});
    open();
    for (const auto& [name, isOn] : {std::pair("Ctrl", false), {"Alt", true}}) {
        QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&toggle(name));
        ASSERT_NE(seen, nullptr);
        EXPECT_TRUE(seen->state().checkable);
        EXPECT_EQ(seen->state().checked, isOn) << name;
        EXPECT_EQ(seen->text(QAccessible::Name), name);
    }
}

} // namespace

} // namespace glidemap
