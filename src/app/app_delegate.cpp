#include "app/app_delegate.h"

#include "app/update_alert.h"

#include <QAction>
#include <QKeySequence>
#include <QWidget>
#include <string>
#include <utility>

namespace glidemap {

namespace {

// A single & would underline the letter behind it.
QString menuTitle(const std::string& title) {
    return QString::fromStdString(title).replace('&', "&&");
}

} // namespace

std::shared_ptr<AppDelegate> AppDelegate::create(Ports ports) {
    return std::make_shared<AppDelegate>(ConstructionKey(), std::move(ports));
}

AppDelegate::AppDelegate(ConstructionKey /*key*/, Ports given)
    : ports(std::move(given)), store(ports.makeStore()), updateChecker(ports.makeUpdateChecker()),
      clickMonitor(std::make_unique<ClickMonitor>(
          ports.clickTap, [engine = ports.engine] { return engine->touchingCount(); })) {}

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
    ports.trust
        ->isTrustedWithPrompt(); // whatever it is: what needs access meets the refusal itself
    dispatcher();
    updateChecker->start();
    connectEngine();
    ports.engine->start();
    startClicks();
    showSettings();
}

void AppDelegate::applicationWillTerminate() {
    if (std::exchange(isTerminated, true)) {
        return;
    }
    ports.engine->stop();
    clickMonitor->stop();
}

void AppDelegate::setupMainMenu() {
    mainMenu = std::make_unique<MainMenu>([shell = ports.shell] { shell->terminate(); });
}

void AppDelegate::setupStatusItem() {
    statusItem = ports.makeStatusItem();
    statusItem->onActivate = [weak = weak_from_this()] {
        if (const auto held = weak.lock()) {
            held->openSettings();
        }
    };
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
                     [weak = weak_from_this()] {
                         if (const auto held = weak.lock()) {
                             held->menuNeedsUpdate();
                         }
                     });
}

// Without a title: that comes when the menu opens.
QAction* AppDelegate::addStatusMenuItem(void (AppDelegate::*action)(), const char* keys) {
    QAction* item = statusItem->menu().addAction(QString());
    item->setShortcut(QKeySequence(keys));
    QObject::connect(item, &QAction::triggered, item, [weak = weak_from_this(), action] {
        if (const auto held = weak.lock()) {
            (held.get()->*action)();
        }
    });
    return item;
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

void AppDelegate::connectEngine() {
    ports.engine->onGesture = [weak = weak_from_this()](GestureType gesture) {
        if (const auto held = weak.lock()) {
            held->dispatcher()->handle(gesture, true);
        }
    };
    ports.engine->sessionRecognizer().doubleTapBindingExists = [weak =
                                                                    weak_from_this()](int count) {
        const auto held = weak.lock();
        return held != nullptr && held->doubleTapBindingExists(count);
    };
}

bool AppDelegate::doubleTapBindingExists(int fingerCount) const {
    return store->doubleTapBindingExists(fingerCount);
}

void AppDelegate::startClicks() {
    clickMonitor->onClickGesture = [weak = weak_from_this()](GestureType gesture) {
        const auto held = weak.lock();
        return held != nullptr && held->dispatcher()->handleClickGesture(gesture);
    };
    // Before the monitor runs: a tap that nobody needs does not even begin.
    clickDemand = std::make_unique<ClickDemand>(dispatcher(), ports.clickTap);
    clickMonitor->start();
}

void AppDelegate::accessMayHaveChanged() {
    if (!isTerminated) {
        clickMonitor->start();
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
}

void AppDelegate::checkForUpdates() {
    updateChecker->check([weak = weak_from_this()](const UpdateResult& result) {
        if (const auto held = weak.lock()) {
            held->showResult(result);
        }
    });
}

void AppDelegate::showResult(const UpdateResult& result) {
    const bool isNewer = std::holds_alternative<std::optional<std::string>>(result) &&
                         std::get<std::optional<std::string>>(result).has_value();
    const bool windowIsOpen = settingsWindow != nullptr && settingsWindow->isVisible();
    UpdateAlert alert(updateAlertText(result, updateChecker->currentVersion(), *ports.lang),
                      windowIsOpen ? settingsWindow.get() : nullptr);
    alert.setWindowModality(Qt::ApplicationModal);
    alert.show();
    ports.shell->activate(alert);
    alert.exec(); // a loop of its own: gestures and their actions go on meanwhile
    if (isNewer && alert.firstButtonWasChosen()) {
        downloadUpdate();
    }
}

void AppDelegate::downloadUpdate() {
    ports.workspace->openURL(updateChecker->siteURL());
}

} // namespace glidemap
