// Sets this process's own environment for a while, as the desktop's programs have it.
//
// Thread:  one, while there is no other.
// Owner:   a test.
// Errors:  none.
#pragma once

#include <map>
#include <optional>
#include <string>

namespace glidemap::desktops {

class ScopedEnvironment {
public:
    // An empty value unsets the variable.
    explicit ScopedEnvironment(const std::map<std::string, std::string>& values);
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
    ~ScopedEnvironment();

private:
    std::map<std::string, std::optional<std::string>> before;
};

} // namespace glidemap::desktops
