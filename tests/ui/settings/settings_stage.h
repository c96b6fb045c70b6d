// The settings window with fake services.
//
// Thread:  the test's main thread, with a QApplication.
// Owner:   a test.
#pragma once

#include "core/lang.h"
#include "kit/fake_accessibility_trust.h"
#include "kit/fake_login_item_service.h"
#include "kit/fake_main_queue.h"
#include "kit/fake_user_defaults.h"
#include "kit/fake_workspace.h"
#include "ui/settings/binding_row.h"
#include "ui/settings/settings_view.h"
#include "ui/settings/settings_window.h"

#include <QLabel>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class QAbstractButton;

namespace glidemap::test {

class FakeDesktopHelper : public DesktopHelper {
public:
    State state() const override { return now; }
    std::optional<std::string> lastError() const override { return error; }
    void install() override {
        ++timesInstalled;
        become(State::installing);
    }
    Observable& changes() override { return observers; }

    void become(State next) {
        observers.announceWillChange();
        now = next;
        observers.announceDidChange();
    }

    State now = State::notNeeded;
    std::optional<std::string> error;
    int timesInstalled = 0;

private:
    Observable observers;
};

// System notes with the texts that the test sets.
class FakeNotes : public SystemNotes {
public:
    std::string missingAccess(const Lang& /*lang*/) const override { return missing; }
    std::string accessButton(const Lang& /*lang*/) const override { return button; }
    std::string launchAtLogin(const Lang& /*lang*/) const override { return login; }
    std::string systemGesture(GestureType gesture, const Lang& lang) const override {
        return category(gesture) == GestureCategory::swipe ? lang.choose(swipe, swipeInChinese)
                                                           : std::string();
    }
    Observable& changes() override { return observers; }

    std::string swipe;
    std::string swipeInChinese;
    std::string missing;
    std::string button;
    std::string login;
    Observable observers;
};

class FakeKeys : public KeyPresses {
public:
    void start(std::function<void(const Press&)> handler) override { press = std::move(handler); }
    void stop() override {}

    std::function<void(const Press&)> press; // set by start()
};

class FakeGeometryStore : public WindowGeometryStore {
public:
    std::optional<WindowGeometry> read() const override { return kept; }
    void write(const WindowGeometry& geometry) override { kept = geometry; }

    std::optional<WindowGeometry> kept;
};

class SettingsStage {
public:
    // Uses a store in memory, unless a store is given.
    explicit SettingsStage(BindingList bindings = {});
    explicit SettingsStage(std::shared_ptr<BindingStore> kept);
    ~SettingsStage();

    // Creates the window as the program does, without showing it.
    SettingsWindow& make();
    // Creates and shows the window, at the default size or at the given size.
    SettingsWindow& open();
    SettingsWindow& open(QSize size);
    void close();

    SettingsWindow& window() { return *opened; }

    // Returns the widget with this name in the window; fails the test if it does not exist.
    QWidget* find(const char* name) const;
    template <typename Widget>
    Widget* find(const char* name) const {
        return dynamic_cast<Widget*>(find(name));
    }
    QString text(const char* label) const; // the text of a label or a button
    QString noticeText(const char* notice) const;
    bool isShown(const char* name) const;
    void click(const char* button) const;
    void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;

    // Returns the row at this index in the list, or null if the list currently has no row for it.
    BindingRow* row(std::size_t index) const;
    std::size_t rowCount() const;

    // Reports a gesture as the engine does, while `application` is frontmost.
    void recognise(GestureType gesture, std::optional<std::string> application = std::nullopt);
    // Publishes this version and runs an update check.
    void publish(const std::string& version);
    // Chooses the language with this code in the picker.
    void choose(const char* code) const;

    QString rowText(std::size_t index, const char* label) const;
    void clickInRow(std::size_t index, const char* control) const;
    // Returns the colour of a pixel as shown in the window.
    QColor pixel(const QWidget& of, QPoint at) const;

    std::shared_ptr<FakeUserDefaults> defaults = std::make_shared<FakeUserDefaults>();
    std::shared_ptr<FakeMainQueue> mainQueue = std::make_shared<FakeMainQueue>();
    std::shared_ptr<FakeWorkspace> workspace = std::make_shared<FakeWorkspace>();
    std::shared_ptr<FakeAccessibilityTrust> trust = std::make_shared<FakeAccessibilityTrust>();
    std::shared_ptr<FakeLoginItemService> loginItems = std::make_shared<FakeLoginItemService>();
    std::shared_ptr<FakeDesktopHelper> helper = std::make_shared<FakeDesktopHelper>();
    std::shared_ptr<FakeNotes> notes; // null unless a test creates them
    std::shared_ptr<FakeKeys> keys = std::make_shared<FakeKeys>();
    std::shared_ptr<FakeGeometryStore> geometry = std::make_shared<FakeGeometryStore>();
    std::unique_ptr<MultitouchDeviceManager> devices; // created by tests that need an error
    std::optional<std::string> runningVersion = "1.0.0";

    std::shared_ptr<BindingStore> store;
    std::shared_ptr<GestureDispatcher> dispatcher;
    std::shared_ptr<UpdateChecker> updates;

private:
    SettingsView::Services services();

    std::string languageBefore;
    std::string manifest;
    std::unique_ptr<SettingsWindow> opened;
};

GestureBinding bound(GestureType gesture, BindingAction action = LockScreen{},
                     BindingScope scope = GlobalScope{});

// Returns this number of different bindings.
BindingList manyBindings(std::size_t count);

// Returns whether the full text fits into the label in its current layout.
bool fits(const QLabel& label);

// Returns the visible shape without the margin for the focus ring.
QRect seenRect(const QWidget& widget);

// Returns whether `seen` is `tint` at this opacity over `ground`, within rounding.
bool looksLike(const QColor& seen, const QColor& tint, double opacity, const QColor& ground);

} // namespace glidemap::test
