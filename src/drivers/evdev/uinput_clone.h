// A uinput copy of a touchpad with the same identity, name, properties, keys and axes. It has a
// different physical path, and it can always report palms.
//
// Thread:  as PadClone.
// Errors:  returned as values. make() returns null if this user may not create devices, or if the
//          touchpad is not on the first seat, because udev assigns every clone to the first seat.
#pragma once

#include "core/open_file.h"
#include "drivers/evdev/pad_directory.h"

#include <linux/input.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct libevdev;

namespace glidemap {

class UinputClone : public PadClone {
public:
    static std::unique_ptr<PadClone> make(const libevdev& source);

    // Returns whether this user may create devices.
    static bool isPossible();

    // Returns whether the device with this physical path is a clone, made by this process or
    // another one.
    static bool isCloneAt(std::string_view physicalPath);

    ~UinputClone() override;

    std::string place() const override;
    bool write(std::span<const InputEvent> frame) override;
    void destroy() override;

private:
    explicit UinputClone(OpenFile created);

    OpenFile file;
    std::vector<input_event> buffer;
};

} // namespace glidemap
