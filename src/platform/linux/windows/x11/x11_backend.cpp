#include "platform/linux/windows/x11/x11_backend.h"

#include "platform/linux/desktop/launch_messages.h"
#include "platform/linux/desktop/x11.h"
#include "platform/linux/windows/x11/x11_requests.h"
#include "platform/linux/windows/x11/x11_window_reader.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <utility>

namespace glidemap {

namespace {

constexpr std::uint32_t maxWindows = 4096;

constexpr const char* activeName = "_NET_ACTIVE_WINDOW";
constexpr const char* shownWorkspaceName = "_NET_CURRENT_DESKTOP";

// The source indication of a pager. Window managers may refuse requests from normal applications.
constexpr std::uint32_t byTheUser = 2;

// The maximum number of events and replies that are handled before the thread runs its other tasks.
constexpr int maxTurn = 500;

} // namespace

class X11Backend::Session : public std::enable_shared_from_this<Session> {
public:
    Session(DesktopThread& desktop, WindowListener& to, X11Connection connection);

    void begin();

    // Returns false if no window is selected.
    bool bringForward(const WindowChoice& isChosen);
    void requestToken(const LaunchedApplication& application,
                      std::function<void(const LaunchToken&)> then);

private:
    struct Client {
        std::optional<X11Window> window; // nullopt until its properties have been read
        X11Inquiry inquiry;
        // The value of `uses` when this window was last reported as active; 0 if never.
        std::uint64_t lastUse = 0;
    };

    void makeClock();
    void askForTime();
    void takeTime(xcb_timestamp_t time);
    void activate(xcb_timestamp_t time);
    void broadcast(const std::vector<std::string>& message);

    void serve();
    bool serveOnce();
    void handle(const xcb_generic_event_t& event);
    void propertyChanged(xcb_window_t window, xcb_atom_t property);
    void askForActive();
    void askForList();
    void takeActive(const X11Property& property);
    void takeList(const X11Property& property);
    void follow(xcb_window_t window);
    void read(xcb_window_t window);
    void forgetClosedWindows();
    void report();
    bool activeIsOpen() const;
    void reportActive();
    void reportWindows();
    void lose();

    DesktopThread& thread;
    WindowListener& listener;
    const X11Connection server;
    X11Requests requests;
    X11WindowReader reader;
    xcb_window_t root;
    xcb_atom_t activeAtom;
    xcb_atom_t listAtom;
    xcb_atom_t managerAtom;
    xcb_atom_t workspaceAtom;
    xcb_window_t clock = XCB_WINDOW_NONE;      // its property events carry the server's time
    xcb_window_t toActivate = XCB_WINDOW_NONE; // activated when the server's time arrives
    std::vector<std::function<void(xcb_timestamp_t)>> waitingForTime;
    std::uint32_t launches = 0;
    std::uint64_t uses = 0;
    X11Inquiry activeInquiry;
    X11Inquiry listInquiry;
    xcb_window_t active = XCB_WINDOW_NONE;
    bool hasList = false;
    std::vector<xcb_window_t> listed;
    std::map<xcb_window_t, Client> clients; // the listed windows and the active window
    std::optional<WindowIdentity> reportedActive;
    std::vector<WindowIdentity> reportedWindows;
    DesktopThread::Watch watch;
};

// Fetches all atoms in advance, so that no later request waits for the server.
X11Backend::Session::Session(DesktopThread& desktop, WindowListener& to, X11Connection connection)
    : thread(desktop), listener(to), server(std::move(connection)), requests(server),
      reader(requests), root(server.root()) {
    const auto atoms =
        server.atoms({activeName, "_NET_CLIENT_LIST", "_NET_SUPPORTING_WM_CHECK", "_NET_WM_DESKTOP",
                      shownWorkspaceName, "_NET_STARTUP_INFO_BEGIN", "_NET_STARTUP_INFO"});
    activeAtom = atoms[0];
    listAtom = atoms[1];
    managerAtom = atoms[2];
    workspaceAtom = atoms[3];
}

void X11Backend::Session::begin() {
    makeClock();
    requests.followProperties(root); // before the queries, so that no change in between is lost
    askForActive();
    askForList();
    server.flush();
    watch = thread.watch(server.descriptor(), [this] { serve(); });
    serve(); // xcb may have read replies already, for which the socket does not become readable
}

void X11Backend::Session::serve() {
    int turns = 0;
    while (turns < maxTurn && serveOnce()) {
        ++turns;
    }
    if (server.isLost()) {
        lose();
        return;
    }
    report();
    // Continues in a new task, because the socket does not become readable for events that xcb has
    // already queued.
    if (turns == maxTurn) {
        thread.submit([self = weak_from_this()] {
            if (const auto alive = self.lock()) {
                alive->serve();
            }
        });
    }
}

// Polls for an event first, because xcb_poll_for_event() also reads pending replies from the
// socket.
bool X11Backend::Session::serveOnce() {
    const X11Reply<xcb_generic_event_t> event(xcb_poll_for_event(server.raw()));
    if (event != nullptr) {
        handle(*event);
    }
    const bool answered = requests.takeReply();
    if (event != nullptr || answered) {
        server.flush();
    }
    return event != nullptr || answered;
}

void X11Backend::Session::handle(const xcb_generic_event_t& event) {
    constexpr std::uint8_t sent = 0x80;
    if (event.response_type != XCB_PROPERTY_NOTIFY || (event.response_type & sent) != 0) {
        return; // also ignores errors: a window may close before a request for it is handled
    }
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window != clock) {
        propertyChanged(change.window, change.atom);
    } else {
        takeTime(change.time);
    }
}

void X11Backend::Session::makeClock() {
    clock = xcb_generate_id(server.raw());
    xcb_create_window(server.raw(), 0, clock, root, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    requests.followProperties(clock);
}

bool X11Backend::Session::bringForward(const WindowChoice& isChosen) {
    xcb_window_t best = XCB_WINDOW_NONE;
    std::uint64_t lastUse = 0;
    for (const xcb_window_t window : listed) {
        const Client& client = clients.at(window);
        const bool isOpen =
            client.window && !client.window->isGone && client.window->isApplicationWindow;
        if (isOpen && client.lastUse >= lastUse && isChosen(client.window->identity)) {
            best = window;
            lastUse = client.lastUse;
        }
    }
    if (best == XCB_WINDOW_NONE || server.isLost()) {
        return false;
    }
    toActivate = best;
    askForTime();
    return true;
}

void X11Backend::Session::askForTime() {
    xcb_change_property(server.raw(), XCB_PROP_MODE_APPEND, clock, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, 0, nullptr);
    server.flush();
}

void X11Backend::Session::takeTime(xcb_timestamp_t time) {
    if (toActivate != XCB_WINDOW_NONE) {
        activate(time);
    }
    for (const auto& take : std::exchange(waitingForTime, {})) {
        take(time);
    }
}

// The startup id ends with the server's time, which stands for the time of the user's input. The
// message that announces the launch is sent only when the program has been started. Otherwise the
// window manager would wait for a program that may fail to start.
void X11Backend::Session::requestToken(const LaunchedApplication& application,
                                       std::function<void(const LaunchToken&)> then) {
    if (server.isLost()) {
        then({});
        return;
    }
    waitingForTime.emplace_back([this, application,
                                 requestToken = std::move(then)](xcb_timestamp_t time) {
        if (time == XCB_CURRENT_TIME) {
            requestToken({});
            return;
        }
        const std::string identifier = "glidemap-" + std::to_string(getpid()) + "-" +
                                       std::to_string(++launches) + "_TIME" + std::to_string(time);
        requestToken(
            {identifier, "", [weak = weak_from_this(), application, identifier] {
                 if (const auto alive = weak.lock()) {
                     alive->broadcast(launchMessage(
                         "new", {{"ID", identifier},
                                 {"NAME", application.name},
                                 {"SCREEN", "0"},
                                 {"WMCLASS", application.windowClass},
                                 {"APPLICATION_ID", application.identifier + ".desktop"}}));
                 }
             }});
    });
    askForTime();
}

void X11Backend::Session::broadcast(const std::vector<std::string>& message) {
    server.broadcastLaunch(clock, message);
    server.flush();
}

// Switches to the window's workspace first, as task bars do, because not every window manager does
// so on activation.
void X11Backend::Session::activate(xcb_timestamp_t time) {
    const xcb_window_t window = std::exchange(toActivate, xcb_window_t{XCB_WINDOW_NONE});
    requests.property(window, workspaceAtom, 1, [this, window, time](const X11Property& workspace) {
        constexpr std::uint32_t onAll = 0xFFFFFFFF;
        if (!workspace.items.empty() && workspace.items.front() != onAll) {
            server.requestFromWindowManager(root, shownWorkspaceName,
                                            {workspace.items.front(), time});
        }
        server.requestFromWindowManager(window, activeName, {byTheUser, time, active});
    });
}

void X11Backend::Session::propertyChanged(xcb_window_t window, xcb_atom_t property) {
    if (window != root) {
        if (reader.reads(property)) {
            read(window);
        }
        return;
    }
    if (property == activeAtom || property == managerAtom) {
        askForActive();
    }
    if (property == listAtom || property == managerAtom) {
        askForList();
    }
}

void X11Backend::Session::askForActive() {
    if (!activeInquiry.begin()) {
        return;
    }
    requests.property(root, activeAtom, 1, [this](const X11Property& property) {
        takeActive(property);
        if (activeInquiry.end()) {
            askForActive();
        }
    });
}

void X11Backend::Session::askForList() {
    if (!listInquiry.begin()) {
        return;
    }
    requests.property(root, listAtom, maxWindows, [this](const X11Property& property) {
        takeList(property);
        if (listInquiry.end()) {
            askForList();
        }
    });
}

void X11Backend::Session::takeActive(const X11Property& property) {
    active = property.items.empty() ? xcb_window_t{XCB_WINDOW_NONE} : property.items.front();
    if (active != XCB_WINDOW_NONE) {
        follow(active);
        clients.at(active).lastUse = ++uses;
    }
    forgetClosedWindows();
}

void X11Backend::Session::takeList(const X11Property& property) {
    hasList = property.hasItems;
    listed.clear();
    std::set<xcb_window_t> seen;
    for (const xcb_window_t window : property.items) {
        if (window != XCB_WINDOW_NONE && seen.insert(window).second) {
            listed.push_back(window);
        }
    }
    for (const xcb_window_t window : listed) {
        follow(window);
    }
    forgetClosedWindows();
}

// Also subscribes again to windows that are already in `clients`. If a program has exited and
// another has started, the same id may belong to a new window.
void X11Backend::Session::follow(xcb_window_t window) {
    clients.try_emplace(window);
    requests.followProperties(window);
    read(window);
}

void X11Backend::Session::read(xcb_window_t window) {
    const auto client = clients.find(window);
    if (client == clients.end() || !client->second.inquiry.begin()) {
        return;
    }
    reader.read(window, [this, window](const X11Window& described) {
        const auto reading = clients.find(window);
        if (reading == clients.end()) {
            return;
        }
        reading->second.window = described;
        if (reading->second.inquiry.end()) {
            read(window);
        }
    });
}

void X11Backend::Session::forgetClosedWindows() {
    std::set<xcb_window_t> open(listed.begin(), listed.end());
    open.insert(active);
    std::erase_if(clients, [&](const auto& client) { return open.count(client.first) == 0; });
}

void X11Backend::Session::report() {
    reportActive();
    reportWindows();
}

// Some window managers report a closed window as active.
bool X11Backend::Session::activeIsOpen() const {
    return !hasList || std::find(listed.begin(), listed.end(), active) != listed.end();
}

void X11Backend::Session::reportActive() {
    std::optional<WindowIdentity> now;
    const auto client = clients.find(active);
    if (client != clients.end() && activeIsOpen()) {
        if (!client->second.window) {
            return; // a reply is pending
        }
        if (!client->second.window->isGone) {
            now = client->second.window->identity;
        }
    }
    if (now == reportedActive) {
        return;
    }
    reportedActive = now;
    listener.activeWindowChanged(now);
}

void X11Backend::Session::reportWindows() {
    std::vector<WindowIdentity> now;
    for (const xcb_window_t window : listed) {
        const auto& read = clients.at(window).window;
        if (!read) {
            return; // a reply is pending
        }
        if (!read->isGone && read->isApplicationWindow) {
            now.push_back(read->identity);
        }
    }
    if (now == reportedWindows) {
        return;
    }
    reportedWindows = std::move(now);
    listener.windowsChanged(reportedWindows);
}

void X11Backend::Session::lose() {
    watch = {};
    active = XCB_WINDOW_NONE;
    listed.clear();
    clients.clear();
    report();
    takeTime(XCB_CURRENT_TIME);
}

X11Backend::X11Backend(DesktopThread& desktop, std::string display)
    : thread(desktop), displayName(std::move(display)) {}

X11Backend::~X11Backend() = default;

bool X11Backend::start(WindowListener& listener) {
    auto connection = X11Connection::open(displayName);
    if (!connection) {
        return false;
    }
    session = std::make_shared<Session>(thread, listener, *std::move(connection));
    session->begin();
    return true;
}

void X11Backend::bringForward(const WindowChoice& isChosen, std::function<void()> otherwise) {
    if (session == nullptr || !session->bringForward(isChosen)) {
        otherwise();
    }
}

void X11Backend::requestToken(const LaunchedApplication& application,
                              std::function<void(const LaunchToken&)> then) {
    session != nullptr ? session->requestToken(application, std::move(then)) : then({});
}

} // namespace glidemap
