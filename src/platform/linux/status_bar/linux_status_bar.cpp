#include "platform/linux/status_bar/linux_status_bar.h"

#include "platform/linux/shell/x11_connection.h"

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QTimer>
#include <cstdlib>
#include <functional>
#include <string>
#include <utility>

namespace glidemap {

namespace {

// Every desktop calls it by KDE's name.
constexpr const char* watcherName = "org.kde.StatusNotifierWatcher"; // its interface, too
constexpr const char* watcherPath = "/StatusNotifierWatcher";

constexpr int patience = 1000; // milliseconds

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

xcb_atom_t atom(xcb_connection_t* connection, const std::string& name) {
    const auto cookie =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

} // namespace

// Items register with a watcher, and a host shows them. A watcher may come before its host, which
// shows nothing yet: a toolkit that looks for a tray then finds none, and does not look again.
class LinuxStatusBar::BusTray {
public:
    explicit BusTray(const std::function<void()>& appeared)
        : watcher(watcherName, QDBusConnection::sessionBus(),
                  QDBusServiceWatcher::WatchForRegistration) {
        QObject::connect(&watcher, &QDBusServiceWatcher::serviceRegistered, &watcher, appeared);
        hostHasCome.setSingleShot(true);
        QObject::connect(&hostHasCome, &QTimer::timeout, &hostHasCome, appeared);
        watcher.connection().connect(watcherName, watcherPath, watcherName,
                                     "StatusNotifierHostRegistered", &hostHasCome, SLOT(start()));
    }

    bool isThere() const {
        const auto* bus = watcher.connection().interface();
        return bus != nullptr && bus->isServiceRegistered(watcherName) && !isWithoutHost();
    }

private:
    // A watcher that does not answer in time is left to the toolkit, which asks it, too.
    bool isWithoutHost() const {
        auto question = QDBusMessage::createMethodCall(watcherName, watcherPath,
                                                       "org.freedesktop.DBus.Properties", "Get");
        question << watcherName << "IsStatusNotifierHostRegistered";
        const QDBusReply<QDBusVariant> answer =
            watcher.connection().call(question, QDBus::Block, patience);
        return answer.isValid() && !answer.value().variant().toBool();
    }

    QDBusServiceWatcher watcher;
    QTimer hostHasCome; // at once: signals of the bus reach named slots only
};

// A tray owns a selection, and tells every client of the root window when it has just got it. The
// toolkit has selected for that.
class LinuxStatusBar::X11Tray : public QAbstractNativeEventFilter {
public:
    X11Tray(xcb_connection_t* toServer, std::function<void()> told)
        : connection(toServer), appeared(std::move(told)), manager(atom(connection, "MANAGER")),
          selection(atom(connection, "_NET_SYSTEM_TRAY_S0")) {
        QCoreApplication::instance()->installNativeEventFilter(this);
    }

    bool isThere() const {
        const std::unique_ptr<xcb_get_selection_owner_reply_t, Free> reply(
            xcb_get_selection_owner_reply(connection,
                                          xcb_get_selection_owner(connection, selection), nullptr));
        return reply != nullptr && reply->owner != XCB_WINDOW_NONE;
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
            appeared();
        }
    }

    xcb_connection_t* const connection;
    const std::function<void()> appeared;
    const xcb_atom_t manager;
    const xcb_atom_t selection;
};

// Most of what the connection takes is waiting for the bus, and there is enough to do meanwhile.
LinuxStatusBar::LinuxStatusBar()
    : connectsToBus(std::async(std::launch::async | std::launch::deferred,
                               [] { QDBusConnection::sessionBus(); })) {
    if (xcb_connection_t* connection = x11Connection()) {
        onX11 = std::make_unique<X11Tray>(connection, [this] { observers.announceDidChange(); });
    }
}

LinuxStatusBar::~LinuxStatusBar() = default;

LinuxStatusBar::BusTray& LinuxStatusBar::busTray() {
    if (onBus == nullptr) {
        connectsToBus.get();
        onBus = std::make_unique<BusTray>([this] { observers.announceDidChange(); });
    }
    return *onBus;
}

StatusBar::Kind LinuxStatusBar::kind() {
    if (busTray().isThere()) {
        return Kind::drawsItself;
    }
    return onX11 != nullptr && onX11->isThere() ? Kind::embeds : Kind::none;
}

} // namespace glidemap
