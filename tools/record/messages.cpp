#include "messages.h"

namespace glidemap::record {

namespace {

constexpr const char* noTouchpad = R"(no touchpad found
Only multitouch touchpads can be recorded. To check whether udev recognises one as a touchpad, run
  grep -l ID_INPUT_TOUCHPAD=1 /run/udev/data/c13:*
)";

// The first option grants access only to the user at the machine.
constexpr const char* accessInstructions = R"(
To let the user at this machine read its touchpads, and no other device, add this line
  ACTION!="remove", SUBSYSTEM=="input", KERNEL=="event*", ENV{ID_INPUT_TOUCHPAD}=="1", TAG+="uaccess"
to /etc/udev/rules.d/70-glidemap.rules, and run
  sudo udevadm control --reload
  sudo udevadm trigger --subsystem-match=input --action=change

Or grant access until the touchpad is plugged in again (`sudo libinput list-devices` shows N):
  sudo setfacl --modify user:$USER:r /dev/input/eventN

As a last resort, run it once as root: sudo glidemap-record -o FILE

Do not join the group "input" for this: all your programs could then read every keyboard,
and with it every password that you type.
)";

} // namespace

const char* const usageText = "Usage: glidemap-record [-o FILE]\n"
                              "       glidemap-record --help\n";

const char* const helpText =
    R"(Usage: glidemap-record [-o FILE]

Records this machine's touchpads until it is interrupted (Ctrl-C), and prints each gesture when it
is recognised. glidemap-replay plays recordings.

  -o FILE   write the recording to FILE, replacing it, and the gestures to standard output; without
            this option, the recording goes to standard output and the gestures to standard error
  --help    show this help

A recording contains the positions and times of fingers, and the presses of the touchpad's buttons.
It contains no keys and no typed text.

Exit status: 0 if interrupted; 1 if there is no touchpad, if you have no permission to read it, or
if the recording cannot be written; 2 if the command line is invalid.

The environment variable GLIDEMAP_TOUCH_DRIVER may contain the path of another touch driver.
)";

std::string nothingToRecord(std::int32_t unreadableTouchpads) {
    if (unreadableTouchpads <= 0) {
        return noTouchpad;
    }
    const bool isOne = unreadableTouchpads == 1;
    const std::string found = isOne ? "there is a touchpad, but you have no permission to read it\n"
                                    : "there are " + std::to_string(unreadableTouchpads) +
                                          " touchpads, but you have no permission to read them\n";
    return found + accessInstructions;
}

} // namespace glidemap::record
