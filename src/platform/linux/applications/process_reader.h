// Reads the properties of a process that identify its application.
//
// Thread:  any.
// Errors:  none. A property that cannot be read is empty, for example because the process has
//          exited or belongs to another user.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace glidemap {

struct ProcessFacts {
    std::string controlGroups; // the content of /proc/PID/cgroup
    std::string executable;    // the path of the program's file
    std::vector<std::string> arguments;
    // The path of the desktop entry that launched this process; empty if the entry launched an
    // ancestor of the process.
    std::string launchedFrom;
    // Whether the process has a controlling terminal. If so, a command in a terminal started it.
    bool onTerminal = false;

    friend bool operator==(const ProcessFacts&, const ProcessFacts&) = default;
};

class ProcessReader {
public:
    ProcessReader() = default;
    ProcessReader(const ProcessReader&) = delete;
    ProcessReader& operator=(const ProcessReader&) = delete;
    virtual ~ProcessReader() = default;

    virtual ProcessFacts read(pid_t process) const = 0;
};

// Implements the reader with the files in /proc.
class KernelProcessReader : public ProcessReader {
public:
    ProcessFacts read(pid_t process) const override;
};

} // namespace glidemap
