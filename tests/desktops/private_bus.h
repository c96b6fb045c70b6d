// A session bus of a test's own, where nothing is started by being called.
//
// Thread:  one.
// Owner:   a test or a desktop.
// Errors:  a name that does not appear in time is a failure of the test, and so is a call that
//          fails.
#pragma once

#include "desktops/program.h"

#include <filesystem>
#include <string>

using GDBusConnection = struct _GDBusConnection;
using GVariant = struct _GVariant;

namespace glidemap::desktops {

class PrivateBus {
public:
    // Keeps its configuration and its log in the folder.
    explicit PrivateBus(const std::filesystem::path& folder);
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus();

    const std::string& address() const { return _address; }

    // The test's own connection to it.
    GDBusConnection* connection() const { return _connection; }

    void waitForName(const std::string& name) const;

    // Waits for the answer, which the caller gives back (g_variant_unref). Takes the arguments.
    GVariant* call(const std::string& name, const std::string& path, const std::string& interface,
                   const std::string& method, GVariant* arguments) const;

    void kill();

private:
    Program daemon;
    std::string _address;
    GDBusConnection* _connection = nullptr;
};

} // namespace glidemap::desktops
