// A second touchpad that is like the first in everything that others go by: identity, name,
// properties, keys and axes. What tells the two apart is where the clone says that it is connected,
// and that a clone can always call a finger a palm.
//
// Thread:  as PadClone.
// Errors:  as values; null for want of the right to make devices, and for a touchpad of another seat
//          than the first, because a clone always belongs to that one.
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

    // Whether this user may make devices.
    static bool isPossible();

    // Whether what is connected there is a clone, of this process or of another one.
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
