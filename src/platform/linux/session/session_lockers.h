// Determines the screen lockers of a session from its running programs, for sessions without a lock
// service on the bus.
//
// Thread:  any.
// Errors:  none; a program that cannot be inspected is skipped.
#pragma once

#include "platform/linux/session/session_processes.h"

#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

struct LockCommand {
    std::vector<std::string> words;
    // Whether the command runs until the screen is unlocked. Other commands exit immediately, and
    // report by their exit status whether they have locked the screen.
    bool stays = false;
};

class SessionLockers {
public:
    // `ownConfiguration` is the content of swayidle's configuration file; empty if the file does
    // not exist.
    SessionLockers(std::vector<SessionProcess> running, std::string_view currentDesktop,
                   const std::string& ownConfiguration);

    // Returns the lockers that the session has at this moment.
    static SessionLockers ofThisSession();

    // Whether a locker covered the screen when the programs were listed.
    bool isLocked() const { return locked; }

    // Whether one of the programs locks the screen when logind requests it.
    bool listensToLogind() const { return listens; }

    // Returns the commands to try, in order.
    const std::vector<LockCommand>& commands() const { return toTry; }

private:
    void take(const SessionProcess& process, const std::string& ownConfiguration);
    void takeFrom(const std::vector<std::string>& words);

    bool locked = false;
    bool listens = false;
    std::vector<LockCommand> toTry;
};

} // namespace glidemap
