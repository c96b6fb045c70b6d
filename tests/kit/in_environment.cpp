#include "kit/in_environment.h"

#include <cstdlib>
#include <utility>

namespace glidemap::test {

namespace {

void put(const std::string& name, const char* value) {
    value != nullptr ? setenv(name.c_str(), value, 1) : unsetenv(name.c_str());
}

} // namespace

InEnvironment::InEnvironment(std::string variable, const char* value)
    : name(std::move(variable)), wasSet(std::getenv(name.c_str()) != nullptr) {
    if (wasSet) {
        before = std::getenv(name.c_str());
    }
    put(name, value);
}

InEnvironment::~InEnvironment() {
    put(name, wasSet ? before.c_str() : nullptr);
}

} // namespace glidemap::test
