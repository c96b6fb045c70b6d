// Owns the services that live as long as the program, ties them to each other when it is launched,
// and shows its status item, its menus, its window and its alerts. It decides nothing about
// gestures: it only connects those who do.
//
// Every callback that it installs elsewhere holds it weakly: with the delegate gone it does
// nothing, and answers false.
//
// Thread:  the main thread. What it installs in the touch engine and in the click monitor is called
//          on theirs, and only reads what is there from the start on.
// Owner:   the program makes one, and has it terminated before it lets go.
// Errors:  those of others. A failed check for updates that the user has asked for is an alert.
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
    // What the settings window shows.
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
        std::shared_ptr<UserSession> session = nullptr; // null: always in front
        std::shared_ptr<TouchEngine> engine;
        std::function<std::shared_ptr<BindingStore>()> makeStore;
        std::function<std::shared_ptr<UpdateChecker>()> makeUpdateChecker;
        std::function<std::shared_ptr<GestureDispatcher>(std::shared_ptr<BindingStore>)>
            makeDispatcher;
        std::function<std::unique_ptr<StatusItem>()> makeStatusItem;
        // Made once: titled, sized, and in the middle of the screen or where it was last.
        std::function<std::unique_ptr<QWidget>(const Shown&)> makeSettingsWindow;
        Lang* lang = &Lang::shared();
    };

    static std::shared_ptr<AppDelegate> create(Ports ports);
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    void applicationDidFinishLaunching();

    // Once; a second call does nothing.
    void applicationWillTerminate();

    // Fills in the status menu, which is about to open.
    void menuNeedsUpdate();

    void toggleEnabled();
    void openSettings();
    void showSettings();
    void checkForUpdates();
    void downloadUpdate();

    // Touchpads may have come, and what had no access may have it now.
    void devicesMayHaveChanged();

private:
    struct ConstructionKey {};

public:
    AppDelegate(ConstructionKey key, Ports given);

private:
    const std::shared_ptr<GestureDispatcher>& dispatcher();

    void setupMainMenu();
    void setupStatusItem();
    QAction* addStatusMenuItem(void (AppDelegate::*action)(), const char* keys = "");
    std::function<void()> weakly(void (AppDelegate::*method)());
    void keepStatusMenuCurrent();
    void showState();
    void sayThatThereIsNoStatusBar();
    void takeBackThatThereIsNoStatusBar();
    void startRuntime();
    void showResult(const UpdateResult& result);
    QWidget* windowForAlerts() const;

    Ports ports;
    bool isTerminated = false;

    // Made in this order, and destroyed in the opposite one.
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
    std::shared_ptr<GestureDispatcher> _dispatcher; // made when it is first read
    std::unique_ptr<GestureRuntime> runtime;        // from the launch on
    std::unique_ptr<Alert> noStatusBar;
    std::vector<Subscription> toShown;
};

} // namespace glidemap
