// A program that runs for a moment to do something for us, and says by its exit status whether it did.
//
// Thread:  the desktop thread.
// Owner:   destroying it forgets the program, which runs on; the function is not called then.
// Errors:  a program that cannot be started has not succeeded.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace glidemap {

class ProgramRun {
public:
    // Calls the function once, later. The program reads nothing, and nothing of what it writes is seen.
    ProgramRun(const std::vector<std::string>& words, std::function<void(bool succeeded)> ended);
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;
    ~ProgramRun();

private:
    struct State;
    std::shared_ptr<State> state;
};

} // namespace glidemap
