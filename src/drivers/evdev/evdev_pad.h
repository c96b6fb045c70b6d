// The event node of one touchpad. Describes the touchpad, and reads its events through libevdev,
// which tracks the slots and, after the kernel has dropped events, supplies the lost changes. A
// grab hides the touchpad from other programs, which use its clone instead.
//
// The kernel reports only changes, and other programs receive no events of a grabbed touchpad.
// Before the driver releases the touchpad, it therefore writes to the node the values that other
// programs received last. Without write permission, those programs may misread the next touch.
//
// Units:   event times in seconds of the monotonic clock.
// Thread:  one at a time.
// Errors:  returned as values: a null pad or clone, nullopt for a failed grab, Read::gone or
//          Read::broken.
#pragma once

#include "core/open_file.h"
#include "drivers/evdev/pad_directory.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct libevdev;

namespace glidemap {

class EvdevPad : public OpenPad {
public:
    // Returns null if the node cannot be read or the device has no slots.
    static std::unique_ptr<OpenPad> open(const std::string& node);

    int descriptor() const override { return file.descriptor(); }
    const PadDescription& description() const override { return pad; }
    Read next(InputEvent& event) override;
    bool hasButtons() const override;
    std::optional<double> grab() override;
    GrabResult grabBetweenTouches() override;
    double ungrab() override;
    std::optional<double> ungrabBetweenTouches() override;
    std::unique_ptr<PadClone> makeClone() override;

private:
    struct Free {
        void operator()(libevdev* device) const;
    };
    using Device = std::unique_ptr<libevdev, Free>;

    // The times of the first and the last event that the witness has received.
    struct WitnessedTimes {
        double first = 0;
        double last = 0;
    };

    EvdevPad(std::string node, OpenFile file, Device device);
    void openWitness();
    bool witnessIsReady() const;
    std::optional<WitnessedTimes> readWitness();
    bool switchGrab(bool on) const;
    bool isTouched() const;
    double release();
    void saveStateSeenByOthers();
    void restoreStateSeenByOthers() const;
    std::vector<std::int32_t> slotValues(std::uint16_t code) const;
    void readConsistentState();
    void describe();
    void queueInitialState();
    void queueInitialSlot(int slot, double time);
    void queueInitialEvent(std::uint16_t type, std::uint16_t code, std::int32_t value, double time);

    const std::string node;
    OpenFile file;
    OpenFile witness; // receives the same events as other programs; opened at the first grab

    // The slots' values at the time of the grab. Other programs rely on these values until they
    // receive the touchpad's events again.
    struct SlotAxis {
        std::uint16_t code = 0;
        std::vector<std::int32_t> values; // by slot
    };
    std::vector<SlotAxis> axesSeenByOthers;
    std::int32_t slotSeenByOthers = 0;
    bool othersReceivedEvents = true; // since the state was saved
    Device device;
    PadDescription pad;
    bool resynchronising = false;
    std::vector<InputEvent> initialEvents; // the state on opening, as events in reverse order
};

} // namespace glidemap
