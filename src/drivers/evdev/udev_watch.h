// Becomes readable when a touchpad may have returned: udev has initialised an input device, or a
// node's access rights have changed. The rights may change long after the node appears: the seated
// user gets access later, and a switch of session changes only the rights.
//
// Thread:  the reader's.
// Errors:  none; a source that cannot be watched is ignored.
#pragma once

#include "core/open_file.h"
#include "drivers/evdev/pad_directory.h"
#include "drivers/evdev/udev_handles.h"

namespace glidemap {

class UdevWatch : public ReturnWatch {
public:
    UdevWatch();

    std::array<int, 2> descriptors() const override;
    void acknowledge() override;

private:
    void watchNodes();

    UdevHandle<udev> context;
    UdevHandle<udev_monitor> monitor;
    OpenFile nodeChanges;
};

} // namespace glidemap
