#include "platform/linux/session/linux_screen_lock.h"

#include "core/log.h"
#include "platform/linux/desktop/application_scope.h"
#include "platform/linux/desktop/desktop_bus.h"
#include "platform/linux/desktop/detached_process.h"
#include "platform/linux/desktop/environment.h"
#include "platform/linux/desktop/program_run.h"
#include "platform/linux/session/screen_savers.h"
#include "platform/linux/session/session_lockers.h"

#include <gio/gio.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace glidemap {

namespace {

constexpr const char* logind = "org.freedesktop.login1";
constexpr const char* sessionInterface = "org.freedesktop.login1.Session";
// "auto" stands for the caller's session. A program that was started by the user's service manager
// belongs to no session; in this case, "auto" stands for the session of the user's display.
constexpr const char* ownSession = "/org/freedesktop/login1/session/auto";

constexpr BusMethod lockSession{Bus::system, logind, ownSession, sessionInterface, "Lock"};
constexpr BusMethod getSessionProperty{Bus::system, logind, ownSession,
                                       "org.freedesktop.DBus.Properties", "Get"};

class LockRequest : public BusRequest {
public:
    LockRequest(MainQueue& queue, LinuxScreenLock::Patience limits, std::function<void()> otherwise)
        : BusRequest(limits.answer), mainQueue(queue), patience(limits),
          refused(std::move(otherwise)) {}

    void begin() override {
        call(lockSession, nullptr, [this, kept = alive()](const BusReply& answer) {
            logindKnows = answer.values != nullptr || answer.isLate;
            answer.values != nullptr ? waitUntilLocked() : lookForLockers();
        });
    }

private:
    std::shared_ptr<LockRequest> alive() {
        return std::static_pointer_cast<LockRequest>(shared_from_this());
    }

    void waitUntilLocked() {
        watchProperties(Bus::system, logind, sessionInterface, [weak = std::weak_ptr(alive())] {
            if (const auto request = weak.lock()) {
                request->readLocked();
            }
        });
        after(patience.locked, [this, kept = alive()] {
            stopWaiting();
            if (!locked) {
                lookForLockers();
            }
        });
        readLocked();
    }

    // Reads LockedHint. If the reply confirms the lock only after the first screen saver was
    // called, the remaining screen savers are skipped.
    void readLocked() {
        call(getSessionProperty, g_variant_new("(ss)", sessionInterface, "LockedHint"),
             [this, kept = alive()](const BusReply& answer) {
                 if (booleanIn(answer.values).value_or(false)) {
                     locked = true;
                     stopWaiting();
                 }
             });
    }

    // Does not start a second locker if a locker already covers the screen or is about to cover it.
    void lookForLockers() {
        lockers = SessionLockers::ofThisSession();
        if (lockers->isLocked()) {
            logLine("services", "a locker is already running");
        } else if (logindKnows && lockers->listensToLogind()) {
            logLine("services", "a locker listens to logind");
        } else {
            askRunning(0);
        }
    }

    // Calls running services first, because a service that D-Bus can start may belong to a desktop
    // that is installed but not running.
    void askRunning(std::size_t index) {
        if (index == savers.size()) {
            startMissing(0);
            return;
        }
        ask(savers[index], IfNotRunning::leave,
            [this, kept = alive(), index](const BusReply& answer) {
                mayComeUp = mayComeUp || answer.isLate;
                if (answer.serviceMissing && belongsTo(savers[index], currentDesktop)) {
                    missing.push_back(index);
                }
                if (answer.values == nullptr && !locked) {
                    askRunning(index + 1);
                }
            });
    }

    void startMissing(std::size_t number) {
        if (number == missing.size()) {
            runLocker(0);
            return;
        }
        ask(savers[missing[number]], IfNotRunning::start,
            [this, kept = alive(), number](const BusReply& answer) {
                mayComeUp = mayComeUp || answer.isLate;
                if (answer.values == nullptr && !locked) {
                    startMissing(number + 1);
                }
            });
    }

    void runLocker(std::size_t number) {
        if (number == lockers->commands().size()) {
            giveUp();
            return;
        }
        const LockCommand& command = lockers->commands()[number];
        logLine("services", "runs ", command.words.front(), " to lock the screen");
        if (command.stays) {
            startLocker(command, number);
            return;
        }
        after(patience.start, [this] {
            program.reset();
            mayComeUp = true;
            giveUp();
        });
        program.emplace(command.words, [weak = std::weak_ptr(alive()), number](bool succeeded) {
            if (const auto request = weak.lock()) {
                request->stopWaiting();
                if (!succeeded) {
                    request->runLocker(number + 1);
                }
            }
        });
    }

    // The locker is detached from this process. If it ended together with this process, some
    // desktops would stay locked forever.
    void startLocker(const LockCommand& command, std::size_t number) {
        const DetachedProcess started = startDetached({command.words, ownEnvironment()});
        if (started.error != 0) {
            runLocker(number + 1);
        } else {
            moveIntoScope("locker", started.identifier);
        }
    }

    void giveUp() {
        if (mayComeUp) {
            logLine("services", "a locker may still appear: no shortcut is typed");
        } else {
            mainQueue.submit(std::move(refused));
        }
    }

    void ask(const ScreenSaver& saver, IfNotRunning ifNotRunning, Then then) {
        call(saver.method("Lock"), saver.takesMessage ? g_variant_new("(s)", "") : nullptr,
             ifNotRunning == IfNotRunning::start ? patience.start : patience.answer, ifNotRunning,
             std::move(then));
    }

    MainQueue& mainQueue;
    const LinuxScreenLock::Patience patience;
    const std::string currentDesktop = fromEnvironment("XDG_CURRENT_DESKTOP");
    const std::vector<ScreenSaver> savers = screenSaversFor(currentDesktop);
    std::function<void()> refused;
    bool locked = false;
    bool logindKnows = false;
    bool mayComeUp = false;
    std::vector<std::size_t> missing;
    std::optional<SessionLockers> lockers;
    std::optional<ProgramRun> program;
};

} // namespace

LinuxScreenLock::LinuxScreenLock(DesktopThread& desktop, MainQueue& queue)
    : LinuxScreenLock(desktop, queue, Patience()) {}

LinuxScreenLock::LinuxScreenLock(DesktopThread& desktop, MainQueue& queue, Patience limits)
    : mainQueue(queue), patience(limits), requests(desktop) {}

bool LinuxScreenLock::find() {
    return true;
}

void LinuxScreenLock::lock(std::function<void()> otherwise) {
    requests.start(std::make_shared<LockRequest>(mainQueue, patience, std::move(otherwise)));
}

} // namespace glidemap
