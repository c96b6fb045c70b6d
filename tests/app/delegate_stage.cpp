#include "app/delegate_stage.h"

#include <QAction>
#include <QIcon>
#include <QPixmap>
#include <map>
#include <string>
#include <utility>

namespace glidemap::test {

namespace {

QIcon anyIcon() {
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::black);
    return pixmap;
}

} // namespace

DelegateStage* DelegateStage::current = nullptr;

// Returns a driver without devices. The manager queries the device count when it starts and when it
// looks for new devices; each query is noted as "touches".
TouchDriverPlatform DelegateStage::driver() {
    return {TEST_DRIVER, [](void*) {
                return TouchDriverPlatform::ListAccess{
                    [](driver::DeviceList) -> long {
                        const bool received = current->engine->onGesture != nullptr;
                        const bool asks =
                            current->engine->sessionRecognizer().doubleTapBindingExists != nullptr;
                        current->notes.push_back(std::string("touches") +
                                                 (received ? "" : ", no onGesture") +
                                                 (asks ? "" : ", no doubleTapBindingExists"));
                        return 0;
                    },
                    [](driver::DeviceList, long) -> const void* {
                        return nullptr;
                    }};
            }};
}

DelegateStage::DelegateStage(BindingList bindings)
    : store(std::make_shared<BindingStore>(std::move(bindings))), devices(driver()),
      engine(TouchEngine::create({time.clock(), time.queue(), time.delayedWork(), &devices})) {
    current = this;
    const auto note = [this](const std::string& call) {
        notes.push_back(call);
    };
    shell->onCall = note;
    trust->trusted = false;
    trust->onCall = note;
    clickTap->onCall = [this](const std::string& call) {
        noteClickTap(call);
    };
}

void DelegateStage::noteClickTap(const std::string& call) {
    static const std::map<std::string, std::string> words{
        {"create", "click tap"},     {"enable", "clicks on"},
        {"disable", "clicks off"},   {"remove", "no click tap"},
        {"needed", "clicks needed"}, {"not needed", "clicks not needed"}};
    const bool tooEarly = call == "disable" && receivesTouches();
    notes.push_back(words.at(call) + (tooEarly ? ", touches still received" : ""));
}

DelegateStage::~DelegateStage() {
    if (delegate != nullptr) {
        delegate->applicationWillTerminate();
    }
    delegate.reset();
    current = nullptr;
}

std::unique_ptr<StatusItem> DelegateStage::makeStatusItem() {
    notes.emplace_back("status item");
    auto made = std::make_unique<StatusItem>(
        statusBar,
        [this](StatusBar::Kind /*bar*/, StatusItem::Look look) {
            iconLooks.push_back(look);
            return anyIcon();
        },
        patienceForBar);
    statusItem = made.get();
    return made;
}

std::unique_ptr<QWidget> DelegateStage::makeWindow() {
    notes.emplace_back("settings window");
    auto made = std::make_unique<QWidget>();
    made->setWindowTitle("Glidemap");
    window = made.get();
    return made;
}

UpdateChecker::Setup DelegateStage::updates() {
    return {.host = "updates.example",
            .currentVersion = runningVersion,
            .fetch =
                [this](const std::string& url, std::function<void(const Fetched&)> done) {
                    notes.push_back("fetch " + url);
                    openChecks.push_back(std::move(done));
                },
            .repeat =
                [this](std::chrono::seconds interval, const std::function<void()>&) {
                    notes.push_back("repeat every " + std::to_string(interval.count()) + " s");
                    return std::make_shared<int>();
                }};
}

AppDelegate::Ports DelegateStage::ports() {
    return {
        .shell = shell,
        .trust = trust,
        .workspace = workspace,
        .clickTap = clickTap,
        .session = session,
        .engine = engine,
        .makeStore =
            [this] {
                notes.emplace_back("store");
                return store;
            },
        .makeUpdateChecker =
            [this] {
                notes.emplace_back("update checker");
                return UpdateChecker::create(updates());
            },
        .makeDispatcher =
            [this](std::shared_ptr<BindingStore> given) {
                notes.emplace_back(given == store ? "dispatcher" : "dispatcher of another store");
                auto made = GestureDispatcher::create(
                    {.store = std::move(given),
                     .defaults = defaults,
                     .mainQueue = mainQueue,
                     .workspace = workspace,
                     .actionRunner = std::make_shared<ActionRunner>(ActionRunner::Ports{
                         workspace, keyEvents, std::make_shared<FakeScreenLock>()}),
                     .lang = &lang});
                dispatcher = made;
                return made;
            },
        .makeStatusItem = [this] { return makeStatusItem(); },
        .makeSettingsWindow = [this](const AppDelegate::Shown&) { return makeWindow(); },
        .lang = &lang,
    };
}

void DelegateStage::touch(int fingers) const {
    std::vector<MTTouch> contacts(static_cast<std::size_t>(fingers));
    for (int finger = 0; finger < fingers; ++finger) {
        MTTouch& contact = contacts[static_cast<std::size_t>(finger)];
        contact.identifier = finger;
        contact.state = static_cast<std::int32_t>(MTTouchState::touching);
        contact.normalized.pos = {0.2F * static_cast<float>(finger + 1), 0.5F};
    }
    MultitouchDeviceManager::contactCallback(nullptr, contacts.data(), fingers, 0, 0);
}

bool DelegateStage::receivesTouches() const {
    touch(1);
    const bool received = engine->touchingCount() == 1;
    touch(0);
    return received;
}

QAction& DelegateStage::item(int place) const {
    return *statusItem->menu().actions().at(place);
}

void DelegateStage::openMenu() const {
    Q_EMIT statusItem->menu().aboutToShow();
}

std::vector<std::string> DelegateStage::titles() const {
    std::vector<std::string> titles;
    for (const QAction* action : statusItem->menu().actions()) {
        if (action->isVisible()) {
            titles.push_back(action->isSeparator() ? "-" : action->text().toStdString());
        }
    }
    return titles;
}

void DelegateStage::answerUpdateCheck(const Fetched& fetched) {
    const auto done = openChecks.front();
    openChecks.erase(openChecks.begin());
    done(fetched);
}

} // namespace glidemap::test
