// Switches launch at login on and off, and keeps the error of the last attempt.
//
// `enabled` is never the user's wish: it is read back from the system after each attempt. Only the
// system's state `enabled` counts; an item that still waits for the user's approval is off, and is
// no error.
//
// Thread:  the main thread.
// Owner:   the settings window. The service outlives it. The state lives in the system alone.
// Errors:  kept as text for display, in the language in which the attempt failed.
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

    // The error of the last attempt; nullopt if it succeeded.
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
