// Runs a message bus for a test. The bus has only the test's clients, and starts no service unless
// the test allows it.
//
// Thread:  one.
// Owner:   a test or a desktop.
// Errors:  a name that does not appear in time, or a call that fails, fails the test.
#pragma once

#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <string>

using GDBusConnection = struct _GDBusConnection;
using GVariant = struct _GVariant;

namespace glidemap::test {

class PrivateBus {
public:
    PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus();

    const std::string& address() const { return _address; }

    // The test's own connection to the bus.
    GDBusConnection* connection() const { return _connection; }

    void waitForName(const std::string& name) const;

    // Makes the bus start the command when a client calls a service with this name.
    void makeStartable(const std::string& name, const std::string& command) const;

    // Waits for the reply, which the caller must release (g_variant_unref). Consumes the arguments.
    GVariant* call(const std::string& name, const std::string& path, const std::string& interface,
                   const std::string& method, GVariant* arguments) const;

    void kill();

    // Suspends the bus process until goOn(). The bus still accepts connections but does not
    // respond, so the test's own calls block, too.
    void stop() const;
    void goOn() const;

private:
    RuntimeFolder folder;
    Program daemon;
    std::string _address;
    GDBusConnection* _connection = nullptr;
};

} // namespace glidemap::test
