// Sets a variable of this process's environment during a scope.
//
// Thread:  one, while no other thread reads the environment.
// Owner:   a test.
// Errors:  none.
#pragma once

#include <string>

namespace glidemap::test {

class InEnvironment {
public:
    // A null value removes the variable.
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
