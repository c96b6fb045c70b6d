// A headless GNOME Shell with a session bus and a system bus of its own, which may be killed and
// started again.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a shell that is not ready in time is a failure of the test.
#pragma once

#include "desktops/private_bus.h"
#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <optional>

namespace glidemap::desktops {

class GnomeShell {
public:
    // Whether the test may run code of its own in the shell. What else is guarded is open then, too.
    enum class Eval { forbidden, allowed };

    // None if everything is, else the name of what is missing.
    static std::optional<std::string> missing();

    explicit GnomeShell(Eval eval = Eval::forbidden);

    // Returns once it has started, with the overview closed.
    void start();

    // Before it starts: the user has installed and enabled the extension in an earlier session.
    void addExtension(const std::filesystem::path& form) const;

    // The value of the expression, as JSON.
    std::string evaluate(const std::string& expression) const;

    void disableExtension(const std::string& uuid) const;

    void kill() { program.reset(); }

    const PrivateBus& bus() const { return sessionBus; }
    bool isOverviewOpen() const;

    // The environment of its programs.
    const Environment& environment() const { return settings; }

private:
    void addLoginSession();
    void closeOverview() const;
    void waitForOverview(bool open) const;

    Eval eval;
    RuntimeFolder folder;
    PrivateBus sessionBus;
    PrivateBus systemBus;
    Environment settings;
    std::optional<Program> loginService;
    std::optional<Program> program;
};

} // namespace glidemap::desktops
