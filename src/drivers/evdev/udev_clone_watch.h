// Follows what udev and other programs do with clones. udev's messages report that it has
// initialised a clone, and inotify on /dev/input reports that a program opens or closes its node.
// The kernel sends these changes to every user who may list the folder, without the program's
// identity.
//
// udev's older records are not read: the number may have belonged to another device, whose record
// udev has not removed yet.
//
// Thread:  the reader's.
// Errors:  none; if the folder cannot be watched, it is unknown whether a clone is open.
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
    void separateNotifications(const std::string& name);

    UdevHandle<udev> context;
    UdevHandle<udev_monitor> monitor;
    OpenFile nodeChanges;
    bool seesOpening = false;

    std::set<std::string> announced;  // sysfs paths of the nodes
    std::map<std::string, int> opens; // by node name: the number of times that it is open
};

} // namespace glidemap
