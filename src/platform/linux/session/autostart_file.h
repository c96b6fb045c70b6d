// Parses an autostart file, determines whether a session would start the program from it, and
// repairs a file from which it would not.
//
// The relevant keys are Type, Hidden, OnlyShowIn and NotShowIn, X-GNOME-Autostart-enabled, TryExec
// and Exec. All other content of a user's file, including comments, is preserved.
//
// Thread:  the main thread; reading blocks on the disk.
// Errors:  none; a file that cannot be read or is not a desktop entry does not start anything.
#pragma once

#include "platform/linux/desktop/glib_owner.h"

#include <filesystem>
#include <string>
#include <vector>

namespace glidemap {

// The properties of a session that determine which autostart files it starts.
struct AutostartSession {
    std::vector<std::string> desktops; // the values of XDG_CURRENT_DESKTOP, the most specific first
    std::string searchPath;            // in the format of PATH
};

class AutostartFile {
public:
    enum class Start {
        happens,
        hidden,      // the same as if the file were deleted
        switchedOff, // by a setting of GNOME or a related desktop
        elsewhere,   // only other desktops start it
        impossible,  // there is no executable file to start
    };

    // Returns an object without keys if the file cannot be read.
    static AutostartFile read(const std::filesystem::path& file);

    Start start(const AutostartSession& session) const;
    bool starts(const AutostartSession& session, const std::filesystem::path& program) const;

    // Removes all keys that prevent this session from starting the program, and sets the program
    // unless the file already starts it.
    void repair(const AutostartSession& session, const std::filesystem::path& program);
    void hide();

    std::string text() const;

private:
    AutostartFile();
    bool isForProgram() const;
    bool isShownIn(const AutostartSession& session) const;
    bool tryExecExists(const AutostartSession& session) const;
    std::filesystem::path programIn(const AutostartSession& session) const;
    void describe();

    GlibOwner<GKeyFile> keys;
};

} // namespace glidemap
