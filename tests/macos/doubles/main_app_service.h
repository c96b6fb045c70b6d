// What a test tells the double of the service management to answer.
#pragma once

#include <optional>
#include <string>

namespace glidemap::doubles {

struct MainAppService {
    long status = 0; // by the system's numbers
    bool refuses = false;
    std::optional<std::string> reason; // why it refuses, in the system's words
};

// Reset by every test's set-up.
MainAppService& mainAppService();

// Makes the service object go.
void closeMainAppService();

} // namespace glidemap::doubles
