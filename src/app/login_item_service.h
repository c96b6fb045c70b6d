// Port: the system's list of programs that start with the user's session, for this program's entry.
//
// Thread:  the main thread. The calls may access the disk, and complete before they return.
// Errors:  as return values: the system's own text, in the system's own language.
#pragma once

#include <optional>
#include <string>

namespace glidemap {

class LoginItemService {
public:
    enum class Status {
        notRegistered,
        enabled,          // the next session starts the program
        requiresApproval, // the user has switched it off in the system settings
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
