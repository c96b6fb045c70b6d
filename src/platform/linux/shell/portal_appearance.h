// Follows the user's appearance settings through the desktop portal, on any desktop.
//
// This class never starts the portal. At login, programs start before the desktop has sent its
// display to the bus. A portal that starts that early stays broken for the whole session. So a
// running portal is queried at once, and a portal that another program starts later is queried
// then. Until then nothing is known.
//
// Thread:  the main thread. The desktop thread calls the bus, and no thread waits for a reply.
// Owner:   the program. The destructor stops the updates at once; settings handed out keep their
//          last values.
// Errors:  none. Without a bus, a portal or a reply the settings are unknown. Known settings stay
//          when the portal exits.
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

    // The settings may outlive this object.
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
