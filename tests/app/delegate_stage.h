// A delegate with fake ports. The ports record the delegate's calls in one list.
//
// Thread:  the test's main thread, with an application object.
#pragma once

#include "app/app_delegate.h"
#include "bindings/binding_store.h"
#include "core/lang.h"
#include "input/multitouch_device_manager.h"
#include "kit/fake_accessibility_trust.h"
#include "kit/fake_application_shell.h"
#include "kit/fake_click_tap.h"
#include "kit/fake_key_event_poster.h"
#include "kit/fake_main_queue.h"
#include "kit/fake_screen_lock.h"
#include "kit/fake_status_bar.h"
#include "kit/fake_user_defaults.h"
#include "kit/fake_user_session.h"
#include "kit/fake_workspace.h"
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

class DelegateStage {
public:
    explicit DelegateStage(BindingList bindings = {});
    DelegateStage(const DelegateStage&) = delete;
    DelegateStage& operator=(const DelegateStage&) = delete;
    ~DelegateStage();

    // Returns the calls since the previous call of this function, in order.
    std::vector<std::string> takeNotes() { return std::exchange(notes, {}); }

    // Returns the item of the status menu at this index; separators count.
    QAction& item(int place) const;
    void openMenu() const;
    std::vector<std::string> titles() const; // titles of visible items; "-" is a separator

    // Responds to the oldest pending request for the manifest.
    void answerUpdateCheck(const Fetched& fetched);
    void publish(const std::string& version) {
        answerUpdateCheck({"{\"version\": \"" + version + "\"}", std::nullopt});
    }

    std::shared_ptr<FakeUserDefaults> defaults = std::make_shared<FakeUserDefaults>();
    Lang lang{defaults};
    std::optional<std::string> runningVersion = "1.2";
    std::chrono::milliseconds patienceForBar{3600000};

    VirtualTime time;
    std::shared_ptr<FakeMainQueue> mainQueue = std::make_shared<FakeMainQueue>();
    std::shared_ptr<FakeWorkspace> workspace = std::make_shared<FakeWorkspace>();
    std::shared_ptr<FakeKeyEventPoster> keyEvents = std::make_shared<FakeKeyEventPoster>();
    std::shared_ptr<FakeUserSession> session = std::make_shared<FakeUserSession>();
    std::shared_ptr<FakeStatusBar> statusBar = std::make_shared<FakeStatusBar>();
    std::shared_ptr<FakeApplicationShell> shell = std::make_shared<FakeApplicationShell>();
    std::shared_ptr<FakeAccessibilityTrust> trust = std::make_shared<FakeAccessibilityTrust>();
    std::shared_ptr<FakeClickTap> clickTap = std::make_shared<FakeClickTap>();
    std::shared_ptr<BindingStore> store;
    MultitouchDeviceManager devices;
    std::shared_ptr<TouchEngine> engine;
    std::weak_ptr<GestureDispatcher> dispatcher;
    StatusItem* statusItem = nullptr;        // the delegate owns it
    std::vector<StatusItem::Look> iconLooks; // one entry per drawn icon
    QPointer<QWidget> window;
    std::vector<std::function<void(const Fetched&)>> openChecks;

    // Makes the driver report this number of resting fingers.
    void touch(int fingers) const;
    // Returns whether a driver report reaches the program. Leaves no finger on the pad.
    bool receivesTouches() const;

    AppDelegate::Ports ports(); // called once, for the delegate below
    std::shared_ptr<AppDelegate> delegate;

private:
    static TouchDriverPlatform driver();
    void noteClickTap(const std::string& call);
    std::unique_ptr<StatusItem> makeStatusItem();
    std::unique_ptr<QWidget> makeWindow();
    UpdateChecker::Setup updates();

    std::vector<std::string> notes;
    static DelegateStage* current; // used by the driver's functions
};

} // namespace glidemap::test
