// Switches launch at login on and off, and stores the error of the last attempt.
//
// After each attempt, the manager reads the item's status back from the system. Only the status
// `enabled` counts as on. An item that waits for the user's approval is off, but this is not an
// error.
//
// Thread:  the main thread.
// Owner:   the settings view. The service and the language must outlive the manager.
// Errors:  stored as text for display, in the language in use at the time of the attempt.
#pragma once

#include "app/login_item_service.h"
#include "core/lang.h"
#include "core/observable.h"

#include <optional>
#include <string>

namespace glidemap {

class LoginItemManager {
public:
    explicit LoginItemManager(LoginItemService& service, Lang& lang = Lang::shared());

    void setEnabled(bool on);

    bool enabled() const { return _enabled; }

    // Returns the error of the last attempt, or nullopt if it succeeded.
    const std::optional<std::string>& lastError() const { return _lastError; }

    Observable& changes() { return observers; }

private:
    void setLastError(std::optional<std::string> error);
    void refresh();
    bool readEnabled() const;

    LoginItemService& service;
    Lang& lang;
    bool _enabled;
    std::optional<std::string> _lastError;
    Observable observers;
};

} // namespace glidemap
