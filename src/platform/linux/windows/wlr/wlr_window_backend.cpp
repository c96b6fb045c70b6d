#include "platform/linux/windows/wlr/wlr_window_backend.h"

#include "platform/linux/windows/activation/xdg_activation.h"
#include "platform/linux/windows/reported_windows.h"
#include "platform/linux/windows/wlr/wlr_connection.h"
#include "platform/linux/windows/wlr/wlr_toplevels.h"

#include <utility>

namespace glidemap {

struct WlrWindowBackend::State {
    DesktopThread& thread;
    std::chrono::milliseconds patience;
    WindowListener* listener = nullptr;
    ReportedWindows reported;
    std::unique_ptr<WlrConnection> connection;
    std::unique_ptr<WlrToplevels> toplevels;
    std::unique_ptr<XdgActivation> activation;
    DesktopThread::Watch watch;

    State(DesktopThread& runsOn, std::chrono::milliseconds waits)
        : thread(runsOn), patience(waits) {}

    bool connect();
    void disconnect();
    void receiveEvents();
    void report();
};

bool WlrWindowBackend::State::connect() {
    connection = WlrConnection::open();
    if (connection == nullptr) {
        return false;
    }
    toplevels = std::make_unique<WlrToplevels>(connection->display());
    activation = std::make_unique<XdgActivation>(thread, connection->display());
    // The first round trip receives the globals; the second receives the windows.
    return connection->roundTrip(patience) && toplevels->isOffered() &&
           connection->roundTrip(patience);
}

void WlrWindowBackend::State::disconnect() {
    watch = {};
    activation.reset();
    toplevels.reset();
    connection.reset();
}

void WlrWindowBackend::State::receiveEvents() {
    if (!connection->dispatchArrived() || !toplevels->isOffered()) {
        activation->abandonRequests();
        disconnect();
    }
    report();
}

void WlrWindowBackend::State::report() {
    if (toplevels == nullptr) {
        reported.report(*listener, {}, std::nullopt);
    } else {
        reported.report(*listener, toplevels->windows(), toplevels->active());
    }
}

WlrWindowBackend::WlrWindowBackend(DesktopThread& thread, std::chrono::milliseconds patience)
    : state(std::make_unique<State>(thread, patience)) {}

WlrWindowBackend::~WlrWindowBackend() {
    state->disconnect();
}

bool WlrWindowBackend::start(WindowListener& listener) {
    if (!state->connect()) {
        state->disconnect();
        return false;
    }
    state->listener = &listener;
    state->watch =
        state->thread.watch(state->connection->descriptor(), [this] { state->receiveEvents(); });
    state->report();
    return true;
}

void WlrWindowBackend::bringForward(const WindowChoice& isChosen, std::function<void()> otherwise) {
    if (state->toplevels != nullptr && state->toplevels->bringForward(isChosen)) {
        state->receiveEvents(); // dispatching also sends the request
    } else {
        otherwise();
    }
}

// wlroots compositors accept the same token as the startup id of an X11 program, and pass it as
// both to the programs that they start themselves.
void WlrWindowBackend::requestToken(const LaunchedApplication& application,
                                    std::function<void(const LaunchToken&)> then) {
    if (state->activation == nullptr) {
        then({});
        return;
    }
    state->activation->requestToken(application.identifier,
                                    [receive = std::move(then)](const std::string& token) {
                                        receive({token, token, {}});
                                    });
}

} // namespace glidemap
