// A transaction on D-Bus: a chain of asynchronous calls to services that may be missing, slow or
// stuck.
//
// A transaction connects to its bus, makes its calls and closes the connection. Most transactions
// are rare actions, such as locking the screen and showing the overview. Between these actions, an
// open connection would only wake up the program. The transactions that follow the user's session
// keep their connections until they are cancelled.
//
// Thread:  BusRequests on the main thread. Transactions run and end on the desktop thread.
// Owner:   a transaction's own callbacks keep it alive until the chain ends. The destructor of
//          BusRequests cancels pending transactions and waits until they have ended, which does not
//          take long.
// Errors:  reported as replies. Each step has a time limit. A cancelled transaction calls no
//          further callbacks.
#pragma once

#include "platform/linux/desktop/desktop_bus.h"
#include "platform/linux/desktop/desktop_thread.h"

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace glidemap {

struct BusMethod {
    Bus bus = Bus::session;
    const char* service = nullptr;
    const char* path = nullptr;
    const char* interface = nullptr;
    const char* name = nullptr;
};

// The reply from a service: a tuple that is valid during the callback, or null on failure.
// serviceMissing and isLate distinguish a missing service from one that refuses or does not reply.
struct BusReply {
    GVariant* values = nullptr;
    bool serviceMissing = false;
    bool isLate = false; // no reply in time; the service may still handle the call
    bool busIsOpen = true;
};

class BusRequests;

class BusRequest : public std::enable_shared_from_this<BusRequest> {
public:
    using Milliseconds = std::chrono::milliseconds;

    explicit BusRequest(Milliseconds stepPatience);
    BusRequest(const BusRequest&) = delete;
    BusRequest& operator=(const BusRequest&) = delete;
    virtual ~BusRequest();

    virtual void begin() = 0;

protected:
    using Then = std::function<void(const BusReply& answer)>;

    // Opens the bus if necessary, and calls the method. `arguments` is a tuple or null; a floating
    // reference is consumed.
    void call(const BusMethod& method, GVariant* arguments, Milliseconds patience,
              IfNotRunning ifNotRunning, Then then);
    void call(const BusMethod& method, GVariant* arguments, Then then);

    struct Signal {
        Bus bus = Bus::session;
        const char* service = nullptr;
        const char* interface = nullptr;
        const char* name = nullptr;
        const char* firstArgument = nullptr; // null matches any argument
    };
    // Calls `onSignal` for each matching signal until stopWaiting(). Call watch() in the callback
    // of a call on the same bus, because the bus must be open. Unlike calls and delays, a watch
    // keeps the transaction alive only if `onSignal` holds a reference to it.
    void watch(const Signal& signal, std::function<void(GVariant* values)> onSignal);

    // Calls `changed` whenever properties of the interface have changed.
    void watchProperties(Bus bus, const char* service, const char* interface,
                         std::function<void()> changed);
    void after(Milliseconds delay, std::function<void()> then);

    // Removes all watches and delays.
    void stopWaiting();

private:
    friend class BusRequests;
    struct State;

    // Cancels the chain. Pending callbacks then only release their references.
    void cancel();

    // Destroyed when the transaction ends. The destructor of BusRequests waits until then.
    std::shared_ptr<void> counted;
    const Milliseconds patienceOfAStep;
    std::unique_ptr<State> state;
};

class BusRequests {
public:
    explicit BusRequests(DesktopThread& thread);
    BusRequests(const BusRequests&) = delete;
    BusRequests& operator=(const BusRequests&) = delete;
    ~BusRequests();

    // Starts the transaction. The caller must not keep a reference to it.
    void start(std::shared_ptr<BusRequest> request);

private:
    struct Open;

    DesktopThread& desktop;
    std::shared_ptr<Open> open;
    std::vector<std::weak_ptr<BusRequest>> started;
};

} // namespace glidemap
