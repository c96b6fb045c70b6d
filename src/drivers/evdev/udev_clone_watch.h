// Follows what udev and other programs make of clones: udev's own messages say that it has finished
// with one, and the changes of /dev/input say that a program opens or closes its node. The kernel
// reports the latter to everybody who may list the folder; it does not report which program it was.
//
// udev's older records are not read: a number may have belonged to another device, whose
// record udev has not removed yet.
//
// Thread:  the reader's.
// Errors:  none; without a view of the folder it is not known whether a clone is open.
#pragma once

#include "core/open_file.h"
#include "drivers/evdev/pad_directory.h"
#include "drivers/evdev/udev_handles.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>

struct inotify_event;

namespace glidemap {

class UdevCloneWatch : public CloneWatch {
public:
    UdevCloneWatch();

    std::array<int, 2> descriptors() const override;
    void acknowledge() override;
    CloneStanding standing(const PadClone& clone) const override;

private:
    void readAnnouncements();
    void readNodeChanges();
    void note(const inotify_event& change);
    void keepNotificationsApart(const std::string& name);

    UdevHandle<udev> context;
    UdevHandle<udev_monitor> monitor;
    OpenFile nodeChanges;
    bool seesOpening = false;

    std::set<std::string> announced;  // where sysfs has the nodes
    std::map<std::string, int> opens; // by the node's name: how many times it is open
};

} // namespace glidemap
