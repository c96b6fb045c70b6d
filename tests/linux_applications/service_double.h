// Doubles of services on the test program's own session bus.
//
// Thread:  the test's; doubles answer on a thread of GIO's.
// Owner:   the test program: GIO keeps the first session bus that it has seen.
// Errors:  a bus that does not start is a failure of the test.
#pragma once

#include "desktops/private_bus.h"

#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

using GDBusMessage = struct _GDBusMessage;

namespace glidemap {

// The session bus of the whole program from the first call on.
const desktops::PrivateBus& sessionBus();

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
