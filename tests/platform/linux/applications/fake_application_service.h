// Fake services on the test program's own session bus.
//
// Thread:  the test's; the fakes reply on GIO's own thread.
// Owner:   the test program: GIO uses its first session bus until the process exits.
// Errors:  a bus that does not start fails the test.
#pragma once

#include "desktops/private_bus.h"

#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

using GDBusMessage = struct _GDBusMessage;

namespace glidemap {

// Returns the bus. The first call makes it the program's session bus.
const test::PrivateBus& sessionBus();

// Owns a name during its lifetime, records calls, and sends the same reply to each call.
class FakeApplicationService {
public:
    // Each reply is an error with the name `answeredError`, or empty if this name is empty.
    explicit FakeApplicationService(const std::string& name, std::string answeredError = "");
    FakeApplicationService(const FakeApplicationService&) = delete;
    FakeApplicationService& operator=(const FakeApplicationService&) = delete;
    ~FakeApplicationService();

    // Returns the next call as "object path, interface.method, arguments".
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
