// A session bus of the test program's own, and doubles of services on it.
//
// Thread:  the test's; doubles answer on a thread of GIO's.
// Owner:   the test program: GIO keeps the first session bus that it has seen.
// Errors:  a bus that does not start is a failure of the test.
#pragma once

#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

using GDBusConnection = struct _GDBusConnection;
using GDBusMessage = struct _GDBusMessage;

namespace glidemap {

class PrivateBus {
public:
    static PrivateBus& instance();

    const std::string& address() const { return where; }

private:
    PrivateBus();

    desktops::RuntimeFolder folder;
    desktops::Program daemon;
    std::string where;
};

// Owns a name while it lives, writes down what it is asked, and answers everything alike.
class ServiceDouble {
public:
    // With nothing, or with the error of that name.
    explicit ServiceDouble(const std::string& name, std::string answeredError = "");
    ServiceDouble(const ServiceDouble&) = delete;
    ServiceDouble& operator=(const ServiceDouble&) = delete;
    ~ServiceDouble();

    // The next call as "object path, interface.method, arguments".
    std::string nextCall();

private:
    static GDBusMessage* filter(GDBusConnection* connection, GDBusMessage* message, int incoming,
                                void* self);
    void take(GDBusMessage* message);

    std::string error;
    GDBusConnection* connection = nullptr;
    std::mutex mutex;
    std::condition_variable called;
    std::vector<std::string> calls;
};

} // namespace glidemap
