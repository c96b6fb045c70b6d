// Ports: where the driver finds touchpads, what it reads from one and how it stands in for it, and
// how it learns that one may have come back and that a clone is known to the system.
//
// Thread:  PadDirectory on any thread, one at a time; an OpenPad and its clone are used on any, one
//          at a time but for what says otherwise, and the pad is read and closed on the reader's; a
//          ReturnWatch and a CloneWatch are the reader's.
// Errors:  values; nothing throws but for want of memory.
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

// What stays the same when a touchpad is unplugged and returns on another node.
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

// A multitouch touchpad that is there.
struct PadCandidate {
    std::string node;
    PadIdentity identity;
    bool readable = true; // by this user, as far as can be told without opening it
};

// How far the system has come with a clone.
struct CloneStanding {
    bool hasNode = false;
    bool isAnnounced = false;   // udev has initialised it, and calls it a touchpad
    std::optional<bool> isOpen; // whether a program reads it; nothing where that is not known

    friend bool operator==(const CloneStanding&, const CloneStanding&) = default;
};

// A touchpad of the system's that says what it is told, and is like the one that it was made from.
class PadClone {
public:
    PadClone() = default;
    PadClone(const PadClone&) = delete;
    PadClone& operator=(const PadClone&) = delete;
    // The clone is gone then.
    virtual ~PadClone() = default;

    // Where sysfs has its event node. Empty while there is no such node.
    virtual std::string place() const = 0;

    // A frame with its synchronisation. False if the clone cannot say it any more.
    virtual bool write(std::span<const InputEvent> frame) = 0;

    // The system takes back whatever the clone holds; no write succeeds any more. On any thread,
    // also while another one writes.
    virtual void destroy() = 0;
};

class OpenPad {
public:
    enum class Read {
        event,
        nothing, // until the descriptor is readable again
        gone,    // the touchpad was unplugged
        broken,  // it is there and cannot be read
    };

    OpenPad() = default;
    OpenPad(const OpenPad&) = delete;
    OpenPad& operator=(const OpenPad&) = delete;
    virtual ~OpenPad() = default;

    virtual int descriptor() const = 0;
    virtual const PadDescription& description() const = 0;

    // The next event, without waiting. The first ones tell what was on the pad when it was opened.
    virtual Read next(InputEvent& event) = 0;

    // Whether it has a left or a right button to press.
    virtual bool hasButtons() const = 0;

    // From now on nobody else hears the touchpad. Answers when that began, by the events' clock:
    // what is older was heard by everybody, what is not, here only. Nothing if it cannot be had.
    virtual std::optional<double> grab() = 0;
    // Returns a moment, by the events' clock, until which no other program heard the touchpad. On
    // any thread, also while another one reads.
    virtual double ungrab() = 0;

    // Null if the system does not let this user.
    virtual std::unique_ptr<PadClone> makeClone() = 0;
};

class ReturnWatch {
public:
    ReturnWatch() = default;
    ReturnWatch(const ReturnWatch&) = delete;
    ReturnWatch& operator=(const ReturnWatch&) = delete;
    virtual ~ReturnWatch() = default;

    // Readable when a touchpad may have come back or become readable; −1 for none.
    virtual std::array<int, 2> descriptors() const = 0;

    // Takes note of everything that has happened, and readies itself for what will.
    virtual void acknowledge() = 0;
};

// Follows what the system makes of clones. It must be there before the clone that it is asked about.
class CloneWatch {
public:
    CloneWatch() = default;
    CloneWatch(const CloneWatch&) = delete;
    CloneWatch& operator=(const CloneWatch&) = delete;
    virtual ~CloneWatch() = default;

    // Readable when the standing of a clone may have changed; −1 for none.
    virtual std::array<int, 2> descriptors() const = 0;

    // Takes note of everything that has happened.
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

    // The touchpad at this node alone, which takes less than finding all of them.
    virtual std::optional<PadCandidate> candidateAt(const std::string& node) = 0;

    // Null if it cannot be opened, or is gone by now.
    virtual std::unique_ptr<OpenPad> open(const PadCandidate& candidate) = 0;
    virtual std::unique_ptr<ReturnWatch> watch() = 0;
    virtual std::unique_ptr<CloneWatch> watchClones() = 0;
};

} // namespace glidemap
