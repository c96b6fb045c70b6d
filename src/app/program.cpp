// Creates the concrete services, connects them, and runs the program.
#include "app/program.h"

#include "app/alert.h"
#include "app/alert_texts.h"
#include "app/app_delegate.h"
#include "bindings/keyboard_kind.h"
#include "core/lang.h"
#include "core/log.h"
#include "input/multitouch_device_manager.h"
#include "platform/qt/qt_main_queue.h"
#include "platform/qt/session_end.h"
#include "platform/qt/single_instance.h"
#include "platform/qt/termination_signals.h"
#include "platform/services.h"
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

// The maximum time for which unresponsive desktop services may delay the exit. It is shorter than
// the few seconds after which desktops and users kill a program.
constexpr std::chrono::milliseconds endLimit{1500};

// Qt gets only the program's name as an argument, because Qt's parser could misread Glidemap's own
// options.
constexpr int onlyTheName = 1;

// The program's delegate; global, because endInOrder() is called without arguments.
std::weak_ptr<AppDelegate> theDelegate;

// An exit handler: when the connection to the display breaks, Qt exits the process, and the
// touchpads must be released even then.
void endInOrder() {
    if (const auto held = theDelegate.lock()) {
        held->applicationWillTerminate();
    }
}

void complain(const std::string& message) {
    std::cerr << "glidemap: " << message << std::endl;
}

// Services may send events before the delegate exists. Such events can be ignored, because the
// delegate checks the devices and shows the window when it starts.
platform::SystemEvents systemEvents() {
    return {
        .devicesMayHaveChanged =
            [] {
                if (const auto held = theDelegate.lock()) {
                    held->devicesMayHaveChanged();
                }
            },
        .reopened =
            [] {
                if (const auto held = theDelegate.lock()) {
                    held->showSettings();
                }
            },
    };
}

class Program {
public:
    Program(QApplication& application, const SingleInstance::Request& activation);

    void run(SingleInstance& instance);

private:
    AppDelegate::Ports delegatePorts();
    std::shared_ptr<UpdateChecker> makeUpdateChecker();
    std::shared_ptr<GestureDispatcher> makeDispatcher(std::shared_ptr<BindingStore> store);
    std::unique_ptr<StatusItem> makeStatusItem();
    std::unique_ptr<QWidget> makeSettingsWindow(const AppDelegate::Shown& shown);

    std::shared_ptr<UserDefaults> defaults = platform::makeUserDefaults();
    std::shared_ptr<QtMainQueue> mainQueue = std::make_shared<QtMainQueue>();
    const platform::Services services;
    std::shared_ptr<AppDelegate> delegate;
};

Program::Program(QApplication& application, const SingleInstance::Request& activation)
    : services(platform::makeServices(mainQueue, activation, systemEvents())) {
    Lang::configureShared(defaults);
    Theme::configureShared(services.appearance);
    Theme::shared().applyTo(application);
    setUsualKeyboard(services.keyboardKind);
    delegate = AppDelegate::create(delegatePorts());
    theDelegate = delegate;
}

AppDelegate::Ports Program::delegatePorts() {
    return {
        .shell = services.shell,
        .trust = services.trust,
        .workspace = services.workspace,
        .clickTap = services.clickTap,
        .session = services.session,
        .engine = TouchEngine::shared(),
        .makeStore = [this] { return std::make_shared<BindingStore>(services.dataFolder); },
        .makeUpdateChecker = [this] { return makeUpdateChecker(); },
        .makeDispatcher = [this](auto store) { return makeDispatcher(std::move(store)); },
        .makeStatusItem = [this] { return makeStatusItem(); },
        .makeSettingsWindow = [this](const auto& shown) { return makeSettingsWindow(shown); },
    };
}

std::shared_ptr<UpdateChecker> Program::makeUpdateChecker() {
    UpdateChecker::Setup setup;
    setup.currentVersion = services.version;
    return UpdateChecker::create(std::move(setup));
}

std::shared_ptr<GestureDispatcher> Program::makeDispatcher(std::shared_ptr<BindingStore> store) {
    return GestureDispatcher::create({
        .store = std::move(store),
        .defaults = defaults,
        .mainQueue = mainQueue,
        .workspace = services.workspace,
        .actionRunner = std::make_shared<ActionRunner>(ActionRunner::Ports{
            services.workspace, services.keyboard, services.screenLock, services.session}),
        .session = services.session,
    });
}

std::unique_ptr<StatusItem> Program::makeStatusItem() {
    constexpr const char* symbol = "hand.draw.fill";
    // The opacity while gestures are off, as in the installed icon for this state.
    constexpr double dimmedIcon = 0.45;
    auto item = std::make_unique<StatusItem>(
        services.statusBar, [on = services.installedIcon, off = services.installedIconOff](
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
    const SettingsView::Services settingsServices{
        .store = shown.store,
        .dispatcher = shown.dispatcher,
        .updates = shown.updateChecker,
        .workspace = services.workspace,
        .trust = services.trust,
        .loginItems = services.loginItems,
        .keys = services.keyPresses,
        .devices = &MultitouchDeviceManager::shared(),
        .desktopHelper = services.desktopHelper,
        .notes = services.notes,
    };
    return std::make_unique<SettingsWindow>(settingsServices, services.windowGeometry);
}

void Program::run(SingleInstance& instance) {
    const TerminationSignals endings([this] { services.shell->terminate(); }, endLimit);
    const SessionEnd sessionEnd([this] { services.shell->terminate(); });
    const auto listenError = instance.listen([this](const SingleInstance::Request& request) {
        services.useActivationToken(request);
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
    QApplication::setApplicationName("Glidemap"); // X11 also uses this name as the window class
    QApplication::setApplicationVersion(GLIDEMAP_VERSION);
    QGuiApplication::setDesktopFileName(applicationID);
    if (platform::windowsHaveIcons()) {
        QGuiApplication::setWindowIcon(applicationIcon());
    }
}

// Creates the QApplication. While Qt connects to the display, another thread reads the font list.
class Application {
public:
    explicit Application(char** arguments) : object(count, arguments) {
        introduce();
        awaitFonts();
        restoreBus();
    }

private:
    const std::function<void()> restoreBus = platform::hideSilentBus();
    const std::function<void()> awaitFonts = platform::startFontScan();
    int count = onlyTheName;

public:
    QApplication object;
};

void runFirst(SingleInstance& instance, const SingleInstance::Request& activation,
              char** arguments) {
    Application application(arguments);
    Program program(application.object, activation);
    std::atexit(endInOrder);
    program.run(instance);
}

// Shows the message on the screen as well as on standard error, because a user who starts the
// program by clicking its icon sees no terminal.
int refuse(const char* complaint, AlertText (*text)(const Lang&),
           const SingleInstance::Request& activation, char** arguments) {
    complain(complaint);
    if (platform::hasDisplay()) {
        Application application(arguments);
        QtMainQueue mainQueue;
        Lang::configureShared(platform::makeUserDefaults());
        const platform::AlertServices services = platform::makeAlertServices(mainQueue, activation);
        Theme::configureShared(services.appearance);
        Theme::shared().applyTo(application.object);
        Alert(text, Lang::shared()).exec();
    }
    return EXIT_FAILURE;
}

int launch(char** arguments) {
    const SingleInstance::Request activation = platform::takeActivationToken();
    SingleInstance instance(platform::runtimeFolder());
    switch (instance.claim(activation)) {
    case SingleInstance::Claim::shown:
        logLine(
            "start",
            "Glidemap is already running and has shown its window; quit it to log from startup");
        return EXIT_SUCCESS;
    case SingleInstance::Claim::unanswered:
        return refuse("already running, but not responding", unansweredText, activation, arguments);
    case SingleInstance::Claim::impossible:
        return refuse("cannot check for a running instance: no folder for the lock file",
                      withoutLockText, activation, arguments);
    case SingleInstance::Claim::first:
        break;
    }
    runFirst(instance, activation, arguments);
    return EXIT_SUCCESS;
}

// Exits without running destructors. A thread may still be waiting for a bus and would block a
// normal exit.
[[noreturn]] void diagnose() {
    std::cout << platform::diagnosis(GLIDEMAP_VERSION) << std::flush;
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
