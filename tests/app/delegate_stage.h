// A delegate with fake ports, which record its calls in one journal.
//
// Thread:  the test's main thread, with an application object.
#pragma once

#include "app/app_delegate.h"
#include "bindings/binding_store.h"
#include "core/lang.h"
#include "input/multitouch_device_manager.h"
#include "kit/queued_main_queue.h"
#include "kit/recording_key_events.h"
#include "kit/recording_screen_lock.h"
#include "kit/recording_user_defaults.h"
#include "kit/recording_workspace.h"
#include "kit/scripted_user_session.h"
#include "platform/virtual/virtual_time.h"

#include <QPointer>
#include <QWidget>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::test {

class FakeStatusBar : public StatusBar {
public:
    Kind kind() override { return present; }
    Observable& changes() override { return observers; }
    void itemWasDrawn(Look look) override { drawn.push_back(look); }

    std::vector<Look> drawn;

    void become(Kind kind) {
        present = kind;
        observers.announceDidChange();
    }

private:
    Kind present = Kind::none;
    Observable observers;
};

class DelegateStage {
public:
    explicit DelegateStage(BindingList bindings = {});
    DelegateStage(const DelegateStage&) = delete;
    DelegateStage& operator=(const DelegateStage&) = delete;
    ~DelegateStage();

    // The calls since the last time, in order.
    std::vector<std::string> takeNotes() { return std::exchange(notes, {}); }

    // The item of the status menu at this index, including separators.
    QAction& item(int place) const;
    void openMenu() const;
    std::vector<std::string> titles() const; // of visible items; "-" is a separator

    // Responds to the oldest pending request for the manifest.
    void answerUpdateCheck(const Fetched& fetched);
    void publish(const std::string& version) {
        answerUpdateCheck({"{\"version\": \"" + version + "\"}", std::nullopt});
    }

    std::shared_ptr<kit::RecordingUserDefaults> defaults =
        std::make_shared<kit::RecordingUserDefaults>();
    Lang lang{defaults};
    std::optional<std::string> runningVersion = "1.2";
    std::chrono::milliseconds patienceForBar{3600000};

    VirtualTime time;
    std::shared_ptr<kit::QueuedMainQueue> mainQueue = std::make_shared<kit::QueuedMainQueue>();
    std::shared_ptr<kit::RecordingWorkspace> workspace =
        std::make_shared<kit::RecordingWorkspace>();
    std::shared_ptr<kit::RecordingKeyEvents> keyEvents =
        std::make_shared<kit::RecordingKeyEvents>();
    std::shared_ptr<kit::ScriptedUserSession> session =
        std::make_shared<kit::ScriptedUserSession>();
    std::shared_ptr<FakeStatusBar> statusBar = std::make_shared<FakeStatusBar>();
    std::shared_ptr<BindingStore> store;
    MultitouchDeviceManager devices;
    std::shared_ptr<TouchEngine> engine;
    std::weak_ptr<GestureDispatcher> dispatcher;
    StatusItem* statusItem = nullptr;        // the delegate owns it
    std::vector<StatusItem::Look> iconLooks; // of each icon that was drawn for the status item
    QPointer<QWidget> window;
    ClickTap::Callback click;
    std::vector<std::function<void(const Fetched&)>> openChecks;

    // Reports this number of resting fingers from the driver.
    void touch(int fingers) const;
    // Whether a report of the driver arrives. Leaves no finger on the pad.
    bool hearsTouches() const;

    // The notifications of the shell: whether gestures are on.
    std::vector<bool> gestureStates;

    // Runs while a widget is brought forward.
    std::function<void(QWidget&)> onActivate;

    AppDelegate::Ports ports(); // called once, for the delegate below
    std::shared_ptr<AppDelegate> delegate;

private:
    class Shell;
    class Trust;
    class Tap;

    static TouchDriverPlatform driver();
    std::unique_ptr<StatusItem> makeStatusItem();
    std::unique_ptr<QWidget> makeWindow();
    UpdateChecker::Setup updates();

    std::vector<std::string> notes;
    static DelegateStage* current; // used by the driver's functions
};

} // namespace glidemap::test
