// The screen lockers of a session that has no lock service on the bus, as its running programs show them.
//
// Thread:  any.
// Errors:  none. What the session does not show is not there.
#pragma once

#include "platform/linux/session/session_processes.h"

#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

struct LockCommand {
    std::vector<std::string> words;
    bool stays =
        false; // as long as the screen is locked; else it ends at once, and says whether it has locked
};

class SessionLockers {
public:
    // `ownConfiguration` is the text of swayidle's file; empty if there is none.
    SessionLockers(std::vector<SessionProcess> running, std::string_view currentDesktop,
                   const std::string& ownConfiguration);

    // As they are now.
    static SessionLockers ofThisSession();

    // One covers the screen.
    bool isLocked() const { return locked; }

    // One locks when logind wishes it.
    bool listensToLogind() const { return listens; }

    // In the order to try them in.
    const std::vector<LockCommand>& commands() const { return toTry; }

private:
    void take(const SessionProcess& process, const std::string& ownConfiguration);
    void takeFrom(const std::vector<std::string>& words);

    bool locked = false;
    bool listens = false;
    std::vector<LockCommand> toTry;
};

} // namespace glidemap
