// An errand on the desktop's D-Bus buses: a chain of calls to services that may be missing, slow or
// silent, while nobody waits.
//
// An errand opens what it needs, asks, and closes it again: locking the screen and showing the
// windows are rare, and nothing of them shall stay open, or wake the program up, in between.
//
// Thread:  BusErrands on the main thread; all that an errand does, and its end, on the desktop thread.
// Owner:   its own callbacks keep an errand alive until its chain ends. Destroying the BusErrands
//          calls off what is under way, and waits until it has ended, which is at once.
// Errors:  as answers. Each step is bounded in time; no callback comes after an errand is called
//          off.
#pragma once

#include "platform/linux/session/bus_address.h"
#include "platform/linux/windows/desktop_thread.h"

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

// What a service answered: a tuple, valid during the callback, or null. A service that nobody
// offers is told apart from one that refuses or keeps silent.
struct BusAnswer {
    GVariant* values = nullptr;
    bool nobodyThere = false;
    bool isLate = false; // the call has reached it, and has not returned in time
    bool busIsOpen = true;
};

enum class IfNotRunning { leave, start };

class BusErrands;

class BusErrand : public std::enable_shared_from_this<BusErrand> {
public:
    using Milliseconds = std::chrono::milliseconds;

    explicit BusErrand(Milliseconds stepPatience);
    BusErrand(const BusErrand&) = delete;
    BusErrand& operator=(const BusErrand&) = delete;
    virtual ~BusErrand();

    virtual void begin() = 0;

protected:
    using Then = std::function<void(const BusAnswer& answer)>;

    // `arguments` is a tuple, or null for none; a floating one is taken over. Opens the bus first
    // where that has not been done.
    void call(const BusMethod& method, GVariant* arguments, Milliseconds patience,
              IfNotRunning ifNotRunning, Then then);
    void call(const BusMethod& method, GVariant* arguments, Then then);

    // Calls `heard` for each such signal, until stopWaiting(). The bus must be open: within the
    // answer to a call on it. A watch does not keep the errand alive, unless `heard` holds it; a
    // call or a delay does.
    struct Signal {
        Bus bus = Bus::session;
        const char* service = nullptr;
        const char* interface = nullptr;
        const char* name = nullptr;
        const char* firstArgument = nullptr; // null for any
    };
    void watch(const Signal& signal, std::function<void(GVariant* values)> heard);

    // The same for each announcement of changed properties of the interface.
    void watchProperties(Bus bus, const char* service, const char* interface,
                         std::function<void()> changed);
    void after(Milliseconds delay, std::function<void()> then);

    // For signals and delays.
    void stopWaiting();

private:
    friend class BusErrands;
    struct State;

    // Ends the chain: callbacks that are still due only let go of what they hold.
    void callOff();

    std::shared_ptr<void> counted; // goes last: who waits for the end waits for all of it
    const Milliseconds patienceOfAStep;
    std::unique_ptr<State> state;
};

class BusErrands {
public:
    explicit BusErrands(DesktopThread& thread);
    BusErrands(const BusErrands&) = delete;
    BusErrands& operator=(const BusErrands&) = delete;
    ~BusErrands();

    // The caller keeps no reference.
    void start(std::shared_ptr<BusErrand> errand);

private:
    struct Open;

    DesktopThread& desktop;
    std::shared_ptr<Open> open;
    std::vector<std::weak_ptr<BusErrand>> started;
};

} // namespace glidemap
