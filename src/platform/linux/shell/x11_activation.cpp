#include "platform/linux/shell/x11_activation.h"

#include "platform/linux/desktop/launch_messages.h"

#include <charconv>
#include <system_error>

namespace glidemap {

std::uint32_t timeOfLaunch(std::string_view startupID) {
    constexpr std::string_view mark = "_TIME";
    const auto found = startupID.rfind(mark);
    if (found == std::string_view::npos) {
        return 0;
    }
    const std::string_view digits = startupID.substr(found + mark.size());
    std::uint32_t time = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), time);
    return error == std::errc() && end == digits.data() + digits.size() ? time : 0;
}

std::vector<std::string> endOfLaunch(std::string_view startupID) {
    return launchMessage("remove", {{"ID", startupID}});
}

// Sends the request as a pager (source indication 2): window managers may refuse requests from
// applications.
void activateOnX11(const X11Connection& connection, std::uint32_t window,
                   std::string_view startupID) {
    constexpr std::uint32_t byTheUser = 2;
    connection.requestFromWindowManager(window, "_NET_ACTIVE_WINDOW",
                                        {byTheUser, timeOfLaunch(startupID)});
    if (!startupID.empty()) {
        connection.broadcastLaunch(window, endOfLaunch(startupID));
    }
    connection.flush();
}

void endLaunchOnX11(const X11Connection& connection, std::uint32_t window,
                    std::string_view startupID) {
    connection.broadcastLaunch(window, endOfLaunch(startupID));
    connection.flush();
}

} // namespace glidemap
