// Reads the properties of a process that identify its application.
//
// Thread:  any.
// Errors:  none. A property is empty if it cannot be read: the process has exited or belongs to
//          another user.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace glidemap {

struct ProcessFacts {
    std::string controlGroups; // the content of its cgroup file
    std::string executable;    // path
    std::vector<std::string> arguments;
    // Path of the entry that launched this process; empty if it launched an ancestor.
    std::string launchedFrom;
    bool onTerminal = false; // the process has a controlling terminal, so a user typed its name

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

// Reads /proc.
class KernelProcessReader : public ProcessReader {
public:
    ProcessFacts read(pid_t process) const override;
};

} // namespace glidemap
