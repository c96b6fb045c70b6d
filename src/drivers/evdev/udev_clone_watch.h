// Watches whether udev announces clones and whether programs open them. udev's messages report
// initialised clones, and inotify on /dev/input reports when a program opens or closes a node. The
// kernel sends these notifications, without the program's identity, to every user who may list the
// folder.
//
// udev's database is not read: it may still contain the record of a removed device with the clone's
// number.
//
// Thread:  the reader's thread.
// Errors:  none; if the folder cannot be watched, CloneStanding::isOpen is unknown.
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
    std::map<std::string, int> opens; // by node name: the number of open descriptors
};

} // namespace glidemap
