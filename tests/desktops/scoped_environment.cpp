#include "desktops/scoped_environment.h"

namespace glidemap::test {

ScopedEnvironment::ScopedEnvironment(const std::map<std::string, std::string>& values) {
    for (const auto& [name, value] : values) {
        variables.emplace_back(name, value.empty() ? nullptr : value.c_str());
    }
}

} // namespace glidemap::test
