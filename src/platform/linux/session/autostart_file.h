// Reads one autostart file: whether a session would start its program, and how to repair it if not.
//
// These keys decide: Type, Hidden, OnlyShowIn and NotShowIn, X-GNOME-Autostart-enabled, TryExec and
// Exec. Everything else in a user's file, including comments, is preserved.
//
// Thread:  the main thread; reading blocks on the disk.
// Errors:  none; a file that cannot be read, or is not a desktop entry, starts nothing.
#pragma once

#include "platform/linux/desktop/glib_owner.h"

#include <filesystem>
#include <string>
#include <vector>

namespace glidemap {

// The properties of the session that decide along with the file.
struct AutostartSession {
    std::vector<std::string> desktops; // the values of XDG_CURRENT_DESKTOP, the most specific first
    std::string searchPath;            // in the format of PATH
};

class AutostartFile {
public:
    enum class Start {
        happens,
        hidden,      // equivalent to deleted
        switchedOff, // by the settings of GNOME and related desktops
        elsewhere,   // on other desktops
        impossible,  // no executable to start
    };

    // Returns an empty file if it cannot be read.
    static AutostartFile read(const std::filesystem::path& file);

    Start start(const AutostartSession& session) const;
    bool starts(const AutostartSession& session, const std::filesystem::path& program) const;

    // Removes all keys that keep this session from starting the file. Sets the program unless the
    // file already names it.
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
