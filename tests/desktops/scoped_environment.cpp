#include "desktops/scoped_environment.h"

#include <cstdlib>

namespace glidemap::desktops {

namespace {

void setOrUnset(const std::string& name, const std::optional<std::string>& value) {
    if (value) {
        setenv(name.c_str(), value->c_str(), 1);
    } else {
        unsetenv(name.c_str());
    }
}

} // namespace

ScopedEnvironment::ScopedEnvironment(const std::map<std::string, std::string>& values) {
    for (const auto& [name, value] : values) {
        const char* const old = std::getenv(name.c_str());
        before[name] = old == nullptr ? std::nullopt : std::optional<std::string>(old);
        setOrUnset(name, value.empty() ? std::nullopt : std::optional(value));
    }
}

ScopedEnvironment::~ScopedEnvironment() {
    for (const auto& [name, value] : before) {
        setOrUnset(name, value);
    }
}

} // namespace glidemap::desktops
