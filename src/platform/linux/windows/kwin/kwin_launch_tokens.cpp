#include "platform/linux/windows/kwin/kwin_launch_tokens.h"

#include "platform/linux/windows/activation/xdg_activation.h"
#include "platform/linux/windows/wlr/wlr_connection.h"

#include <utility>

namespace glidemap {

namespace {

constexpr const char* windowManagement = "org_kde_plasma_window_management";

} // namespace

KWinLaunchTokens::KWinLaunchTokens(DesktopThread& desktop)
    : thread(desktop), connection(WlrConnection::open()) {
    if (connection == nullptr) {
        return;
    }
    activation = std::make_unique<XdgActivation>(thread, connection->display());
    activation->requireInterface(windowManagement);
    watch = thread.watch(connection->descriptor(), [this] { receiveEvents(); });
    receiveEvents(); // also sends the first request
}

KWinLaunchTokens::~KWinLaunchTokens() = default;

void KWinLaunchTokens::receiveEvents() {
    if (connection->dispatchArrived()) {
        return;
    }
    watch = {};
    activation->abandonRequests();
    activation.reset();
    connection.reset();
}

void KWinLaunchTokens::requestToken(const std::string& application,
                                    std::function<void(const std::string& token)> receiver) {
    if (activation == nullptr) {
        receiver("");
        return;
    }
    activation->requestToken(application, std::move(receiver));
}

void KWinLaunchTokens::abandonRequests() {
    if (activation != nullptr) {
        activation->abandonRequests();
    }
}

} // namespace glidemap
