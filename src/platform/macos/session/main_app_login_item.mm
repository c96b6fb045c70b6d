#include "platform/macos/session/main_app_login_item.h"

#include "platform/macos/foundation_text.h"

#import <ServiceManagement/ServiceManagement.h>

namespace glidemap {

namespace {

// Relies on the return value, because the system may set an error object on success, or none on
// failure.
std::optional<std::string> failure(bool succeeded, NSError* error) {
    if (succeeded) {
        return std::nullopt;
    }
    return textOf([error localizedDescription]).value_or(std::string());
}

} // namespace

LoginItemService::Status MainAppLoginItem::status() const {
    switch ([[SMAppService mainAppService] status]) {
    case SMAppServiceStatusEnabled:
        return Status::enabled;
    case SMAppServiceStatusRequiresApproval:
        return Status::requiresApproval;
    case SMAppServiceStatusNotFound:
        return Status::notFound;
    case SMAppServiceStatusNotRegistered:
    default:
        return Status::notRegistered;
    }
}

std::optional<std::string> MainAppLoginItem::registerItem() {
    NSError* error = nil;
    const bool succeeded = [[SMAppService mainAppService] registerAndReturnError:&error];
    return failure(succeeded, error);
}

std::optional<std::string> MainAppLoginItem::unregisterItem() {
    NSError* error = nil;
    const bool succeeded = [[SMAppService mainAppService] unregisterAndReturnError:&error];
    return failure(succeeded, error);
}

} // namespace glidemap
