#include "platform/linux/session/session_lockers.h"

#include "platform/linux/desktop/environment.h"
#include "platform/linux/desktop/exec_line.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace glidemap {

namespace {

// Each of these programs runs exactly as long as the screen is locked. The last name is
// kscreenlocker_greet, truncated by the kernel.
constexpr std::array<std::string_view, 11> covers = {
    "swaylock", "i3lock", "gtklock", "waylock",  "hyprlock",       "xsecurelock",
    "slock",    "xlock",  "xtrlock", "physlock", "kscreenlocker_g"};

constexpr std::array<std::string_view, 5> daemons = {"xss-lock", "swayidle", "light-locker",
                                                     "xscreensaver", "xautolock"};

bool isCover(std::string_view program) {
    return std::ranges::find(covers, program) != covers.end();
}

// Whether a shell command, such as "swaylock -f -c 000000", starts a known locker.
bool locks(const std::string& line) {
    const std::vector<std::string> words = splitLikeAShell(line).words;
    return !words.empty() && isCover(words[0].substr(words[0].rfind('/') + 1));
}

std::string swayidleConfiguration() {
    const std::string folder = fromEnvironment("XDG_CONFIG_HOME");
    return contentOrEmpty((folder.empty() ? fromEnvironment("HOME") + "/.config" : folder) +
                          "/swayidle/config");
}

std::vector<std::vector<std::string>> linesOf(const std::string& text) {
    std::vector<std::vector<std::string>> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        lines.push_back(splitLikeAShell(text.substr(at, end - at)).words);
        at = end + 1;
    }
    return lines;
}

} // namespace

SessionLockers::SessionLockers(std::vector<SessionProcess> running, std::string_view currentDesktop,
                               const std::string& ownConfiguration) {
    if (std::ranges::count(splitAtColons(currentDesktop), "XFCE") > 0) {
        toTry.push_back({{"xflock4"}}); // runs the lock command from the user's settings
    }
    // The commands are in the order of `daemons`, not of the processes.
    for (const std::string_view daemon : daemons) {
        for (const SessionProcess& process : running) {
            if (process.name == daemon) {
                take(process, ownConfiguration);
            }
        }
    }
    locked = std::ranges::any_of(running, [](const auto& one) { return isCover(one.name); });
}

SessionLockers SessionLockers::ofThisSession() {
    std::vector<std::string_view> names(covers.begin(), covers.end());
    names.insert(names.end(), daemons.begin(), daemons.end());
    return {sessionProcesses(names), fromEnvironment("XDG_CURRENT_DESKTOP"),
            swayidleConfiguration()};
}

void SessionLockers::take(const SessionProcess& process, const std::string& ownConfiguration) {
    if (process.name == "xss-lock") {
        listens = true;
        toTry.push_back({{"xset", "s", "activate"}});
    } else if (process.name == "light-locker") {
        listens = true;
        toTry.push_back({{"light-locker-command", "--lock"}});
    } else if (process.name == "xscreensaver") {
        toTry.push_back({{"xscreensaver-command", "-lock"}});
    } else if (process.name == "xautolock") {
        toTry.push_back({{"xautolock", "-locknow"}});
    } else if (process.name == "swayidle") {
        takeFrom(process.arguments);
        for (const auto& words : linesOf(ownConfiguration)) {
            takeFrom(words);
        }
    }
}

// Parses the arguments of swayidle or one line of its configuration, such as "timeout 300 COMMAND"
// or "lock COMMAND". When logind asks the session to lock, swayidle runs only the command of
// "lock".
void SessionLockers::takeFrom(const std::vector<std::string>& words) {
    for (std::size_t at = 0; at < words.size(); ++at) {
        if (!locks(words[at])) {
            continue;
        }
        listens = listens || (at > 0 && words[at - 1] == "lock");
        toTry.push_back({{"/bin/sh", "-c", words[at]}, true});
    }
}

} // namespace glidemap
