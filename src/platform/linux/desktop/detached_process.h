// Starts a program that is detached from the start. It has its own session, only our standard
// output and error, an empty standard input, and no blocked or ignored signal; init reaps it.
//
// The child shares our memory instead of a copy until it executes the program. So the calling
// thread blocks for some tenths of a millisecond, while other threads run on.
//
// Thread:  any, while no other thread changes the environment.
// Errors:  returned as a value; no process runs then.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace glidemap {

// The journal stream of a program, if our own messages go to the journal. Without it the journal
// would attribute the program's messages to us.
struct JournalStream {
    std::string socket;       // the journal's socket; empty to keep our streams
    std::string name;         // the identifier of the messages
    bool output = false;      // standard output goes to the journal
    bool errorOutput = false; // standard error goes to the journal
};

// The stream for a program of that name; empty unless one of our streams goes to the journal.
JournalStream journalStreamFor(const std::string& name);

struct DetachedCommand {
    // The program and its arguments. A program without a slash is searched in PATH.
    std::vector<std::string> words;
    std::vector<std::string> environment; // "NAME=value"
    std::string folder = {};              // the working folder; empty for ours
    JournalStream journal = {};
    // The variable to set to the id of the process; empty for none.
    std::string processVariable = {};
};

struct DetachedProcess {
    pid_t identifier = -1;
    int error = 0; // errno, if the process could not be started
};

DetachedProcess startDetached(const DetachedCommand& command);

} // namespace glidemap
