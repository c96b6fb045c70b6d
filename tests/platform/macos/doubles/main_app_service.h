// Controls the fake of the service management framework.
#pragma once

#include <optional>
#include <string>

namespace glidemap::test {

struct MainAppService {
    long status = 0; // a constant of SMAppServiceStatus, or another number
    bool refuses = false;
    std::optional<std::string> reason; // the system's error message when it refuses
};

// Returns the state of the fake. The fixture's set-up resets it.
MainAppService& mainAppService();

// Destroys the service object.
void closeMainAppService();

} // namespace glidemap::test
