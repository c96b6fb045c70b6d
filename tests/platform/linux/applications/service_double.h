// Fake services on the test program's own session bus.
//
// Thread:  the test's; the fakes reply on a thread of GIO's.
// Owner:   the test program: GIO keeps the first session bus that it has used.
// Errors:  a bus that does not start fails the test.
#pragma once

#include "desktops/private_bus.h"

#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

using GDBusMessage = struct _GDBusMessage;

namespace glidemap {

// Becomes the program's session bus with the first call.
const desktops::PrivateBus& sessionBus();

// Owns a name during its life, records calls, and sends the same reply to all.
class ServiceDouble {
public:
    // The reply is empty, or the error with this name.
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
