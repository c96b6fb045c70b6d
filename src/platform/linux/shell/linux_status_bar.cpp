#include "platform/linux/shell/linux_status_bar.h"

#include "platform/linux/shell/x11_connection.h"

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QObject>
#include <QTimer>
#include <functional>
#include <limits>
#include <string>
#include <utility>

namespace glidemap {

namespace {

// All desktops use KDE's name for the watcher.
constexpr const char* watcherName = "org.kde.StatusNotifierWatcher"; // also its interface's name
constexpr const char* watcherPath = "/StatusNotifierWatcher";

// In milliseconds. A watcher that replies later is still detected.
constexpr int patience = 1000;
constexpr int noTimeout = std::numeric_limits<int>::max();

} // namespace

// Detects a StatusNotifierItem tray. Items register with a watcher, and a host shows them. A
// watcher may start before its host. If Qt searched for a tray before the host starts, it would
// find none and never search again.
//
// Qt's own call would block until the watcher replies, so this class calls the watcher
// asynchronously first. A watcher that does not reply within `patience` counts as missing until it
// replies.
class LinuxStatusBar::BusTray {
public:
    explicit BusTray(std::function<void()> notify)
        : changed(std::move(notify)), watcher(watcherName, QDBusConnection::sessionBus(),
                                              QDBusServiceWatcher::WatchForOwnerChange) {
        QObject::connect(&watcher, &QDBusServiceWatcher::serviceRegistered, &watcher,
                         [this] { ask(); });
        QObject::connect(&watcher, &QDBusServiceWatcher::serviceUnregistered, &watcher,
                         [this] { become(State::missing); });
        hostArrived.setSingleShot(true);
        QObject::connect(&hostArrived, &QTimer::timeout, &hostArrived, [this] { ask(); });
        watcher.connection().connect(watcherName, watcherPath, watcherName,
                                     "StatusNotifierHostRegistered", &hostArrived, SLOT(start()));
        patienceEnds.setSingleShot(true);
        QObject::connect(&patienceEnds, &QTimer::timeout, &patienceEnds,
                         [this] { become(State::missing); });
        ask();
    }

    bool isThere() const { return state == State::there; }
    bool isUnknown() const { return state == State::unknown; }

private:
    enum class State { unknown, missing, there };

    void ask() {
        auto question = QDBusMessage::createMethodCall(watcherName, watcherPath,
                                                       "org.freedesktop.DBus.Properties", "Get");
        question << watcherName << "IsStatusNotifierHostRegistered";
        question.setAutoStartService(false);
        reply = std::make_unique<QDBusPendingCallWatcher>(
            watcher.connection().asyncCall(question, noTimeout));
        QObject::connect(reply.get(), &QDBusPendingCallWatcher::finished, reply.get(),
                         [this] { become(answered()); });
        if (state == State::unknown) {
            patienceEnds.start(patience);
        }
    }

    // A watcher that cannot report whether it has a host counts as a tray. Qt also queries the
    // watcher, and Qt's result then determines whether the icon is shown.
    State answered() const {
        const QDBusPendingReply<QDBusVariant> answer = *reply;
        if (!answer.isError()) {
            return answer.value().variant().toBool() ? State::there : State::missing;
        }
        const QDBusError::ErrorType type = answer.error().type();
        const bool isMissing = type == QDBusError::ServiceUnknown || type == QDBusError::NoReply ||
                               type == QDBusError::Disconnected ||
                               answer.error().name() == "org.freedesktop.DBus.Error.NameHasNoOwner";
        return isMissing ? State::missing : State::there;
    }

    void become(State now) {
        patienceEnds.stop();
        if (std::exchange(state, now) != now) {
            changed();
        }
    }

    const std::function<void()> changed;
    State state = State::unknown;
    QDBusServiceWatcher watcher;
    QTimer hostArrived; // fires immediately; needed because D-Bus signals can only call named slots
    QTimer patienceEnds;
    std::unique_ptr<QDBusPendingCallWatcher> reply;
};

// Detects an XEmbed tray. A tray owns a selection. When it acquires the selection, it broadcasts a
// MANAGER message to the root window. Qt has already selected these events. A tray that appears
// counts only after `settling`.
class LinuxStatusBar::X11Tray : public QAbstractNativeEventFilter {
public:
    X11Tray(X11Connection connection, std::chrono::milliseconds settling,
            const std::function<void()>& appeared)
        : connection(std::move(connection)), manager(this->connection.atom("MANAGER")),
          selection(this->connection.atom(selectionName)) {
        settles.setSingleShot(true);
        settles.setInterval(settling);
        QObject::connect(&settles, &QTimer::timeout, &settles, appeared);
        QCoreApplication::instance()->installNativeEventFilter(this);
    }

    bool isThere() const {
        return !settles.isActive() && connection.selectionHasOwner(selectionName);
    }

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) override {
        if (type == "xcb_generic_event_t") {
            look(*static_cast<xcb_generic_event_t*>(message));
        }
        return false;
    }

private:
    void look(const xcb_generic_event_t& event) {
        constexpr unsigned sentByProgram = 0x80;
        if ((event.response_type & ~sentByProgram) != XCB_CLIENT_MESSAGE) {
            return;
        }
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        if (message.type == manager && message.data.data32[1] == selection) {
            settles.start();
        }
    }

    static constexpr const char* selectionName = "_NET_SYSTEM_TRAY_S0";

    const X11Connection connection;
    const xcb_atom_t manager;
    const xcb_atom_t selection;
    QTimer settles;
};

// The connection to the bus is opened on a separate thread, because opening it blocks.
LinuxStatusBar::LinuxStatusBar(std::chrono::milliseconds settling)
    : context(std::make_unique<QObject>()),
      connecting(std::async(std::launch::async, [this, receiver = context.get()] {
          QDBusConnection::sessionBus();
          QMetaObject::invokeMethod(
              receiver, [this] { connected(); }, Qt::QueuedConnection);
      })) {
    if (const auto connection = x11Connection()) {
        onX11 = std::make_unique<X11Tray>(*connection, settling,
                                          [this] { observers.announceDidChange(); });
    }
}

LinuxStatusBar::~LinuxStatusBar() = default;

void LinuxStatusBar::connected() {
    onBus = std::make_unique<BusTray>([this] { observers.announceDidChange(); });
}

// Returns `none` until the bus has replied, because a tray on the bus takes precedence over one on
// X11.
StatusBar::Kind LinuxStatusBar::kind() {
    if (onBus == nullptr || onBus->isUnknown()) {
        return Kind::none;
    }
    if (onBus->isThere()) {
        return Kind::drawsItself;
    }
    return onX11 != nullptr && onX11->isThere() ? Kind::embeds : Kind::none;
}

} // namespace glidemap
