// A screen saver that a bus can start: startable-screen-saver FILE. It creates the file when it
// locks, and exits when its last client disconnects.
#include "desktops/fake_service.h"

#include <gio/gio.h>

#include <cstdlib>
#include <fstream>

int main(int count, char* arguments[]) {
    const char* const address = std::getenv("DBUS_STARTER_ADDRESS");
    if (count != 2 || address == nullptr) {
        return 2;
    }
    glidemap::test::Journal journal;
    const auto lock = [file = std::string(arguments[1])] {
        std::ofstream(file) << "locked";
        return g_variant_new("()");
    };
    const glidemap::test::FakeService saver(
        address,
        {"org.gnome.ScreenSaver",
         "/org/gnome/ScreenSaver",
         "<interface name='org.gnome.ScreenSaver'><method name='Lock'/></interface>",
         {{"Lock", lock}}},
        journal);
    return journal.waitFor("ScreenSaver: no callers left") ? 0 : 1;
}
