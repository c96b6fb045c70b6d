#include "platform/linux/windows/reported_windows.h"

#include <algorithm>
#include <utility>

namespace glidemap {

namespace {

bool isEqualForListener(const WindowIdentity& one, const WindowIdentity& other) {
    return one.appID == other.appID && one.instance == other.instance &&
           one.process == other.process && (one.title == other.title || !one.appID.empty());
}

bool isEqualForListener(const std::optional<WindowIdentity>& one,
                        const std::optional<WindowIdentity>& other) {
    return one && other ? isEqualForListener(*one, *other) : one.has_value() == other.has_value();
}

bool isEqualForListener(const std::vector<WindowIdentity>& some,
                        const std::vector<WindowIdentity>& others) {
    return std::equal(some.begin(), some.end(), others.begin(), others.end(),
                      [](const WindowIdentity& one, const WindowIdentity& other) {
                          return isEqualForListener(one, other);
                      });
}

} // namespace

void ReportedWindows::report(WindowListener& listener, std::vector<WindowIdentity> windows,
                             std::optional<WindowIdentity> active) {
    if (!reportedWindows || !isEqualForListener(*reportedWindows, windows)) {
        reportedWindows = std::move(windows);
        listener.windowsChanged(*reportedWindows);
    }
    if (!reportedActive || !isEqualForListener(*reportedActive, active)) {
        reportedActive = std::move(active);
        listener.activeWindowChanged(*reportedActive);
    }
}

} // namespace glidemap
