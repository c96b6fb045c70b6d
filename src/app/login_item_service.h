// Port: the system's own register of what starts with the user's session, for this program.
//
// Thread:  the main thread; the calls may touch the disk and are done when they return.
// Errors:  as answers: the system's own text, in the system's own language.
#pragma once

#include <optional>
#include <string>

namespace glidemap {

class LoginItemService {
public:
    enum class Status {
        notRegistered,
        enabled,          // the next session starts the program
        requiresApproval, // the user has switched it off in the system's settings
        notFound,         // what is registered cannot be started
    };

    LoginItemService() = default;
    LoginItemService(const LoginItemService&) = delete;
    LoginItemService& operator=(const LoginItemService&) = delete;
    virtual ~LoginItemService() = default;

    virtual Status status() const = 0;

    // Why it failed, or nothing.
    virtual std::optional<std::string> registerItem() = 0;
    virtual std::optional<std::string> unregisterItem() = 0;
};

} // namespace glidemap
