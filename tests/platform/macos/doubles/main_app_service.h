// Controls the fake of the service management framework.
#pragma once

#include <optional>
#include <string>

namespace glidemap::doubles {

struct MainAppService {
    long status = 0; // the system's constant
    bool refuses = false;
    std::optional<std::string> reason; // the system's error message when it refuses
};

// The fixture's set-up resets this state.
MainAppService& mainAppService();

// Destroys the service object.
void closeMainAppService();

} // namespace glidemap::doubles
