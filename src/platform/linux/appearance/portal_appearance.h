// Follows how the user wants programs to look, as the desktop's portal tells it, whichever desktop
// that is.
//
// The portal is not started for it. At login programs start before the desktop has told the bus
// where its display is, and a portal that is started then is of no use to anyone for the rest of the
// session. So one that runs is asked; one that comes later, for another program, is asked then; and
// until then nothing is known.
//
// Thread:  the main thread; the bus is spoken to on the desktop thread, and nobody waits for it.
// Owner:   the program. Destroying it ends the listening, at once; what it has handed out stays as
//          it is then.
// Errors:  without a bus, a portal, or an answer nothing is known. What is known stays when the
//          portal goes.
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

    // May be kept for longer than this.
    std::shared_ptr<AppearanceSettings> settings() const;

private:
    class Settings;
    class Listener;

    DesktopThread& desktop;
    std::shared_ptr<Settings> told;
    std::shared_ptr<Listener> listener;
    std::future<void> listenerHasGone;
};

} // namespace glidemap
