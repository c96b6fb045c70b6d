// A message bus of a test's own: nobody is on it but whom the test puts there, and nothing is started by
// being asked for unless the test says so.
//
// Thread:  one.
// Owner:   a test or a desktop.
// Errors:  a name that does not appear in time is a failure of the test, and so is a call that
//          fails.
#pragma once

#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <string>

using GDBusConnection = struct _GDBusConnection;
using GVariant = struct _GVariant;

namespace glidemap::desktops {

class PrivateBus {
public:
    PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus();

    const std::string& address() const { return _address; }

    // The test's own connection to it.
    GDBusConnection* connection() const { return _connection; }

    void waitForName(const std::string& name) const;

    // From now on, the bus starts the command for whoever asks for the name.
    void makeStartable(const std::string& name, const std::string& command) const;

    // Waits for the answer, which the caller gives back (g_variant_unref). Takes the arguments.
    GVariant* call(const std::string& name, const std::string& path, const std::string& interface,
                   const std::string& method, GVariant* arguments) const;

    void kill();

    // It still accepts connections and does not respond. The test's own calls wait then, too.
    void stop() const;
    void goOn() const;

private:
    RuntimeFolder folder;
    Program daemon;
    std::string _address;
    GDBusConnection* _connection = nullptr;
};

} // namespace glidemap::desktops
