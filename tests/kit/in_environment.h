// A variable of this process's environment, for as long as a scope lasts.
//
// Thread:  one, while no other reads the environment.
// Owner:   a test.
// Errors:  none.
#pragma once

#include <string>

namespace glidemap::test {

class InEnvironment {
public:
    // Null takes the variable away.
    InEnvironment(std::string variable, const char* value);
    InEnvironment(const InEnvironment&) = delete;
    InEnvironment& operator=(const InEnvironment&) = delete;
    ~InEnvironment();

private:
    std::string name;
    bool wasSet;
    std::string before;
};

} // namespace glidemap::test
