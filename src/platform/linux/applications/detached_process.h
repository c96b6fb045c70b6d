// Starts a program that is on its own from its first instruction: a session of its own, no descriptor of ours but the two
// that it may complain to, nothing on its standard input, no signal blocked or ignored; and it is init's to wait for.
//
// Our memory is not copied for it. It is lent to the child until the child runs the program, so the calling thread waits
// that long, some tenths of a millisecond, and other threads run on.
//
// Thread:  any, while no other changes the environment.
// Errors:  as a value; nothing runs then.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace glidemap {

// Where a program's messages go if ours go to the journal: into a stream of its own, else they would all be ours.
struct JournalStream {
    std::string socket; // of the journal; empty for leaving things as they are
    std::string name;   // as which the messages appear
    bool output = false;
    bool complaints = false; // standard error
};

// For a program of that name: empty unless one of our streams is the journal's.
JournalStream journalStreamFor(const std::string& name);

struct DetachedCommand {
    // The program, looked for in PATH if it has no slash, and its arguments.
    std::vector<std::string> words;
    std::vector<std::string> environment; // "NAME=value"
    std::string folder = {};              // to work in; empty for ours
    JournalStream journal = {};
    // This variable will be the identifier of the process; empty for none.
    std::string processVariable = {};
};

struct DetachedProcess {
    pid_t identifier = -1;
    int error = 0; // of errno, if it could not be started
};

DetachedProcess startDetached(const DetachedCommand& command);

} // namespace glidemap
