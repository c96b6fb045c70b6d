// Owns the services that exist as long as the program, connects them on launch, and shows the
// status item, the menus, the settings window and the alerts. It takes no part in recognising
// gestures or running actions.
//
// After the delegate has been destroyed, its callbacks have no effect: they hold the delegate
// weakly, or belong to subscriptions that end with it.
//
// Thread:  the main thread.
// Owner:   the program creates one, and must call applicationWillTerminate() before releasing it.
// Errors:  handled by the services. If an update check that the user requested fails, an alert
//          reports it.
#pragma once

#include "app/application_shell.h"
#include "app/main_menu.h"
#include "app/status_item.h"
#include "app/update_checker.h"
#include "bindings/binding_store.h"
#include "core/lang.h"
#include "core/observable.h"
#include "dispatch/accessibility_trust.h"
#include "dispatch/click_tap.h"
#include "dispatch/gesture_dispatcher.h"
#include "dispatch/gesture_runtime.h"
#include "dispatch/user_session.h"
#include "dispatch/workspace.h"
#include "recognition/touch_engine.h"

#include <functional>
#include <memory>
#include <vector>

class QAction;
class QWidget;

namespace glidemap {

class Alert;

class AppDelegate : public std::enable_shared_from_this<AppDelegate> {
public:
    // The services whose state the settings window shows.
    struct Shown {
        std::shared_ptr<BindingStore> store;
        std::shared_ptr<GestureDispatcher> dispatcher;
        std::shared_ptr<UpdateChecker> updateChecker;
    };

    struct Ports {
        std::shared_ptr<ApplicationShell> shell;
        std::shared_ptr<AccessibilityTrust> trust;
        std::shared_ptr<Workspace> workspace;
        std::shared_ptr<ClickTap> clickTap;
        std::shared_ptr<UserSession> session = nullptr; // null: always in the foreground
        std::shared_ptr<TouchEngine> engine;
        std::function<std::shared_ptr<BindingStore>()> makeStore;
        std::function<std::shared_ptr<UpdateChecker>()> makeUpdateChecker;
        std::function<std::shared_ptr<GestureDispatcher>(std::shared_ptr<BindingStore>)>
            makeDispatcher;
        std::function<std::unique_ptr<StatusItem>()> makeStatusItem;
        // Called once. Must return a window that already has its title, size and position.
        std::function<std::unique_ptr<QWidget>(const Shown&)> makeSettingsWindow;
        Lang* lang = &Lang::shared();
    };

    static std::shared_ptr<AppDelegate> create(Ports ports);
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    void applicationDidFinishLaunching();

    // Idempotent.
    void applicationWillTerminate();

    // Updates the texts and states of the status menu.
    void menuNeedsUpdate();

    void toggleEnabled();
    void openSettings();
    void showSettings();
    void checkForUpdates();
    void downloadUpdate();

    // Must be called when a touchpad may have been connected, or access may have been granted.
    void devicesMayHaveChanged();

private:
    struct ConstructionKey {};

public:
    AppDelegate(ConstructionKey key, Ports ports);

private:
    const std::shared_ptr<GestureDispatcher>& dispatcher();

    void setupMainMenu();
    void setupStatusItem();
    QAction* addStatusMenuItem(void (AppDelegate::*action)(), const char* keys = "");
    std::function<void()> weakly(void (AppDelegate::*method)());
    void keepStatusMenuCurrent();
    void showState();
    void reportMissingStatusBar();
    void showNoStatusBarInFront();
    void withdrawMissingStatusBar();
    void startRuntime();
    void showResult(const UpdateResult& result);
    QWidget* windowForAlerts() const;

    Ports ports;
    bool isTerminated = false;

    // The order matters on destruction: the subscriptions are destroyed first, then the runtime,
    // the services, the window and the menus.
    std::unique_ptr<MainMenu> mainMenu;
    std::unique_ptr<StatusItem> statusItem;
    QAction* enableMenuItem = nullptr; // the status menu owns its items
    QAction* settingsMenuItem = nullptr;
    QAction* checkUpdateMenuItem = nullptr;
    QAction* updateMenuItem = nullptr;
    QAction* quitMenuItem = nullptr;
    std::unique_ptr<QWidget> settingsWindow;
    std::shared_ptr<BindingStore> store;
    std::shared_ptr<UpdateChecker> updateChecker;
    std::shared_ptr<GestureDispatcher> _dispatcher; // created on first use
    std::unique_ptr<GestureRuntime> runtime;        // set on launch
    std::unique_ptr<Alert> noStatusBar;
    bool noStatusBarWaits = false;
    std::vector<Subscription> toShown;
};

} // namespace glidemap
