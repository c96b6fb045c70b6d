// Finds the screen lockers of a session without a lock service on the bus, from its running
// programs.
//
// Thread:  any.
// Errors:  none; a program that cannot be seen is skipped.
#pragma once

#include "platform/linux/session/session_processes.h"

#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

struct LockCommand {
    std::vector<std::string> words;
    // Whether it runs as long as the screen is locked. Others exit at once, with success if they have
    // locked the screen.
    bool stays = false;
};

class SessionLockers {
public:
    // `ownConfiguration` is the content of swayidle's file; empty if it does not exist.
    SessionLockers(std::vector<SessionProcess> running, std::string_view currentDesktop,
                   const std::string& ownConfiguration);

    // Returns the lockers that this session has at this moment.
    static SessionLockers ofThisSession();

    // Whether a locker covers the screen.
    bool isLocked() const { return locked; }

    // Whether a running program locks on logind's request.
    bool listensToLogind() const { return listens; }

    // The commands to try, in order.
    const std::vector<LockCommand>& commands() const { return toTry; }

private:
    void take(const SessionProcess& process, const std::string& ownConfiguration);
    void takeFrom(const std::vector<std::string>& words);

    bool locked = false;
    bool listens = false;
    std::vector<LockCommand> toTry;
};

} // namespace glidemap
