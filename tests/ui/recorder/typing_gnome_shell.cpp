#include "typing_gnome_shell.h"

#include <gio/gio.h>
#include <linux/input-event-codes.h>

namespace glidemap::test {

namespace {

constexpr const char* service = "org.gnome.Mutter.RemoteDesktop";
constexpr const char* sessionInterface = "org.gnome.Mutter.RemoteDesktop.Session";

} // namespace

TypingGnomeShell::TypingGnomeShell() {
    shell.start();
    GVariant* const created = shell.bus().call(service, "/org/gnome/Mutter/RemoteDesktop", service,
                                               "CreateSession", nullptr);
    const char* path = "";
    g_variant_get(created, "(&o)", &path);
    session = path;
    g_variant_unref(created);
    g_variant_unref(shell.bus().call(service, session, sessionInterface, "Start", nullptr));
    // The shell creates the keyboard at its first key event. Without a keyboard, no window gets the
    // focus.
    key(KEY_LEFTSHIFT, true);
    key(KEY_LEFTSHIFT, false);
}

void TypingGnomeShell::key(std::uint16_t kernelCode, bool down) {
    g_variant_unref(shell.bus().call(
        service, session, sessionInterface, "NotifyKeyboardKeycode",
        g_variant_new("(ub)", static_cast<guint32>(kernelCode), down ? TRUE : FALSE)));
}

} // namespace glidemap::test
