// Ports: the list of touchpads, a touchpad's events, its clone, and the watches for returning
// touchpads and for new clones.
//
// Thread:  PadDirectory on any thread, one at a time. An OpenPad and its clone on any thread, one
//          at a time unless a function says otherwise; the reader's thread reads and closes the
//          pad. A ReturnWatch and a CloneWatch on the reader's thread.
// Errors:  returned as values. Only a failed allocation throws.
#pragma once

#include "drivers/contact/contact_assembler.h"
#include "drivers/contact/pad_description.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace glidemap {

// The properties that a touchpad keeps when it is unplugged and then connected again, possibly at
// another node.
struct PadIdentity {
    std::int32_t bus = 0;
    std::int32_t vendor = 0;
    std::int32_t product = 0;
    std::int32_t version = 0;
    std::string name;
    std::string physicalPath;
    std::string uniqueName;

    friend bool operator==(const PadIdentity&, const PadIdentity&) = default;
};

// A connected multitouch touchpad.
struct PadCandidate {
    std::string node;
    PadIdentity identity;
    bool readable = true; // whether this user may read it; checked without opening the node
};

// Whether a clone has a node, whether udev has announced it, and whether a program has opened it.
struct CloneStanding {
    bool hasNode = false;
    bool isAnnounced = false;   // udev has initialised the clone and tags it as a touchpad
    std::optional<bool> isOpen; // whether a program has the clone open; nullopt if unknown

    friend bool operator==(const CloneStanding&, const CloneStanding&) = default;
};

// A virtual touchpad that copies a real one and emits the events that are written to it.
class PadClone {
public:
    PadClone() = default;
    PadClone(const PadClone&) = delete;
    PadClone& operator=(const PadClone&) = delete;
    // Like destroy(), the destructor removes the device.
    virtual ~PadClone() = default;

    // Returns the sysfs path of the clone's event node, or an empty path if the node does not
    // exist.
    virtual std::string place() const = 0;

    // Writes a frame, which includes its SYN_REPORT. Returns false if the clone cannot be written
    // any more.
    virtual bool write(std::span<const InputEvent> frame) = 0;

    // Removes the device. The kernel then releases its contacts and keys, and later writes fail.
    // May be called on any thread, also while another thread writes.
    virtual void destroy() = 0;
};

struct GrabResult {
    enum class Outcome {
        grabbed,
        interrupted, // not grabbed: the touchpad has sent events that have not been read
        refused,     // not grabbed: another program has grabbed the touchpad
    };

    Outcome outcome = Outcome::refused;
    double time = 0; // if grabbed: the time of the grab, as OpenPad::grab() returns it
};

class OpenPad {
public:
    enum class Read {
        event,
        nothing, // no event until the descriptor is readable again
        gone,    // the touchpad was unplugged
        broken,  // the touchpad is connected but cannot be read
    };

    OpenPad() = default;
    OpenPad(const OpenPad&) = delete;
    OpenPad& operator=(const OpenPad&) = delete;
    virtual ~OpenPad() = default;

    virtual int descriptor() const = 0;
    virtual const PadDescription& description() const = 0;

    // Returns the next event without waiting. The first events describe the state when the pad was
    // opened.
    virtual Read next(InputEvent& event) = 0;

    // Returns whether the touchpad has a left or a right button.
    virtual bool hasButtons() const = 0;

    // Hides the touchpad's events from other programs. Returns the time of the grab, by the events'
    // clock: other programs received the earlier events, and only this process receives the later
    // ones. Returns nullopt if the grab fails.
    virtual std::optional<double> grab() = 0;
    // The same, for a touchpad whose events have all been read and that is untouched. If a touch
    // begins in the meantime, other programs may have received its beginning. They then also
    // receive the rest, because this function releases the touchpad immediately.
    virtual GrabResult grabBetweenTouches() = 0;
    // Releases the grab. Returns a time by the events' clock: other programs received no earlier
    // event since the grab, and all later ones. May be called on any thread, also while another
    // thread reads.
    virtual double ungrab() = 0;
    // The same, for a touchpad whose events have all been read and that is untouched. If a touch
    // begins in the meantime, this function keeps the grab and returns nullopt.
    virtual std::optional<double> ungrabBetweenTouches() = 0;

    // Returns null if the clone cannot be created, for example without permission.
    virtual std::unique_ptr<PadClone> makeClone() = 0;
};

class ReturnWatch {
public:
    ReturnWatch() = default;
    ReturnWatch(const ReturnWatch&) = delete;
    ReturnWatch& operator=(const ReturnWatch&) = delete;
    virtual ~ReturnWatch() = default;

    // A descriptor becomes ready when a touchpad may have returned, or when this user may have got
    // access to a touchpad. An unused entry is −1.
    virtual std::array<int, 2> descriptors() const = 0;

    // Drains all notifications and prepares for the next ones.
    virtual void acknowledge() = 0;
};

// Watches whether udev announces clones and whether programs open them. Create it before the
// clones.
class CloneWatch {
public:
    CloneWatch() = default;
    CloneWatch(const CloneWatch&) = delete;
    CloneWatch& operator=(const CloneWatch&) = delete;
    virtual ~CloneWatch() = default;

    // A descriptor becomes ready when the standing of a clone may have changed. An unused entry is
    // −1.
    virtual std::array<int, 2> descriptors() const = 0;

    // Drains all notifications.
    virtual void acknowledge() = 0;

    virtual CloneStanding standing(const PadClone& clone) const = 0;
};

class PadDirectory {
public:
    PadDirectory() = default;
    PadDirectory(const PadDirectory&) = delete;
    PadDirectory& operator=(const PadDirectory&) = delete;
    virtual ~PadDirectory() = default;

    virtual std::vector<PadCandidate> candidates() = 0;

    // Looks up the touchpad at the given node only, which is cheaper than finding all touchpads.
    virtual std::optional<PadCandidate> candidateAt(const std::string& node) = 0;

    // Returns null if the touchpad cannot be opened or is gone.
    virtual std::unique_ptr<OpenPad> open(const PadCandidate& candidate) = 0;
    virtual std::unique_ptr<ReturnWatch> watch() = 0;
    virtual std::unique_ptr<CloneWatch> watchClones() = 0;
};

} // namespace glidemap
