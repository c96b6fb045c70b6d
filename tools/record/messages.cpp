#include "messages.h"

namespace glidemap::record {

namespace {

constexpr const char* noTouchpad = R"(no touchpad found
Only multitouch touchpads can be recorded. If there is one, see whether udev knows it as a touchpad:
  grep -l ID_INPUT_TOUCHPAD=1 /run/udev/data/c13:*
)";

// The first option grants access only to the user at the machine.
constexpr const char* whatToDo = R"(
To let whoever sits at this machine read its touchpads, and nothing else, write this line
  ACTION!="remove", SUBSYSTEM=="input", KERNEL=="event*", ENV{ID_INPUT_TOUCHPAD}=="1", TAG+="uaccess"
into /etc/udev/rules.d/70-glidemap.rules, and then
  sudo udevadm control --reload
  sudo udevadm trigger --subsystem-match=input --action=change

Or, until the touchpad is plugged in again, with N as `sudo libinput list-devices` shows it:
  sudo setfacl --modify user:$USER:r /dev/input/eventN

As a last resort, for this once: sudo glidemap-record -o FILE

Do not join the group "input" for this: every program of yours could then read every keyboard,
and with it every password that is typed.
)";

} // namespace

const char* const usageText = "Usage: glidemap-record [-o FILE]\n"
                              "       glidemap-record --help\n";

const char* const helpText =
    R"(Usage: glidemap-record [-o FILE]

Records this machine's touchpads until it is interrupted (Ctrl-C), and names each gesture at the
moment in which it is recognised. glidemap-replay plays recordings.

  -o FILE   write the recording to FILE, replacing it, and the gestures to standard output; without
            it the recording goes to standard output and the gestures to standard error
  --help    show this text

The recording tells where fingers were and when, and which mouse buttons of the touchpad were
pressed. It holds no keys and nothing that was typed.

Exit status: 0 when interrupted; 1 when there is no touchpad, when it may not be read, or when the
recording cannot be written; 2 for a command line that makes no sense.

GLIDEMAP_TOUCH_DRIVER in the environment names another touch driver by its path.
)";

std::string nothingToRecord(std::int32_t unreadableTouchpads) {
    if (unreadableTouchpads <= 0) {
        return noTouchpad;
    }
    const bool isOne = unreadableTouchpads == 1;
    const std::string found = isOne ? "there is a touchpad, but you have no permission to read it\n"
                                    : "there are " + std::to_string(unreadableTouchpads) +
                                          " touchpads, but you have no permission to read them\n";
    return found + whatToDo;
}

} // namespace glidemap::record
