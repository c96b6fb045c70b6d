#include "app/login_item_manager.h"

#include <utility>

namespace glidemap {

LoginItemManager::LoginItemManager(LoginItemService& service, Lang& lang)
    : service(service), lang(lang), _enabled(readEnabled()) {}

void LoginItemManager::setEnabled(bool on) {
    setLastError(std::nullopt);
    if (const auto error = on ? service.registerItem() : service.unregisterItem()) {
        setLastError(lang.choose("Failed to set launch at login: ", "设置开机自启动失败：") +
                     *error);
    }
    refresh();
}

void LoginItemManager::setLastError(std::optional<std::string> error) {
    observers.announceWillChange();
    _lastError = std::move(error);
    observers.announceDidChange();
}

void LoginItemManager::refresh() {
    const bool enabledNow = readEnabled();
    observers.announceWillChange();
    _enabled = enabledNow;
    observers.announceDidChange();
}

bool LoginItemManager::readEnabled() const {
    return service.status() == LoginItemService::Status::enabled;
}

} // namespace glidemap
