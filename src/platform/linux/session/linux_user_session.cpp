#include "platform/linux/session/linux_user_session.h"

#include "core/log.h"
#include "platform/linux/desktop/desktop_bus.h"
#include "platform/linux/session/screen_savers.h"

#include <gio/gio.h>

#include <chrono>
#include <functional>
#include <set>
#include <string>
#include <utility>

namespace glidemap {

namespace {

constexpr const char* logind = "org.freedesktop.login1";
constexpr const char* sessionInterface = "org.freedesktop.login1.Session";
constexpr const char* managerInterface = "org.freedesktop.login1.Manager";
// "auto" stands for the caller's session. A program that was started by the user's service manager
// belongs to no session; in this case, "auto" stands for the session of the user's display.
constexpr BusMethod getSession{Bus::system, logind, "/org/freedesktop/login1/session/auto",
                               "org.freedesktop.DBus.Properties", "GetAll"};

constexpr const char* busDaemon = "org.freedesktop.DBus";

// A long time limit, because the machine is busy during login and nothing waits for these replies.
constexpr std::chrono::seconds patience{60};

constexpr BusRequest::Milliseconds asMilliseconds(std::chrono::seconds seconds) {
    return seconds;
}

// Returns whether another session has the screen. A closing session never counts as in the
// background: a program that was started in a terminal multiplexer during an earlier login still
// belongs to that login's closing session, which does not describe the user's current screen.
bool isInBackground(GVariantDict* session) {
    gboolean active = TRUE;
    const char* state = "";
    g_variant_dict_lookup(session, "Active", "b", &active);
    g_variant_dict_lookup(session, "State", "&s", &state);
    return active == FALSE && std::string(state) != "closing";
}

bool isLockedHint(GVariantDict* session) {
    gboolean locked = FALSE;
    g_variant_dict_lookup(session, "LockedHint", "b", &locked);
    return locked != FALSE;
}

// Follows the session's state in logind until the request is cancelled. While logind is missing,
// the callback is not called, with one exception: if logind disappears during a sleep, the callback
// reports the end of the sleep.
class SessionFollower : public BusRequest {
public:
    struct State {
        bool isActive = true;
        bool isLocked = false;
        bool isAsleep = false;
    };
    using Notify = std::function<void(const State& state)>;

    explicit SessionFollower(Notify callback)
        : BusRequest(asMilliseconds(patience)), notify(std::move(callback)) {}

    // The watches need an open bus, so they are set when the first reply arrives. The state is read
    // again afterwards, so that no change in between is lost.
    void begin() override {
        read([this, kept = alive()] {
            watchSession();
            read({});
        });
    }

private:
    std::shared_ptr<SessionFollower> alive() {
        return std::static_pointer_cast<SessionFollower>(shared_from_this());
    }

    void read(std::function<void()> then) {
        call(getSession, g_variant_new("(s)", sessionInterface),
             [this, kept = alive(), then = std::move(then)](const BusReply& answer) {
                 isOpen = isOpen || answer.busIsOpen;
                 report(answer.values);
                 if (then && isOpen) {
                     then();
                 }
             });
    }

    // logind emits signals for the session's real object path, not for "auto". So the properties of
    // all sessions are watched; they rarely change. The callbacks of the watches keep this object
    // alive.
    void watchSession() {
        watchProperties(Bus::system, logind, sessionInterface,
                        [kept = alive()] { kept->read({}); });
        watch({Bus::system, busDaemon, busDaemon, "NameOwnerChanged", logind},
              [kept = alive()](GVariant* /*values*/) {
                  kept->setAsleep(false); // if logind has exited, it cannot announce the resume
                  kept->read({});
              });
        for (const char* const signal : {"SessionNew", "SessionRemoved"}) {
            watch({Bus::system, logind, managerInterface, signal, nullptr},
                  [kept = alive()](GVariant* /*values*/) { kept->read({}); });
        }
        watch({Bus::system, logind, managerInterface, "PrepareForSleep", nullptr},
              [kept = alive()](GVariant* values) { kept->followSleep(values); });
    }

    // The signal's value is true before the machine suspends, and false after it has resumed or
    // failed to suspend.
    void followSleep(GVariant* values) {
        if (const auto sleeps = booleanIn(values)) {
            setAsleep(*sleeps);
        }
    }

    void setAsleep(bool asleep) {
        if (std::exchange(state.isAsleep, asleep) != asleep) {
            logLine("session", asleep ? "the machine goes to sleep" : "the machine is awake");
            notify(state);
        }
    }

    void report(GVariant* values) {
        if (values == nullptr || !g_variant_is_of_type(values, G_VARIANT_TYPE("(a{sv})"))) {
            return;
        }
        const GlibOwner<GVariant> all(g_variant_get_child_value(values, 0));
        GVariantDict session;
        g_variant_dict_init(&session, all.get());
        state.isActive = !isInBackground(&session);
        state.isLocked = isLockedHint(&session);
        g_variant_dict_clear(&session);
        notify(state);
    }

    Notify notify;
    bool isOpen = false;
    State state;
};

// Follows all screen savers, including those that start later.
class ScreenSaverFollower : public BusRequest {
public:
    using Notify = std::function<void(bool isAnyActive)>;

    explicit ScreenSaverFollower(Notify callback)
        : BusRequest(asMilliseconds(patience)), notify(std::move(callback)) {}

    void begin() override {
        read(screenSavers().front(), [this, kept = alive()] {
            for (const ScreenSaver& saver : screenSavers()) {
                watchSaver(saver);
                read(saver, {});
            }
        });
    }

private:
    std::shared_ptr<ScreenSaverFollower> alive() {
        return std::static_pointer_cast<ScreenSaverFollower>(shared_from_this());
    }

    void read(const ScreenSaver& saver, std::function<void()> then) {
        call(saver.method("GetActive"), nullptr,
             [this, kept = alive(), name = saver.name,
              then = std::move(then)](const BusReply& answer) {
                 isOpen = isOpen || answer.busIsOpen;
                 report(name, answer.values);
                 if (then && isOpen) {
                     then();
                 }
             });
    }

    // The bus daemon delivers only the signals of the name's owner. If the owner disappears, its
    // lock no longer counts.
    void watchSaver(const ScreenSaver& saver) {
        watch(
            {Bus::session, saver.name, saver.name, "ActiveChanged", nullptr},
            [kept = alive(), name = saver.name](GVariant* values) { kept->report(name, values); });
        watch({Bus::session, busDaemon, busDaemon, "NameOwnerChanged", saver.name},
              [kept = alive(), &saver](GVariant* /*values*/) {
                  kept->setActive(saver.name, false);
                  kept->read(saver, {});
              });
    }

    void report(const char* saver, GVariant* values) {
        if (const auto isActive = booleanIn(values)) {
            setActive(saver, *isActive);
        }
    }

    void setActive(const char* saver, bool isActive) {
        if (isActive) {
            active.insert(saver);
        } else {
            active.erase(saver);
        }
        notify(!active.empty());
    }

    Notify notify;
    bool isOpen = false;
    std::set<std::string> active;
};

} // namespace

struct LinuxUserSession::Known {
    std::atomic<bool> isActive = true;
    std::atomic<bool> isHintedLocked = false;
    std::atomic<bool> isSaverActive = false;
    std::atomic<bool> isAsleep = false;
};

LinuxUserSession::LinuxUserSession(DesktopThread& desktop, std::shared_ptr<MainQueue> mainQueue)
    : known(std::make_shared<Known>()), requests(desktop) {
    const auto changed = [queue = mainQueue, weak = std::weak_ptr(life)] {
        queue->submit([weak] {
            if (const auto session = weak.lock()) {
                (*session)->changes().announceDidChange();
            }
        });
    };
    const auto sleepChanged = [held = known, queue = std::move(mainQueue),
                               weak = std::weak_ptr(life)](bool asleep) {
        queue->submit([held, weak, asleep] {
            if (const auto session = weak.lock()) {
                // The value is set only in this task, on the main thread. Otherwise a resume could
                // overwrite it before observers are notified of the suspend.
                held->isAsleep = asleep;
                (*session)->changes().announceDidChange();
            }
        });
    };
    requests.start(
        std::make_shared<SessionFollower>([held = known, changed, sleepChanged, wasAsleep = false](
                                              const SessionFollower::State& now) mutable {
            const bool wasLocked = held->isHintedLocked.exchange(now.isLocked);
            const bool wasActive = held->isActive.exchange(now.isActive);
            if (wasLocked != now.isLocked || wasActive != now.isActive) {
                changed();
            }
            if (std::exchange(wasAsleep, now.isAsleep) != now.isAsleep) {
                sleepChanged(now.isAsleep);
            }
        }));
    requests.start(std::make_shared<ScreenSaverFollower>([held = known, changed](bool isAnyActive) {
        if (held->isSaverActive.exchange(isAnyActive) != isAnyActive) {
            changed();
        }
    }));
}

bool LinuxUserSession::isActive() const {
    return known->isActive;
}

bool LinuxUserSession::isAsleep() const {
    return known->isAsleep;
}

bool LinuxUserSession::isLocked() const {
    return known->isHintedLocked || known->isSaverActive;
}

} // namespace glidemap
