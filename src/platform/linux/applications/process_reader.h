// What the system knows about a process, as far as it tells which application the process is.
//
// Thread:  any.
// Errors:  none. What cannot be read (the process is gone, or is another user's) is empty.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace glidemap {

struct ProcessFacts {
    std::string controlGroups; // the text of its cgroup file
    std::string executable;    // path
    std::vector<std::string> arguments;
    std::string launchedFrom; // the desktop entry's file, if this very process was launched so
    bool onTerminal = false;  // it has a controlling terminal, so somebody typed its name

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

// From the kernel.
class KernelProcessReader : public ProcessReader {
public:
    ProcessFacts read(pid_t process) const override;
};

} // namespace glidemap
