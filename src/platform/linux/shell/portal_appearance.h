// Follows the user's appearance settings through the desktop portal, on any desktop.
//
// This class never starts the portal. At login, programs start before the desktop has set its
// display in the bus's environment, and a portal that starts that early is broken for the whole
// session. A portal that is already running is queried immediately. If another program starts the
// portal later, it is queried then. Until then, all settings are unknown.
//
// Thread:  the main thread. The desktop thread calls the bus; no thread blocks on a reply.
// Owner:   the program. The destructor stops the updates; the objects returned by settings() keep
//          their last values.
// Errors:  none. Without a bus, a portal or a reply, the settings are unknown. When the portal
//          exits, the last known settings are kept.
#pragma once

#include "core/main_queue.h"
#include "ui/theme/appearance_settings.h"

#include <future>
#include <memory>

namespace glidemap {

class DesktopThread;

class PortalAppearance {
public:
    PortalAppearance(DesktopThread& thread, MainQueue& queue);
    PortalAppearance(const PortalAppearance&) = delete;
    PortalAppearance& operator=(const PortalAppearance&) = delete;
    ~PortalAppearance();

    // The returned settings may outlive this object.
    std::shared_ptr<AppearanceSettings> settings() const;

private:
    class Settings;
    class Listener;

    DesktopThread& desktop;
    std::shared_ptr<Settings> reported;
    std::shared_ptr<Listener> listener;
    std::future<void> listenerHasGone;
};

} // namespace glidemap
