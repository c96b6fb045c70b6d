// Port: registers the program in the system's list of programs that start at login.
//
// Thread:  the main thread. The calls may block on the disk.
// Errors:  as return values: the system's error messages, in the system's language.
#pragma once

#include <optional>
#include <string>

namespace glidemap {

class LoginItemService {
public:
    enum class Status {
        notRegistered,
        enabled,          // the program starts with the next session
        requiresApproval, // the user has switched the item off in the system settings
        notFound,         // the registered program cannot be started
    };

    LoginItemService() = default;
    LoginItemService(const LoginItemService&) = delete;
    LoginItemService& operator=(const LoginItemService&) = delete;
    virtual ~LoginItemService() = default;

    virtual Status status() const = 0;

    // Returns an error message, or nullopt on success.
    virtual std::optional<std::string> registerItem() = 0;
    virtual std::optional<std::string> unregisterItem() = 0;
};

} // namespace glidemap
