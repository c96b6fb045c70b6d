#include "dispatch/gesture_dispatcher.h"

#include "core/log.h"

#include <utility>
#include <variant>

namespace glidemap {

namespace {

bool isDirectedCircle(GestureType gesture) {
    return category(gesture) == GestureCategory::circle &&
           direction(gesture) != GestureDirection::any;
}

// Logs the application's identifier, not its name, which can be a window title.
void logDecision(GestureType gesture, const std::optional<std::string>& application,
                 const GestureBinding* binding) {
    if (isLogging()) {
        const std::string action =
            binding != nullptr ? "bound to " + std::string(kindOf(binding->action)) : "not bound";
        logLine("gestures", rawValue(gesture), " in ", application.value_or("(unknown)"), ": ",
                action);
    }
}

} // namespace

std::shared_ptr<GestureDispatcher> GestureDispatcher::create(Ports ports) {
    return std::make_shared<GestureDispatcher>(ConstructionKey{}, std::move(ports));
}

GestureDispatcher::GestureDispatcher(ConstructionKey /*key*/, Ports ports)
    : ports(std::move(ports)), mainQueue(this->ports.mainQueue, this->ports.clock),
      _masterEnabled(this->ports.defaults->boolean(masterEnabledKey).value_or(true)) {}

bool GestureDispatcher::handle(GestureType gesture, bool execute) {
    if (!masterEnabled()) {
        logLine("gestures", rawValue(gesture), " dropped: Glidemap is switched off");
        return false;
    }
    Application application = frontmost();
    Binding binding = resolveBinding(gesture, application.bundleID);
    const bool isFound = binding != nullptr && mayRun(*binding);
    logDecision(gesture, application.bundleID, binding.get());
    GestureLogEntry entry = makeEntry(gesture, binding.get(), std::move(application.name));
    const bool runs = execute && isFound;
    if (runs) {
        runLater(std::move(binding));
    }
    if (!isLocked()) {
        logLater(std::move(entry), runs ? TimelyQueue::IfLate::drop : TimelyQueue::IfLate::run);
    }
    return isFound;
}

bool GestureDispatcher::handleClickGesture(GestureType gesture) {
    if (!masterEnabled()) {
        logLine("gestures", rawValue(gesture), " dropped: Glidemap is switched off");
        return false;
    }
    if (mainQueue.isStalled()) {
        logLine("gestures", rawValue(gesture), " passed through: the main thread hangs");
        return false;
    }
    Application application = frontmost();
    Binding binding = resolveBinding(gesture, application.bundleID);
    logDecision(gesture, application.bundleID, binding.get());
    if (!binding || !mayRun(*binding)) {
        return false;
    }
    mainQueue.submit(TimelyQueue::IfLate::drop, [weakly = weak_from_this(), gesture,
                                                 binding = std::move(binding),
                                                 appName = std::move(application.name)] {
        if (const auto dispatcher = weakly.lock()) {
            dispatcher->ports.actionRunner->perform(binding->action);
            dispatcher->log(dispatcher->makeEntry(gesture, binding.get(), appName));
        }
    });
    return true;
}

// Saves the switch's current state, not `enabled`, because an observer may have set the switch
// again.
void GestureDispatcher::setMasterEnabled(bool enabled) {
    observers.announceWillChange();
    _masterEnabled.store(enabled);
    observers.announceDidChange();
    ports.defaults->setBoolean(masterEnabledKey, masterEnabled());
}

std::shared_ptr<const GestureBinding>
GestureDispatcher::resolveBinding(GestureType gesture,
                                  std::optional<std::string_view> bundleID) const {
    Binding binding = ports.store->match(gesture, bundleID);
    if (!binding && isDirectedCircle(gesture)) {
        binding = ports.store->match(GestureType::drawCircle, bundleID);
    }
    return binding;
}

bool GestureDispatcher::mayRun(const GestureBinding& binding) const {
    return !isLocked() || std::holds_alternative<LockScreen>(binding.action);
}

GestureLogEntry GestureDispatcher::makeEntry(GestureType gesture, const GestureBinding* binding,
                                             std::optional<std::string> appName) const {
    GestureLogEntry entry;
    entry.date = ports.wallClock();
    entry.gesture = gesture;
    if (binding != nullptr) {
        entry.matchedAction = displayString(binding->action, *ports.lang);
    }
    entry.appName = std::move(appName);
    return entry;
}

// Submits only the action. logLater() submits the log entry as a separate task, so that other
// main-thread work can run between them.
void GestureDispatcher::runLater(Binding binding) {
    mainQueue.submit(TimelyQueue::IfLate::drop,
                     [weakly = weak_from_this(), held = std::move(binding)] {
                         if (const auto dispatcher = weakly.lock()) {
                             dispatcher->ports.actionRunner->perform(held->action);
                         }
                     });
}

void GestureDispatcher::logLater(GestureLogEntry entry, TimelyQueue::IfLate ifLate) {
    mainQueue.submit(ifLate, [weakly = weak_from_this(), held = std::move(entry)] {
        if (const auto dispatcher = weakly.lock()) {
            dispatcher->log(held);
        }
    });
}

// The list of recent gestures must not show gestures that were made while the session was locked.
void GestureDispatcher::log(GestureLogEntry entry) {
    if (isLocked()) {
        return;
    }
    observers.announceWillChange();
    _recentEvents.insert(_recentEvents.begin(), std::move(entry));
    if (_recentEvents.size() > maxRecentEvents) {
        _recentEvents.resize(maxRecentEvents);
    }
    observers.announceDidChange();
}

} // namespace glidemap
