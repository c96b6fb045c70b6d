// Starts a program that is detached from this process. The program gets its own session and an
// empty standard input, inherits only our standard output and error, and starts with no signal
// blocked or ignored. When it exits, init reaps it.
//
// Until the child executes the program, it shares our memory instead of using a copy. The calling
// thread is blocked during this time, for a few tenths of a millisecond. Other threads continue to
// run.
//
// Thread:  any, while no other thread changes the environment.
// Errors:  returned as a value; no process was started in this case.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace glidemap {

// A separate journal stream for the program, if our own messages go to the journal. Without it, the
// journal would attribute the messages of the launched program to Glidemap.
struct JournalStream {
    std::string socket;       // the journal's socket; if empty, the program keeps our streams
    std::string name;         // the identifier for the program's messages
    bool output = false;      // standard output goes to the journal
    bool errorOutput = false; // standard error goes to the journal
};

// Returns the stream for a program with this name. Returns an empty stream unless our standard
// output or error goes to the journal.
JournalStream journalStreamFor(const std::string& name);

struct DetachedCommand {
    // The program and its arguments. If the program's name contains no slash, it is searched for in
    // this process's PATH.
    std::vector<std::string> words;
    std::vector<std::string> environment; // "NAME=value"
    std::string folder = {};              // the working folder; if empty, ours is inherited
    JournalStream journal = {};
    // The name of an environment variable that is set to the id of the new process. If empty, no
    // variable is set.
    std::string processVariable = {};
};

struct DetachedProcess {
    pid_t identifier = -1;
    int error = 0; // an errno value if the process could not be started
};

DetachedProcess startDetached(const DetachedCommand& command);

} // namespace glidemap
