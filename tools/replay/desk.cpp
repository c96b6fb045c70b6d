#include "desk.h"

#include "core/user_defaults.h"
#include "dispatch/click_tap.h"
#include "dispatch/key_event_poster.h"
#include "dispatch/screen_lock.h"
#include "dispatch/workspace.h"

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace glidemap::replay {

// The following classes simulate the system for a run: every feature exists, no action takes
// effect, and each action is reported to the listener.

class SimulatedKeyEvents : public KeyEventPoster {
public:
    using Listener = std::function<void(const KeyEvent&)>;

    explicit SimulatedKeyEvents(Listener notify) : notify(std::move(notify)) {}

    void post(std::span<const KeyEvent> events) override {
        for (const KeyEvent& event : events) {
            notify(event);
        }
    }

private:
    Listener notify;
};

class SimulatedScreenLock : public ScreenLock {
public:
    explicit SimulatedScreenLock(std::function<void()> notify) : notify(std::move(notify)) {}

    bool find() override { return true; }
    void lock(std::function<void()> /*otherwise*/) override { notify(); }

private:
    std::function<void()> notify;
};

// Takes the frontmost application from the recording; every application is installed.
class SimulatedWorkspace : public Workspace {
public:
    struct Listeners {
        std::function<void(const std::string& bundleID)> launched;
        std::function<void()> missionControl;
    };

    explicit SimulatedWorkspace(Listeners notify) : notify(std::move(notify)) {}

    void setFrontmost(Application application) { frontmost = std::move(application); }

    Application frontmostApplication() const override { return frontmost; }
    std::vector<Application> runningApplications() const override { return {}; }

    // The identifier serves as the URL, because openApplication() needs nothing else.
    std::optional<std::string> urlForApplication(const std::string& bundleID) const override {
        return bundleID;
    }

    void openApplication(const std::string& url) override { notify.launched(url); }
    void openMissionControl() override { notify.missionControl(); }
    void openAccessibilitySettings() override {}
    void openURL(const std::string& /*url*/) override {}

private:
    Listeners notify;
    Application frontmost;
};

// Receives its events from the recording.
class SimulatedClickTap : public ClickTap {
public:
    bool create(Callback newCallback) override {
        callback = std::move(newCallback);
        return true;
    }

    void setEnabled(bool enabled) override { isEnabled = enabled; }
    void remove() override { callback = {}; }
    void setNeeded(bool /*needed*/) override {}

    bool isDropped(const ClickEvent& event) const {
        return isEnabled && callback && callback(event) == Verdict::drop;
    }

private:
    Callback callback;
    bool isEnabled = false;
};

// Has no stored settings and ignores writes.
class SimulatedUserDefaults : public UserDefaults {
public:
    std::optional<std::string> string(std::string_view /*key*/) const override { return {}; }
    void setString(std::string_view /*key*/, std::string_view /*value*/) override {}
    std::optional<bool> boolean(std::string_view /*key*/) const override { return {}; }
    void setBoolean(std::string_view /*key*/, bool /*value*/) override {}
};

namespace {

// The click tap's button numbers. The tap does not receive events of the middle button.
constexpr std::int32_t leftButton = 0;
constexpr std::int32_t rightButton = 1;

std::optional<ClickEvent> clickEvent(const ButtonRecord& record) {
    switch (record.button) {
    case leftButton:
        return ClickEvent{record.down ? ClickEventType::leftMouseDown : ClickEventType::leftMouseUp,
                          record.button};
    case rightButton:
        return ClickEvent{record.down ? ClickEventType::rightMouseDown
                                      : ClickEventType::rightMouseUp,
                          record.button};
    default:
        return std::nullopt;
    }
}

// A recording contains an empty name for an application without a name.
std::optional<std::string> nonEmpty(const std::string& text) {
    return text.empty() ? std::nullopt : std::optional(text);
}

} // namespace

SimulatedDesktop::SimulatedDesktop(BindingList bindings, const VirtualTime& time,
                                   const std::shared_ptr<TouchEngine>& engine, Listener listener)
    : time(time), listener(std::move(listener)),
      store(std::make_shared<BindingStore>(std::move(bindings))),
      workspace(std::make_shared<SimulatedWorkspace>(SimulatedWorkspace::Listeners{
          .launched = [this](const std::string& bundleID) { reportLaunch(bundleID); },
          .missionControl =
              [this] {
                  this->listener(Performed{this->time.now(), MissionControl{}});
              }})),
      tap(std::make_shared<SimulatedClickTap>()),
      dispatcher(GestureDispatcher::create(
          {.store = store,
           .defaults = std::make_shared<SimulatedUserDefaults>(),
           .mainQueue = time.mainQueue(),
           .workspace = workspace,
           .actionRunner = std::make_shared<ActionRunner>(simulatedPorts())})),
      runtime({engine, store, dispatcher, tap}) {
    watch();
}

void SimulatedDesktop::watch() {
    runtime.engine().onGesture = [this, deliver = runtime.engine().onGesture](GestureType gesture) {
        delivered = route(gesture);
        deliver(gesture);
    };
    runtime.clickMonitor().onClickGesture =
        [this, decide = runtime.clickMonitor().onClickGesture](GestureType click) {
            Routing routing = route(click);
            const bool isConsumed = decide(click);
            if (isConsumed) {
                consumedClick = {click, std::move(routing)};
            }
            return isConsumed;
        };
}

ActionRunner::Ports SimulatedDesktop::simulatedPorts() {
    return {.workspace = workspace,
            .keyEvents = std::make_shared<SimulatedKeyEvents>([this](const KeyEvent& event) {
                listener(KeyPosted{time.now(), event});
            }),
            .screenLock = std::make_shared<SimulatedScreenLock>([this] {
                listener(Performed{time.now(), LockScreen{}});
            })};
}

void SimulatedDesktop::change(const ButtonRecord& button) {
    consumedClick.reset();
    const auto event = clickEvent(button);
    const bool isSwallowed = event && tap->isDropped(*event);
    listener(ButtonChanged{button.time, button.button, button.down, isSwallowed, consumedClick});
}

void SimulatedDesktop::activate(const FrontmostRecord& frontmost) {
    const auto& application = frontmost.application;
    workspace->setFrontmost(application
                                ? Application{application->bundleID, nonEmpty(application->name)}
                                : Application{});
}

// Finds the binding in advance. The dispatcher will find the same one, because the bindings do not
// change in between.
Routing SimulatedDesktop::route(GestureType gesture) {
    Application frontmost = dispatcher->frontmost();
    routed = dispatcher->resolveBinding(gesture, frontmost.bundleID);
    Routing routing;
    if (routed) {
        routing.bindingID = routed->id.text();
        routing.action = displayString(routed->action);
    }
    routing.app = std::move(frontmost.name);
    return routing;
}

// The workspace receives only the identifier, so the name comes from the binding.
void SimulatedDesktop::reportLaunch(const std::string& bundleID) {
    const auto* const launch = std::get_if<LaunchApp>(&routed->action);
    listener(Performed{time.now(),
                       LaunchApp{bundleID, launch != nullptr ? launch->name : std::string()}});
}

} // namespace glidemap::replay
