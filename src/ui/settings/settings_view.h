// The content of the settings window: bindings, switches, notices, and the last gesture. It owns
// nothing that it shows; every change goes back to where it came from, and what changes there shows
// here at once.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the settings window; the services outlive it.
// Errors:  those of others are shown; it has none of its own.
#pragma once

#include "app/login_item_manager.h"
#include "app/update_checker.h"
#include "bindings/binding_store.h"
#include "core/lang.h"
#include "dispatch/accessibility_trust.h"
#include "dispatch/gesture_dispatcher.h"
#include "dispatch/workspace.h"
#include "input/multitouch_device_manager.h"
#include "ui/recorder/hardware_keys.h"
#include "ui/settings/desktop_helper.h"

#include <QWidget>
#include <memory>

namespace glidemap {

class SettingsView : public QWidget {
public:
    struct Services {
        std::shared_ptr<BindingStore> store;
        std::shared_ptr<GestureDispatcher> dispatcher;
        std::shared_ptr<UpdateChecker> updates;
        std::shared_ptr<Workspace> workspace;
        std::shared_ptr<AccessibilityTrust> trust;
        std::shared_ptr<LoginItemService> loginItems;
        std::shared_ptr<HardwareKeys> keys;
        const MultitouchDeviceManager* devices = nullptr; // whose load error is shown; may be null
        std::shared_ptr<DesktopHelper> desktopHelper;     // may be null
        Lang* lang = &Lang::shared();
    };

    explicit SettingsView(Services services, QWidget* parent = nullptr);

    void addBinding();

private:
    Services services;
    LoginItemManager loginItem;
};

} // namespace glidemap
