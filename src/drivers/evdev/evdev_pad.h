// One touchpad's event node: opened for reading only, described, and read through libevdev, which
// keeps the state of the slots and finds out what happened when the kernel had to drop events. Its
// grab and its clone take it out of the system's sight and stand in for it.
//
// The kernel reports only changes, and while the touchpad is grabbed other programs do not hear them.
// Before it is given back, the kernel's values are therefore set to those that the other programs
// know, by writing to the node. Where the user may not write, they may misread the first touch
// afterwards.
//
// Units:   event times in seconds of the monotonic clock.
// Thread:  one at a time.
// Errors:  as values: no pad, or one that is gone.
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
    // Null if the node cannot be read, or has no slots.
    static std::unique_ptr<OpenPad> open(const std::string& node);

    int descriptor() const override { return file.descriptor(); }
    const PadDescription& description() const override { return pad; }
    Read next(InputEvent& event) override;
    bool hasButtons() const override;
    std::optional<double> grab() override;
    double ungrab() override;
    std::unique_ptr<PadClone> makeClone() override;

private:
    struct Free {
        void operator()(libevdev* device) const;
    };
    using Device = std::unique_ptr<libevdev, Free>;

    EvdevPad(std::string node, OpenFile file, Device device);
    std::optional<double> lastHeardByWitness() const;
    void rememberKnowledgeOfOthers();
    void restoreKnowledgeOfOthers() const;
    std::vector<std::int32_t> slotValues(std::uint16_t code) const;
    void settle();
    void describe();
    void recallState();
    void recallSlot(int slot, double time);
    void recall(std::uint16_t type, std::uint16_t code, std::int32_t value, double time);

    const std::string node;
    OpenFile file;
    OpenFile witness; // hears what every other program hears; opened with the first grab

    // The slots' values at the moment of the grab: other programs know these until they hear the
    // touchpad again.
    struct SlotAxis {
        std::uint16_t code = 0;
        std::vector<std::int32_t> values; // by slot
    };
    std::vector<SlotAxis> knownToOthers;
    std::int32_t slotKnownToOthers = 0;
    Device device;
    PadDescription pad;
    bool resynchronising = false;
    std::vector<InputEvent> recalled; // what was on the pad when it was opened, the latest first
};

} // namespace glidemap
