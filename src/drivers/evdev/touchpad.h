// One touchpad of the driver's list. The object stays while the touchpad is unplugged, and reports
// again after the touchpad has returned.
//
//   idle ──start──▶ connected ──unplugged──▶ waiting ──returned──▶ connected …
//                               access lost             access given
//
// stop() returns to idle from connected and from waiting.
//
// Thread:  under the driver's lock; read() on the reader's thread.
// Owner:   TouchpadDriver, for the life of the process. The object's address is the device handle.
// Errors:  none; if the touchpad cannot be opened, the driver waits for it.
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
    PadConnection(std::string node, std::unique_ptr<OpenPad> openPad, driver::Device device,
                  ClickInterception& clicks)
        : node(std::move(node)), pad(std::move(openPad)), assembler(pad->description()),
          interception(device, *pad, clicks) {}

    std::string node;
    std::unique_ptr<OpenPad> pad;
    ContactAssembler assembler;
    PadInterception interception;
    // True until the first read, which must not wait for poll(), because the initial state does not
    // make the descriptor readable.
    bool isFirstRead = true;
    bool mayBeRead = true; // false once this user has lost access to the node
};

class Touchpad {
public:
    explicit Touchpad(PadIdentity identity) : _identity(std::move(identity)) {}
    Touchpad(const Touchpad&) = delete;
    Touchpad& operator=(const Touchpad&) = delete;

    const PadIdentity& identity() const { return _identity; }
    bool isStarted() const { return started; }
    bool isWaiting() const { return started && connection == nullptr; }
    bool mayHaveReturned() const { return isWaiting() && !broken; }
    PadConnection* connected() const { return connection.get(); }
    bool isOpenAt(const std::string& otherNode) const;

    // Returns the time at which the reader must serve the touchpad's clone even if no event
    // arrives. Returns nullopt if the clone does not require it.
    std::optional<ClickInterception::Moment> nextLook() const;
    bool isForwardedAndTouched() const;

    // Returns the node at which the touchpad was last seen. Returns an empty string if it was never
    // seen.
    const std::string& lastNode() const { return node; }
    void setLastNode(const std::string& newNode) { node = newNode; }

    void addCallback(driver::ContactCallback callback);
    void removeCallback(driver::ContactCallback callback);

    void start();
    void connect(std::unique_ptr<PadConnection> newConnection);

    // After a read error, the touchpad is not opened again before this call, because constant
    // retries would keep the machine busy.
    void allowRetry() { broken = false; }

    // Releases the touchpad and returns its connection. The caller must keep the connection,
    // because the reader may be using it.
    std::unique_ptr<PadConnection> stop();

    // Reports all pending events, until a callback stops this touchpad or the touchpad is lost.
    // Requires a connection.
    void read(const driver::ButtonCallback& buttonCallback);

    // Closes the touchpad as if it were unplugged, because this user may not read it any more.
    // Requires a connection.
    void revoke(const driver::ButtonCallback& buttonCallback);

private:
    void report(const PadFrame& frame, const driver::ButtonCallback& buttonCallback);
    void disconnect(const char* reason, const driver::ButtonCallback& buttonCallback);

    PadIdentity _identity;
    std::string node;
    bool started = false;
    bool broken = false;
    std::unique_ptr<PadConnection> connection;
    std::vector<driver::ContactCallback> callbacks;
};

} // namespace glidemap
