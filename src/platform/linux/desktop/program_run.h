// Runs a short-lived program and reports whether it exited successfully.
//
// Thread:  the desktop thread.
// Owner:   any. After destruction, the program continues to run, and `ended` is not called.
// Errors:  a program that cannot be started counts as failed.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace glidemap {

class ProgramRun {
public:
    // `ended` is called once, after the constructor has returned. The program's standard input is
    // empty, and its output is discarded.
    ProgramRun(const std::vector<std::string>& words, std::function<void(bool succeeded)> ended);
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;
    ~ProgramRun();

private:
    struct State;
    std::shared_ptr<State> state;
};

} // namespace glidemap
