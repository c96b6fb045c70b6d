#include "platform/linux/windows/x11/x11_window_reader.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>

namespace glidemap {

namespace {

constexpr std::uint32_t maxText = 256; // in items of four bytes: 1 KiB
constexpr std::uint32_t maxAtoms = 64;

std::string ownHostName() {
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

std::string upToNull(const std::string& text) {
    return text.substr(0, text.find('\0'));
}

// Parses "instance\0class\0". Either part and the null characters may be missing.
void takeWindowClass(const std::string& text, WindowIdentity& identity) {
    identity.instance = upToNull(text);
    if (identity.instance.size() < text.size()) {
        identity.appID = upToNull(text.substr(identity.instance.size() + 1));
    }
}

// Compares host names without domains: "host.example.org" equals "host".
bool sameMachine(const std::string& one, const std::string& other) {
    return !one.empty() && one.substr(0, one.find('.')) == other.substr(0, other.find('.'));
}

std::optional<pid_t> asProcess(std::uint32_t number) {
    const bool possible =
        number > 0 && number <= static_cast<std::uint32_t>(std::numeric_limits<pid_t>::max());
    return possible ? std::optional(static_cast<pid_t>(number)) : std::nullopt;
}

bool contains(const std::vector<xcb_atom_t>& atoms, xcb_atom_t atom) {
    return std::find(atoms.begin(), atoms.end(), atom) != atoms.end();
}

} // namespace

struct X11WindowReader::Reading {
    X11Window window;
    std::uint32_t processByServer = 0;
    std::uint32_t processByWindow = 0;
    std::string machine;
    std::vector<xcb_atom_t> types;
    std::vector<xcb_atom_t> states;
    std::function<void(const X11Window&)> taker;
};

X11WindowReader::X11WindowReader(X11Requests& through)
    : requests(through), hostName(ownHostName()) {
    const auto named = requests.server().atoms(
        {"_NET_WM_PID", "WM_CLIENT_MACHINE", "_NET_WM_WINDOW_TYPE", "_NET_WM_STATE", "_NET_WM_NAME",
         "_NET_WM_WINDOW_TYPE_NORMAL", "_NET_WM_WINDOW_TYPE_DIALOG", "_NET_WM_WINDOW_TYPE_UTILITY",
         "_NET_WM_STATE_SKIP_TASKBAR"});
    atoms = {named[0], named[1], named[2], named[3], named[4],
             named[5], named[6], named[7], named[8]};
}

bool X11WindowReader::reads(xcb_atom_t property) const {
    return property == XCB_ATOM_WM_CLASS || property == atoms.process ||
           property == atoms.machine || property == atoms.type || property == atoms.state;
}

bool X11WindowReader::isApplicationWindow(const std::vector<xcb_atom_t>& types,
                                          const std::vector<xcb_atom_t>& states) const {
    const bool ordinary = types.empty() || contains(types, atoms.typeNormal) ||
                          contains(types, atoms.typeDialog) || contains(types, atoms.typeUtility);
    return ordinary && !contains(states, atoms.skipTaskbar);
}

// Replies arrive in the order of the requests, so `taker` is called when the last reply arrives.
void X11WindowReader::read(xcb_window_t window, std::function<void(const X11Window&)> taker) {
    const auto reading = std::make_shared<Reading>();
    reading->taker = std::move(taker);
    const auto ask = [&](xcb_atom_t name, std::uint32_t items, auto take) {
        requests.property(window, name, items, take);
    };
    requests.processOf(window,
                       [reading](std::uint32_t process) { reading->processByServer = process; });
    ask(atoms.process, 1, [reading](const X11Property& property) {
        if (!property.items.empty()) {
            reading->processByWindow = property.items.front();
        }
    });
    ask(atoms.machine, maxText,
        [reading](const X11Property& property) { reading->machine = upToNull(property.text); });
    ask(atoms.type, maxAtoms,
        [reading](const X11Property& property) { reading->types = property.items; });
    ask(atoms.state, maxAtoms,
        [reading](const X11Property& property) { reading->states = property.items; });
    ask(XCB_ATOM_WM_NAME, maxText, [reading](const X11Property& property) {
        reading->window.identity.title = upToNull(property.text);
    });
    ask(atoms.title, maxText, [reading](const X11Property& property) {
        if (!property.text.empty()) {
            reading->window.identity.title = upToNull(property.text);
        }
    });
    ask(XCB_ATOM_WM_CLASS, maxText, [this, reading](const X11Property& property) {
        X11Window& read = reading->window;
        read.isGone = property.windowIsGone;
        takeWindowClass(property.text, read.identity);
        read.identity.process = asProcess(reading->processByServer);
        if (!read.identity.process && sameMachine(reading->machine, hostName)) {
            read.identity.process = asProcess(reading->processByWindow);
        }
        read.isApplicationWindow = isApplicationWindow(reading->types, reading->states);
        reading->taker(read);
    });
}

} // namespace glidemap
