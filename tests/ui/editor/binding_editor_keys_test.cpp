#include "editor_stage.h"
#include "kit/qt_waiting.h"
#include "ui/controls/sheet.h"

#include <gmock/gmock.h>

#include <QAccessible>

namespace glidemap {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BindingEditorKeysTest : public EditorStage {
protected:
    // Returns the names of the controls in tab order, until the first one has the focus again. For
    // a segment, returns the name of its segmented control.
    std::vector<std::string> tabOrder() const {
        std::vector<std::string> names;
        QWidget* const first = window.focusWidget();
        do {
            QWidget* const focused = window.focusWidget();
            const bool isSegment = focused->objectName().isEmpty() ||
                                   focused->parentWidget()->objectName() == "scopePicker";
            names.push_back(
                (isSegment ? focused->parentWidget() : focused)->objectName().toStdString());
            key(Qt::Key_Tab);
        } while (window.focusWidget() != first && names.size() < 20);
        return names;
    }
};

TEST_F(BindingEditorKeysTest, EscapeCancels) {
    open();
    choose(ActionKind::lockScreen);
    key(Qt::Key_Escape);
    EXPECT_EQ(dismissals, 1);
    EXPECT_THAT(bindings(), IsEmpty());
    EXPECT_THAT(window.keys, IsEmpty());
}

TEST_F(BindingEditorKeysTest, ReturnSavesOnlyWhenTheFormIsComplete) {
    for (const Qt::Key saving : {Qt::Key_Return, Qt::Key_Enter}) {
        EXPECT_EQ(dismissals, 0);
        if (editor == nullptr) {
            open();
        }
        choose(ActionKind::keyboardShortcut);
        key(saving);
        EXPECT_THAT(bindings(), IsEmpty());
        EXPECT_EQ(dismissals, 0);
        EXPECT_THAT(window.keys, IsEmpty());
        choose(ActionKind::lockScreen);
        key(saving);
        EXPECT_EQ(bindings().size(), 1U);
        EXPECT_EQ(dismissals, 1);
        store.setBindings({});
        dismissals = 0;
    }
}

// Simulates a key that the user still holds after an earlier action: Return, which opened the sheet
// from a row, or Escape, which closed a list.
TEST_F(BindingEditorKeysTest, HeldKeyNeitherSavesNorCancels) {
    open();
    choose(ActionKind::lockScreen);
    for (const Qt::Key held : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        QKeyEvent repeated(QEvent::KeyPress, held, Qt::NoModifier, {}, true);
        QApplication::sendEvent(window.focusWidget(), &repeated);
    }
    EXPECT_EQ(dismissals, 0);
    EXPECT_THAT(bindings(), IsEmpty());
    EXPECT_THAT(window.keys, IsEmpty());
}

TEST_F(BindingEditorKeysTest, ReturnSavesFromEveryControl) {
    open();
    choose(ActionKind::launchApp);
    picker("launchPicker").setCurrentIndex(1);
    choose(ScopeKind::app);
    picker("scopeAppPicker").setCurrentIndex(1);
    int saved = 0;
    for (const char* const name :
         {"gesturePicker", "actionPicker", "launchPicker", "scopeAppPicker", "cancel", "save"}) {
        part(name).setFocus();
        key(Qt::Key_Return);
        EXPECT_EQ(dismissals, ++saved) << name;
        EXPECT_EQ(bindings().size(), static_cast<std::size_t>(saved)) << name;
    }
    choose(ActionKind::keyboardShortcut);
    record();
    part("recordShortcut").setFocus();
    key(Qt::Key_Return);
    EXPECT_EQ(dismissals, ++saved);
}

TEST_F(BindingEditorKeysTest, RecordedKeysDoNotReachTheSheet) {
    open();
    choose(ActionKind::lockScreen);
    choose(ActionKind::keyboardShortcut);
    const test::Key returnKey{KEY_ENTER, Qt::Key_Return, "\r"};
    QTest::mouseClick(&part("recordShortcut"), Qt::LeftButton);
    typist.press(returnKey);
    typist.repeat(returnKey);
    typist.release(returnKey);
    EXPECT_EQ(part<QPushButton>("recordShortcut").text(), "↩");
    EXPECT_EQ(dismissals, 0) << "the form is complete now, and Return would save it";
    EXPECT_TRUE(saveButton().isEnabled());
    typist.type(returnKey);
    EXPECT_EQ(dismissals, 1) << "the next Return does";
    EXPECT_EQ(bindings().size(), 1U);
}

TEST_F(BindingEditorKeysTest, EscapeEndsARecordingBeforeItCancelsTheEditor) {
    open();
    const test::Key escape{KEY_ESC, Qt::Key_Escape};
    QTest::mouseClick(&part("recordShortcut"), Qt::LeftButton);
    typist.type(escape);
    EXPECT_EQ(dismissals, 0);
    EXPECT_EQ(part<QPushButton>("recordShortcut").text(), "Click to record");
    QTest::mouseClick(&part("recordShortcut"), Qt::LeftButton);
    typist.modifiers = Qt::MetaModifier;
    typist.type(escape);
    EXPECT_EQ(dismissals, 0);
    EXPECT_EQ(part<QPushButton>("recordShortcut").text(), "⌘⎋");
    typist.modifiers = {};
    typist.type(escape);
    EXPECT_EQ(dismissals, 1);
}

TEST_F(BindingEditorKeysTest, ReturnAndEscapeInTheGestureListNeitherSaveNorCancel) {
    open();
    choose(ActionKind::lockScreen);
    editor->setFocus();
    type("pinch out");
    key(Qt::Key_Return);
    EXPECT_EQ(picker("gesturePicker").currentText(), "Pinch Out");
    EXPECT_EQ(dismissals, 0);
    EXPECT_THAT(bindings(), IsEmpty());
    type("five");
    key(Qt::Key_Escape);
    EXPECT_EQ(dismissals, 0);
    key(Qt::Key_Return);
    EXPECT_EQ(dismissals, 1);
    ASSERT_EQ(bindings().size(), 1U);
    EXPECT_EQ(bindings()[0].gesture, GestureType::pinchOut);
}

TEST_F(BindingEditorKeysTest, TabFollowsTheReadingOrder) {
    open();
    EXPECT_THAT(tabOrder(), ElementsAre("gesturePicker", "actionPicker", "recordShortcut",
                                        "chooseShortcut", "scopePicker", "cancel"))
        << "save cannot be pressed yet";
    choose(ActionKind::launchApp);
    picker("launchPicker").setCurrentIndex(1);
    choose(ScopeKind::app);
    picker("scopeAppPicker").setCurrentIndex(1);
    editor->setFocus();
    EXPECT_THAT(tabOrder(), ElementsAre("gesturePicker", "actionPicker", "launchPicker",
                                        "scopePicker", "scopeAppPicker", "cancel", "save"));
}

// Returns the accessible name. A combo box's own name is its value, so its label's name is used.
QString nameOf(QAccessibleInterface& seen) {
    if (seen.role() == QAccessible::ComboBox) {
        const auto labels = seen.relations(QAccessible::Label);
        return labels.isEmpty() ? QString() : labels.front().first->text(QAccessible::Name);
    }
    return seen.text(QAccessible::Name);
}

TEST_F(BindingEditorKeysTest, EveryControlHasARoleAndAName) {
    open();
    choose(ActionKind::launchApp);
    choose(ScopeKind::app);
    struct Row {
        const char* part;
        QAccessible::Role role;
        const char* english;
        const char* chinese;
    };
    const Row rows[] = {
        {"gesturePicker", QAccessible::ComboBox, "Trackpad gesture", "触控板手势"},
        {"gestureDemo", QAccessible::Animation, "Draw Circle (any direction)",
         "单指画圆（任意方向）"},
        {"actionPicker", QAccessible::ComboBox, "Perform action", "执行动作"},
        {"launchPicker", QAccessible::ComboBox, "Choose an app", "选择 App"},
        {"scopeAppPicker", QAccessible::ComboBox, "Only in this app", "仅在此 App 生效"},
        {"recordShortcut", QAccessible::PushButton, "Click to record", "点击录制"},
        {"chooseShortcut", QAccessible::PushButton, "Choose the keys from a list",
         "从列表中选择按键"},
        {"cancel", QAccessible::PushButton, "Cancel", "取消"},
        {"save", QAccessible::PushButton, "Add", "添加"},
    };
    for (const char* const code : {"en", "zh"}) {
        Lang::shared().setCode(code);
        for (const Row& row : rows) {
            QAccessibleInterface* const seen =
                QAccessible::queryAccessibleInterface(&part(row.part));
            ASSERT_NE(seen, nullptr) << row.part;
            EXPECT_EQ(seen->role(), row.role) << row.part;
            EXPECT_EQ(nameOf(*seen).toStdString(),
                      std::string(code) == "en" ? row.english : row.chinese);
        }
        EXPECT_EQ(part("scopePicker").accessibleName(),
                  std::string(code) == "en" ? "Scope" : "范围");
    }
}

TEST_F(BindingEditorKeysTest, EveryLabelIsTheBuddyOfItsControl) {
    open();
    std::vector<std::string> pairs;
    for (const QLabel* const label : window.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) {
            pairs.push_back(label->text().toStdString() + " → " +
                            label->buddy()->objectName().toStdString());
        }
    }
    EXPECT_THAT(pairs, testing::UnorderedElementsAre(
                           "Trackpad gesture → gesturePicker", "Perform action → actionPicker",
                           "Shortcut → recordShortcut", "Choose an app → launchPicker",
                           "Scope → scopePicker", "Only in this app → scopeAppPicker"));
}

// Tests the editor within a real sheet, whose dialog also handles Return and Escape.
TEST_F(BindingEditorKeysTest, ReturnInTheSheetSavesOneBindingAndClosesTheSheetOnce) {
    window.show();
    auto* const content = new BindingEditor({store, workspace, keys}, std::nullopt);
    auto* const sheet = new Sheet(&window, content, BindingEditor::sheetSize);
    int closed = 0;
    content->dismiss = [sheet] {
        sheet->dismiss();
    };
    sheet->onClosed = [&closed] {
        ++closed;
    };
    sheet->present();
    ASSERT_TRUE(test::waitForWindowActive(sheet));
    EXPECT_EQ(sheet->focusWidget()->objectName(), "gesturePicker");
    QTest::keyClick(sheet->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(closed, 0);
    test::find<QComboBox>(*content, "actionPicker").setCurrentIndex(1);
    QTest::keyClick(sheet->focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(test::waitFor([&] { return closed == 1; }));
    EXPECT_EQ(bindings().size(), 1U);
}

} // namespace

} // namespace glidemap
