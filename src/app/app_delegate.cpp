#include "app/app_delegate.h"

#include "app/alert.h"
#include "app/alert_texts.h"
#include "core/log.h"

#include <QAction>
#include <QGuiApplication>
#include <QKeySequence>
#include <QWidget>
#include <string>
#include <utility>

namespace glidemap {

namespace {

// Escapes &, because Qt would underline the next character as a mnemonic.
QString menuTitle(const std::string& title) {
    return QString::fromStdString(title).replace('&', "&&");
}

} // namespace

std::shared_ptr<AppDelegate> AppDelegate::create(Ports ports) {
    return std::make_shared<AppDelegate>(ConstructionKey(), std::move(ports));
}

AppDelegate::AppDelegate(ConstructionKey /*key*/, Ports ports)
    : ports(std::move(ports)), store(this->ports.makeStore()),
      updateChecker(this->ports.makeUpdateChecker()) {}

AppDelegate::~AppDelegate() = default;

const std::shared_ptr<GestureDispatcher>& AppDelegate::dispatcher() {
    if (_dispatcher == nullptr) {
        _dispatcher = ports.makeDispatcher(store);
    }
    return _dispatcher;
}

void AppDelegate::applicationDidFinishLaunching() {
    ports.shell->becomeAccessory();
    setupMainMenu();
    setupStatusItem();
    // The return value is not needed, because each service reports missing access.
    ports.trust->isTrustedWithPrompt();
    dispatcher();
    updateChecker->start();
    keepStatusMenuCurrent();
    startRuntime();
    showSettings();
}

void AppDelegate::applicationWillTerminate() {
    if (std::exchange(isTerminated, true)) {
        return;
    }
    if (runtime != nullptr) {
        runtime->stop();
    }
    // Saves only after runtime->stop() has released the touchpads, because saving may wait for
    // another process.
    store->saveIfLastSaveFailed();
}

void AppDelegate::setupMainMenu() {
    mainMenu = std::make_unique<MainMenu>([shell = ports.shell] { shell->terminate(); });
}

void AppDelegate::setupStatusItem() {
    statusItem = ports.makeStatusItem();
    enableMenuItem = addStatusMenuItem(&AppDelegate::toggleEnabled);
    enableMenuItem->setCheckable(true);
    statusItem->menu().addSeparator();
    settingsMenuItem = addStatusMenuItem(&AppDelegate::openSettings, "Ctrl+,");
    checkUpdateMenuItem = addStatusMenuItem(&AppDelegate::checkForUpdates);
    updateMenuItem = addStatusMenuItem(&AppDelegate::downloadUpdate);
    updateMenuItem->setVisible(false);
    statusItem->menu().addSeparator();
    quitMenuItem = statusItem->menu().addAction(QString());
    quitMenuItem->setShortcut(QKeySequence("Ctrl+Q"));
    QObject::connect(quitMenuItem, &QAction::triggered, quitMenuItem,
                     [shell = ports.shell] { shell->terminate(); });
    QObject::connect(&statusItem->menu(), &QMenu::aboutToShow, &statusItem->menu(),
                     weakly(&AppDelegate::menuNeedsUpdate));
    statusItem->onActivate = weakly(&AppDelegate::openSettings);
    statusItem->onMissing = weakly(&AppDelegate::reportMissingStatusBar);
    statusItem->onFound = weakly(&AppDelegate::withdrawMissingStatusBar);
}

// Adds an item without a title. menuNeedsUpdate() sets the titles.
QAction* AppDelegate::addStatusMenuItem(void (AppDelegate::*action)(), const char* keys) {
    QAction* item = statusItem->menu().addAction(QString());
    item->setShortcut(QKeySequence(keys));
    QObject::connect(item, &QAction::triggered, item, weakly(action));
    return item;
}

std::function<void()> AppDelegate::weakly(void (AppDelegate::*method)()) {
    return [weak = weak_from_this(), method] {
        if (const auto held = weak.lock()) {
            (held.get()->*method)();
        }
    };
}

// Updates the status item whenever the state that it shows changes, because some status bars read
// the menu long before they open it.
void AppDelegate::keepStatusMenuCurrent() {
    for (Observable* shown :
         {&ports.lang->changes(), &dispatcher()->changes(), &updateChecker->changes()}) {
        toShown.push_back(shown->subscribe({}, [this] { showState(); }));
    }
    showState();
}

void AppDelegate::showState() {
    using Look = StatusItem::Look;
    const bool isOn = dispatcher()->masterEnabled();
    statusItem->setLook(isOn ? Look::on : Look::off);
    ports.shell->setGesturesOn(isOn);
    statusItem->menuHasChanged();
}

void AppDelegate::menuNeedsUpdate() {
    const Lang& lang = *ports.lang;
    enableMenuItem->setText(menuTitle(lang.choose("Enable Gestures", "启用手势")));
    enableMenuItem->setChecked(dispatcher()->masterEnabled());
    settingsMenuItem->setText(menuTitle(lang.choose("Settings…", "设置…")));
    checkUpdateMenuItem->setText(menuTitle(lang.choose("Check for Updates…", "检查更新…")));
    quitMenuItem->setText(menuTitle(lang.choose("Quit Glidemap", "退出 Glidemap")));
    const auto& version = updateChecker->latestVersion();
    if (version) {
        updateMenuItem->setText(
            menuTitle(lang.choose("Download v" + *version + "…", "下载新版本 v" + *version + "…")));
    }
    updateMenuItem->setVisible(version.has_value());
}

void AppDelegate::startRuntime() {
    runtime = std::make_unique<GestureRuntime>(
        GestureRuntime::Parts{ports.engine, store, dispatcher(), ports.clickTap, ports.session});
    runtime->start();
}

void AppDelegate::devicesMayHaveChanged() {
    if (runtime != nullptr) {
        runtime->accessMayHaveChanged();
    }
}

void AppDelegate::toggleEnabled() {
    dispatcher()->setMasterEnabled(!dispatcher()->masterEnabled());
}

void AppDelegate::openSettings() {
    showSettings();
}

void AppDelegate::showSettings() {
    if (settingsWindow == nullptr) {
        settingsWindow = ports.makeSettingsWindow({store, dispatcher(), updateChecker});
        if (mainMenu != nullptr) {
            mainMenu->installIn(*settingsWindow);
        }
    }
    settingsWindow->setWindowState(settingsWindow->windowState() & ~Qt::WindowMinimized);
    settingsWindow->show();
    ports.shell->activate(*settingsWindow);
    showNoStatusBarInFront();
}

void AppDelegate::checkForUpdates() {
    updateChecker->check([weak = weak_from_this()](const UpdateResult& result) {
        if (const auto held = weak.lock()) {
            held->showResult(result);
        }
    });
}

void AppDelegate::showResult(const UpdateResult& result) {
    Alert alert([&result, current = updateChecker->currentVersion()](
                    const Lang& lang) { return updateOutcome(result, current, lang); },
                *ports.lang, windowForAlerts());
    alert.setWindowModality(Qt::ApplicationModal);
    alert.show();
    ports.shell->activate(alert);
    alert.exec(); // gestures and actions keep working in this nested event loop
    if (offersDownload(result) && alert.isFirstButtonChosen()) {
        downloadUpdate();
    }
}

QWidget* AppDelegate::windowForAlerts() const {
    return settingsWindow != nullptr && settingsWindow->isVisible() ? settingsWindow.get()
                                                                    : nullptr;
}

void AppDelegate::reportMissingStatusBar() {
    noStatusBar = std::make_unique<Alert>(noStatusBarText, *ports.lang);
    noStatusBar->setModal(false);
    noStatusBar->setAttribute(Qt::WA_ShowWithoutActivating); // the alert is not urgent
    noStatusBarWaits = true;
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, noStatusBar.get(),
                     [this] { showNoStatusBarInFront(); });
    showNoStatusBarInFront();
}

// The alert waits until the program is in front: the user did not request the alert, and Wayland
// compositors give each new window the keyboard focus.
void AppDelegate::showNoStatusBarInFront() {
    if (!noStatusBarWaits) {
        return;
    }
    if (QGuiApplication::applicationState() != Qt::ApplicationActive ||
        windowForAlerts() == nullptr) {
        logLine("status bar", "missing; the alert waits until Glidemap is in front");
        return;
    }
    noStatusBarWaits = false;
    logLine("status bar", "missing; the alert is shown");
    noStatusBar->show();
}

void AppDelegate::withdrawMissingStatusBar() {
    noStatusBarWaits = false;
    noStatusBar.reset();
}

void AppDelegate::downloadUpdate() {
    ports.workspace->openURL(updateChecker->siteURL());
}

} // namespace glidemap
