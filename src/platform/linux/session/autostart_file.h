// One autostart file: whether a session would start what it names, and what has to change so that
// it does.
//
// Looked at: the type, Hidden, OnlyShowIn and NotShowIn, X-GNOME-Autostart-enabled, TryExec and
// Exec. Everything else in a user's file, comments too, is kept as it is.
//
// Thread:  the main thread; reading blocks for as long as the disk does.
// Errors:  a file that cannot be read, or is none of its kind, starts nothing.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

using GKeyFile = struct _GKeyFile;

namespace glidemap {

// What decides beside the file itself.
struct AutostartSession {
    std::vector<std::string> desktops; // its names for itself, the most special first
    std::string searchPath;            // as in PATH
};

class AutostartFile {
public:
    enum class Start {
        happens,
        hidden,      // as good as deleted
        switchedOff, // by the settings of GNOME and its relatives
        elsewhere,   // on other desktops
        impossible,  // nothing that could be run
    };

    // An empty one if the file cannot be read.
    static AutostartFile read(const std::filesystem::path& file);

    Start start(const AutostartSession& session) const;
    bool starts(const AutostartSession& session, const std::filesystem::path& program) const;

    // Takes out what keeps this session from starting it, and names the program unless it is
    // already the one named.
    void repair(const AutostartSession& session, const std::filesystem::path& program);
    void hide();

    std::string text() const;

private:
    struct Free {
        void operator()(GKeyFile* keys) const;
    };

    AutostartFile();
    bool isForProgram() const;
    bool isShownIn(const AutostartSession& session) const;
    bool tryExecIsThere(const AutostartSession& session) const;
    std::filesystem::path programIn(const AutostartSession& session) const;
    void describe();

    std::unique_ptr<GKeyFile, Free> keys;
};

} // namespace glidemap
