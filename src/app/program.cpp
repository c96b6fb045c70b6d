// The wiring diagram: creates the concrete services and connects them. All other code is elsewhere.
#include "app/program.h"

#include "app/alert.h"
#include "app/app_delegate.h"
#include "app/refusal.h"
#include "bindings/keyboard_kind.h"
#include "core/lang.h"
#include "core/log.h"
#include "input/multitouch_device_manager.h"
#include "platform/home.h"
#include "platform/qt/qt_main_queue.h"
#include "platform/qt/session_end.h"
#include "platform/qt/single_instance.h"
#include "platform/qt/termination_signals.h"
#include "ui/settings/settings_window.h"
#include "ui/theme/application_icon.h"
#include "ui/theme/template_icon.h"
#include "ui/theme/theme.h"

#include <QApplication>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>

namespace glidemap {

namespace {

constexpr const char* applicationID = "org.glidemap.Glidemap";

// Desktop services that do not respond delay the exit by at most this time. Desktops and users wait
// some seconds before they kill a program.
constexpr std::chrono::milliseconds endLimit{1500};

// Qt gets only the program's name: the options are not Qt's.
constexpr int onlyTheName = 1;

// The program's delegate, for endInOrder(), which takes no argument.
std::weak_ptr<AppDelegate> theDelegate;

// When the connection to the display breaks, Qt exits the process. Release the touchpads even then.
void endInOrder() {
    if (const auto held = theDelegate.lock()) {
        held->applicationWillTerminate();
    }
}

void complain(const std::string& message) {
    std::cerr << "glidemap: " << message << std::endl;
}

class Program {
public:
    explicit Program(QApplication& application);

    void run(SingleInstance& instance);

private:
    AppDelegate::Ports delegatePorts();
    std::shared_ptr<UpdateChecker> makeUpdateChecker();
    std::shared_ptr<GestureDispatcher> makeDispatcher(std::shared_ptr<BindingStore> store);
    std::unique_ptr<StatusItem> makeStatusItem();
    std::unique_ptr<QWidget> makeSettingsWindow(const AppDelegate::Shown& shown);

    std::shared_ptr<UserDefaults> defaults = Home::userDefaults();
    std::shared_ptr<QtMainQueue> mainQueue = std::make_shared<QtMainQueue>();
    std::unique_ptr<Home> home = Home::make(mainQueue);
    const Home::Ports& ports = home->ports();
    std::shared_ptr<AppDelegate> delegate;
};

Program::Program(QApplication& application) {
    Lang::configureShared(defaults);
    Theme::configureShared(ports.appearance);
    Theme::shared().applyTo(application);
    setUsualKeyboard(ports.keyboardKind);
    delegate = AppDelegate::create(delegatePorts());
    theDelegate = delegate;
    home->onDevicesChanged = [this] {
        delegate->devicesMayHaveChanged();
    };
    home->onReopen = [this] {
        delegate->showSettings();
    };
}

AppDelegate::Ports Program::delegatePorts() {
    return {
        .shell = ports.shell,
        .trust = ports.trust,
        .workspace = ports.workspace,
        .clickTap = ports.clickTap,
        .session = ports.session,
        .engine = TouchEngine::shared(),
        .makeStore = [this] { return std::make_shared<BindingStore>(ports.dataFolder); },
        .makeUpdateChecker = [this] { return makeUpdateChecker(); },
        .makeDispatcher = [this](auto store) { return makeDispatcher(std::move(store)); },
        .makeStatusItem = [this] { return makeStatusItem(); },
        .makeSettingsWindow = [this](const auto& shown) { return makeSettingsWindow(shown); },
    };
}

std::shared_ptr<UpdateChecker> Program::makeUpdateChecker() {
    UpdateChecker::Setup setup;
    setup.currentVersion = ports.version;
    return UpdateChecker::create(std::move(setup));
}

std::shared_ptr<GestureDispatcher> Program::makeDispatcher(std::shared_ptr<BindingStore> store) {
    return GestureDispatcher::create({
        .store = std::move(store),
        .defaults = defaults,
        .mainQueue = mainQueue,
        .workspace = ports.workspace,
        .actionRunner = std::make_shared<ActionRunner>(
            ActionRunner::Ports{ports.workspace, ports.keyboard, ports.screenLock, ports.session}),
        .session = ports.session,
    });
}

std::unique_ptr<StatusItem> Program::makeStatusItem() {
    constexpr const char* symbol = "hand.draw.fill";
    constexpr double dimmedIcon = 0.45; // like the installed icon
    auto item = std::make_unique<StatusItem>(
        ports.statusBar, [on = ports.installedIcon, off = ports.installedIconOff](
                             StatusBar::Kind kind, StatusItem::Look look) {
            const bool isOn = look == StatusItem::Look::on;
            const double strength = isOn ? 1 : dimmedIcon;
            switch (kind) {
            case StatusBar::Kind::drawsItself:
                return themedTemplateIcon(isOn ? on : off, symbol, strength);
            case StatusBar::Kind::opensMenu:
                return plainTemplateIcon(symbol, strength);
            default:
                return drawnTemplateIcon(symbol, strength);
            }
        });
    item->redrawOn(Theme::shared().changes());
    return item;
}

std::unique_ptr<QWidget> Program::makeSettingsWindow(const AppDelegate::Shown& shown) {
    const SettingsView::Services services{
        .store = shown.store,
        .dispatcher = shown.dispatcher,
        .updates = shown.updateChecker,
        .workspace = ports.workspace,
        .trust = ports.trust,
        .loginItems = ports.loginItems,
        .keys = ports.keyPresses,
        .devices = &MultitouchDeviceManager::shared(),
        .desktopHelper = ports.desktopHelper,
        .notes = ports.notes,
    };
    return std::make_unique<SettingsWindow>(services, ports.windowGeometry);
}

void Program::run(SingleInstance& instance) {
    const TerminationSignals endings([this] { ports.shell->terminate(); }, endLimit);
    const SessionEnd sessionEnd([this] { ports.shell->terminate(); });
    const auto listenError = instance.listen([this](const SingleInstance::Request& request) {
        home->takeActivationToken(request);
        delegate->showSettings();
    });
    if (listenError) {
        complain("cannot listen for a second launch: " + *listenError);
    }
    mainQueue->submit([this] { delegate->applicationDidFinishLaunching(); });
    QApplication::exec();
    instance.stopListening();
    endings.limitEnd();
    delegate->applicationWillTerminate();
}

void introduce() {
    QApplication::setApplicationName("Glidemap"); // also the window class on X11
    QApplication::setApplicationVersion(GLIDEMAP_VERSION);
    QGuiApplication::setDesktopFileName(applicationID);
    if (Home::windowsHaveIcons()) {
        QGuiApplication::setWindowIcon(applicationIcon());
    }
}

void runFirst(SingleInstance& instance, char** arguments) {
    const auto finishBeginning = Home::begin();
    int count = onlyTheName;
    QApplication application(count, arguments);
    introduce();
    finishBeginning();
    Program program(application);
    std::atexit(endInOrder);
    program.run(instance);
}

// Shows the message on screen, too: a user who starts the program by its icon sees no terminal.
int refuse(const char* complaint, AlertText (*text)(const Lang&), char** arguments) {
    complain(complaint);
    if (Home::hasDisplay()) {
        const auto finishBeginning = Home::begin();
        int count = onlyTheName;
        QApplication application(count, arguments);
        introduce();
        finishBeginning();
        QtMainQueue mainQueue;
        Lang::configureShared(Home::userDefaults());
        const Home::AppearanceAlone appearance = Home::appearanceAlone(mainQueue);
        Theme::configureShared(appearance.settings);
        Theme::shared().applyTo(application);
        Alert(text, Lang::shared()).exec();
    }
    return EXIT_FAILURE;
}

int launch(char** arguments) {
    SingleInstance instance(Home::runtimeFolder());
    switch (instance.claim(Home::activationToken())) {
    case SingleInstance::Claim::shown:
        logLine("start",
                "Glidemap runs already and shows its window; end it to log from the start");
        return EXIT_SUCCESS;
    case SingleInstance::Claim::unanswered:
        return refuse("already running, but not responding", unansweredText, arguments);
    case SingleInstance::Claim::impossible:
        return refuse("cannot check for a running instance: no folder for the lock file",
                      withoutLockText, arguments);
    case SingleInstance::Claim::first:
        break;
    }
    runFirst(instance, arguments);
    return EXIT_SUCCESS;
}

// Skips destructors: a thread may still wait for a bus, and would block an ordinary exit.
[[noreturn]] void diagnose() {
    std::cout << Home::diagnosis(GLIDEMAP_VERSION) << std::flush;
    std::_Exit(std::cout.good() ? EXIT_SUCCESS : EXIT_FAILURE);
}

} // namespace

int runProgram(LaunchOption option, char** arguments) {
    if (option == LaunchOption::diagnose) {
        diagnose();
    }
    if (option == LaunchOption::runVerbosely) {
        enableLog();
    }
    return launch(arguments);
}

} // namespace glidemap
