// Runs a headless GNOME Shell with its own session bus and system bus. The test may kill and
// restart it.
//
// Thread:  one.
// Owner:   a test.
// Errors:  a shell that is not ready in time fails the test.
#pragma once

#include "desktops/private_bus.h"
#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <optional>

namespace glidemap::test {

class GnomeShell {
public:
    // Whether the test may run code in the shell. Allowing this also opens other protected
    // interfaces.
    enum class Eval { forbidden, allowed };

    // Returns the name of a missing program or package; nullopt if all are installed.
    static std::optional<std::string> missing();

    explicit GnomeShell(Eval eval = Eval::forbidden);

    // Returns when the shell has started and its overview is closed.
    void start();

    // Installs and enables the extension, as if the user had done so in an earlier session. Call
    // this before start().
    void addExtension(const std::filesystem::path& form) const;

    // Evaluates the expression and returns its value as JSON.
    std::string evaluate(const std::string& expression) const;

    void disableExtension(const std::string& uuid) const;

    void kill() { program.reset(); }

    const PrivateBus& bus() const { return sessionBus; }
    bool isOverviewOpen() const;

    // The environment of the shell's programs.
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

} // namespace glidemap::test
