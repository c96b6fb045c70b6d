// A binding editor in a window of the sheet's size, with a store in memory and fake applications.
#pragma once

#include "kit/fake_workspace.h"
#include "kit/find_widget.h"
#include "kit/in_language.h"
#include "kit/qt_waiting.h"
#include "kit/typist.h"
#include "platform/linux/keyboard/evdev_hardware_keys.h"
#include "ui/editor/binding_editor.h"
#include "ui/recorder/toolkit_key_presses.h"
#include "ui/theme/theme.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace glidemap {

// The window around the editor. It records every key that the editor did not accept.
class EditorWindow : public QWidget {
public:
    std::vector<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
};

class EditorStage : public testing::Test {
protected:
    static inline const test::Key right{KEY_RIGHT, Qt::Key_Right};
    static inline const KeyShortcut optionCommandRight{
        .keyCode = 124, .modifiers = modifier::option | modifier::command};

    EditorStage() {
        Theme::shared().applyTo(*qApp);
        workspace.running = {{"mail", "Mail"}, {"files", "Files"}, {"XClock", "XClock"}};
        workspace.urls = {{"mail", "file:///mail"}, {"files", "file:///files"}};
    }

    void open(std::optional<GestureBinding> existing = std::nullopt) {
        editor = new BindingEditor({store, workspace, keys}, std::move(existing));
        editor->dismiss = [this] {
            ++dismissals;
        };
        auto* column = new QVBoxLayout(&window);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(editor);
        window.resize(BindingEditor::sheetSize);
        window.show();
        EXPECT_TRUE(test::waitForWindowActive(&window));
        editor->setFocus();
    }

    // Creates a binding in the store.
    GestureBinding stored(GestureType gesture, BindingAction action,
                          BindingScope scope = GlobalScope{}, bool enabled = true) {
        GestureBinding binding;
        binding.gesture = gesture;
        binding.action = std::move(action);
        binding.scope = std::move(scope);
        binding.enabled = enabled;
        BindingList list = bindings();
        list.push_back(binding);
        store.setBindings(std::move(list));
        return binding;
    }

    BindingList bindings() const { return *store.bindings(); }

    template <class Widget = QWidget>
    Widget& part(const char* name) const {
        return test::find<Widget>(window, name);
    }
    QComboBox& picker(const char* name) const { return part<QComboBox>(name); }
    QPushButton& saveButton() const { return part<QPushButton>("save"); }
    bool shows(const char* name) const { return part(name).isVisible(); }

    void choose(ActionKind kind) const {
        picker("actionPicker").setCurrentIndex(static_cast<int>(kind));
    }
    void choose(GestureType gesture) const {
        picker("gesturePicker").setCurrentIndex(static_cast<int>(gesture));
    }
    // Clicks a segment, which is a radio button.
    void choose(ScopeKind kind) const {
        const auto segments = part("scopePicker").findChildren<QAbstractButton*>();
        QTest::mouseClick(segments[static_cast<int>(kind)], Qt::LeftButton);
    }
    void record() {
        QTest::mouseClick(&part("recordShortcut"), Qt::LeftButton);
        typist.modifiers = Qt::AltModifier | Qt::MetaModifier;
        typist.type(right);
        typist.modifiers = {};
    }
    void key(Qt::Key code) const { QTest::keyClick(window.focusWidget(), code); }
    void type(const QString& text) const {
        for (const QChar letter : text) {
            QTest::keyClick(window.focusWidget(), letter.toLatin1());
        }
    }

    test::InLanguage language{"en"};
    BindingStore store{BindingList{}};
    test::FakeWorkspace workspace;
    const std::shared_ptr<KeyPresses> keys =
        std::make_shared<ToolkitKeyPresses>(std::make_unique<EvdevHardwareKeys>());
    EditorWindow window;
    BindingEditor* editor = nullptr;
    test::Typist typist{window};
    int dismissals = 0;
};

} // namespace glidemap
