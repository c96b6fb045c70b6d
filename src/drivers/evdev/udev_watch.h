// Becomes readable when a touchpad may have come back: udev has finished with an input device, or
// the access rights of a node have changed. The second may be long after the first: the node is
// there before the seated user may read it, and a change of session changes the rights alone.
//
// Thread:  the reader's.
// Errors:  none; what cannot be watched is not.
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
