// A transaction on a D-Bus bus: a chain of asynchronous calls to services that may be missing, slow
// or stuck.
//
// A transaction opens its bus, makes its calls and closes the bus. Locking the screen and showing
// the overview are rare, so no connection stays open in between and wakes the program.
//
// Thread:  BusRequests on the main thread; the transactions run and end on the desktop thread.
// Owner:   its own callbacks keep a transaction alive until the chain ends. The destructor of
//          BusRequests cancels pending transactions and waits until they have ended, which is
//          immediate.
// Errors:  as replies. Each step has a time limit; a cancelled transaction makes no further
//          callback.
#pragma once

#include "platform/linux/desktop/bus_address.h"
#include "platform/linux/desktop/desktop_thread.h"

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

using GVariant = struct _GVariant;

namespace glidemap {

struct BusMethod {
    Bus bus = Bus::session;
    const char* service = nullptr;
    const char* path = nullptr;
    const char* interface = nullptr;
    const char* name = nullptr;
};

// The reply of a service: a tuple, valid during the callback, or null on failure. A missing service
// is distinguished from one that refuses or does not reply.
struct BusReply {
    GVariant* values = nullptr;
    bool serviceMissing = false;
    bool isLate = false; // the service received the call and did not reply in time
    bool busIsOpen = true;
};

enum class IfNotRunning { leave, start };

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

    // `arguments` is a tuple, or null for none; a floating reference is consumed. Opens the bus
    // first if necessary.
    void call(const BusMethod& method, GVariant* arguments, Milliseconds patience,
              IfNotRunning ifNotRunning, Then then);
    void call(const BusMethod& method, GVariant* arguments, Then then);

    // Calls `onSignal` for each matching signal, until stopWaiting(). Start a watch in the callback of
    // a call on the same bus, which is open then. A watch keeps the transaction alive only if
    // `onSignal` holds a reference; calls and delays always do.
    struct Signal {
        Bus bus = Bus::session;
        const char* service = nullptr;
        const char* interface = nullptr;
        const char* name = nullptr;
        const char* firstArgument = nullptr; // null matches any
    };
    void watch(const Signal& signal, std::function<void(GVariant* values)> onSignal);

    // Calls `changed` each time properties of the interface have changed.
    void watchProperties(Bus bus, const char* service, const char* interface,
                         std::function<void()> changed);
    void after(Milliseconds delay, std::function<void()> then);

    // Ends all watches and delays.
    void stopWaiting();

private:
    friend class BusRequests;
    struct State;

    // Cancels the chain: pending callbacks only release their references.
    void cancel();

    std::shared_ptr<void> counted; // goes last: the destructor of BusRequests waits for it
    const Milliseconds patienceOfAStep;
    std::unique_ptr<State> state;
};

class BusRequests {
public:
    explicit BusRequests(DesktopThread& thread);
    BusRequests(const BusRequests&) = delete;
    BusRequests& operator=(const BusRequests&) = delete;
    ~BusRequests();

    // The caller must not keep a reference.
    void start(std::shared_ptr<BusRequest> request);

private:
    struct Open;

    DesktopThread& desktop;
    std::shared_ptr<Open> open;
    std::vector<std::weak_ptr<BusRequest>> started;
};

} // namespace glidemap
