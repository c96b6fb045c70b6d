// One device record: a touchpad that was present when the list was made. The record stays while the
// touchpad is unplugged and reports again after its return.
//
//   idle ──start──▶ connected ──unplugged──▶ waiting ──returned──▶ connected …
//     ▲                         access lost             access given
//     ▲─────────────── stop ─────────────────────┘
//
// Thread:  under the driver's lock; read() on the reader's thread.
// Owner:   TouchpadDriver, for the life of the process: the record's address is the device.
// Errors:  none; the driver waits for a touchpad that cannot be opened.
#pragma once

#include "drivers/contact/contact_assembler.h"
#include "drivers/evdev/click_interception.h"
#include "drivers/evdev/pad_directory.h"
#include "drivers/evdev/pad_interception.h"
#include "input/touch_driver.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace glidemap {

// An open touchpad. It lives until the reader has finished with it, even if it was stopped
// meanwhile.
struct PadConnection {
    PadConnection(std::string itsNode, std::unique_ptr<OpenPad> openPad, driver::Device device,
                  ClickInterception& clicks)
        : node(std::move(itsNode)), pad(std::move(openPad)), assembler(pad->description()),
          interception(device, *pad, clicks) {}

    std::string node;
    std::unique_ptr<OpenPad> pad;
    ContactAssembler assembler;
    PadInterception interception;
    bool fresh = true;     // its first events can be read before its descriptor is readable
    bool mayBeRead = true; // false once this user has lost access to the node
};

class Touchpad {
public:
    explicit Touchpad(PadIdentity itsIdentity) : _identity(std::move(itsIdentity)) {}
    Touchpad(const Touchpad&) = delete;
    Touchpad& operator=(const Touchpad&) = delete;

    const PadIdentity& identity() const { return _identity; }
    bool isStarted() const { return started; }
    bool isWaiting() const { return started && connection == nullptr; }
    bool mayHaveReturned() const { return isWaiting() && !broken; }
    PadConnection* connected() const { return connection.get(); }
    bool isOpenAt(const std::string& otherNode) const;

    // When the forwarding next needs the reader; nullopt if not at all, or without a connection.
    std::optional<ClickInterception::Moment> nextLook() const;
    bool isForwardedAndTouched() const;

    // The node at which the touchpad was last seen; empty if it was never seen.
    const std::string& lastNode() const { return node; }
    void setLastNode(const std::string& newNode) { node = newNode; }

    void addCallback(driver::ContactCallback callback);
    void removeCallback(driver::ContactCallback callback);

    void start();
    void connect(std::unique_ptr<PadConnection> newConnection);

    // A connected touchpad that failed to read is not retried until this call, because constant
    // retries would keep the machine busy.
    void allowRetry() { broken = false; }

    // Gives the touchpad back before it returns. The caller receives the connection, because the
    // reader may be using it.
    std::unique_ptr<PadConnection> stop();

    // Reports all pending events, until a callback stops this touchpad or the touchpad is lost.
    // Requires a connection.
    void read(const driver::ButtonCallback& buttonCallback);

    // Closes the touchpad, which this user may not read any more, as if it were unplugged. Needs a
    // connection.
    void withdraw(const driver::ButtonCallback& buttonCallback);

private:
    void report(const PadFrame& frame, const driver::ButtonCallback& buttonCallback);
    void lose(const char* reason, const driver::ButtonCallback& buttonCallback);

    PadIdentity _identity;
    std::string node;
    bool started = false;
    bool broken = false;
    std::unique_ptr<PadConnection> connection;
    std::vector<driver::ContactCallback> callbacks;
};

} // namespace glidemap
