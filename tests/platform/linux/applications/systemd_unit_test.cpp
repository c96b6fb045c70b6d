#include "platform/linux/applications/systemd_unit.h"

#include <gmock/gmock.h>

namespace glidemap {
namespace {

using Kind = UnitApplication::Kind;
using Identifiers = std::vector<std::string>;

TEST(SystemdUnit, ParsesTheApplicationFromTheUnitName) {
    struct Row {
        const char* unit;
        Kind kind;
        Identifiers identifiers;
        const char* random;
    };
    const Row rows[] = {
        {"app-gnome-firefox\\x2desr-1234.scope",
         Kind::ordinary,
         {"firefox-esr", "gnome-firefox-esr"},
         "1234"},
        {"app-gnome-org.gnome.gedit-77.scope",
         Kind::ordinary,
         {"org.gnome.gedit", "gnome-org.gnome.gedit"},
         "77"},
        {"app-code-0f3a.scope", Kind::ordinary, {"code"}, "0f3a"},
        {"app-org.kde.kate@5d1e.service", Kind::ordinary, {"org.kde.kate"}, "5d1e"},
        {"app-KDE-org.kde.kate@autostart.service",
         Kind::ordinary,
         {"org.kde.kate", "KDE-org.kde.kate"},
         "autostart"},
        {"app-org.example.App.service", Kind::ordinary, {"org.example.App"}, ""},
        {"app-glib-code-url-handler-9.scope",
         Kind::ordinary,
         {"handler", "url-handler", "code-url-handler", "glib-code-url-handler"},
         "9"},
        {"app-flatpak-org.mozilla.firefox-4021.scope",
         Kind::flatpak,
         {"org.mozilla.firefox"},
         "4021"},
        {"app-flatpak-org.example.My\\x2dApp-1.scope", Kind::flatpak, {"org.example.My-App"}, "1"},
        {"snap.firefox.firefox-4b2a9c1e-1111-2222-3333-444455556666.scope",
         Kind::snap,
         {"firefox_firefox"},
         "4b2a9c1e-1111-2222-3333-444455556666"},
        {"snap.firefox.firefox.4b2a9c1e-1111-2222-3333-444455556666.scope",
         Kind::snap,
         {"firefox_firefox"},
         "4b2a9c1e-1111-2222-3333-444455556666"},
        {"snap.lxd.daemon.service", Kind::snap, {"lxd_daemon"}, ""},
        {"snap.firefox.scope", Kind::snap, {}, ""},
        {"dbus-:1.2-org.gnome.Nautilus@0.service", Kind::ordinary, {"org.gnome.Nautilus"}, ""},
        {"dbus.service", Kind::ordinary, {}, ""},
        {"dbus-org@.service", Kind::ordinary, {}, ""},
        {"dbus-:1.2.service", Kind::ordinary, {}, ""},
        {"session-3.scope", Kind::ordinary, {}, ""},
        {"vte-spawn-1234.scope", Kind::ordinary, {}, ""},
        {"app-gnome.slice", Kind::ordinary, {}, ""},
        {"app-.scope", Kind::ordinary, {}, ""},
        {"app-broken\\x2.scope", Kind::ordinary, {}, ""},
        {"app-bro\\x2ken-1.scope", Kind::ordinary, {"bro\\x2ken"}, "1"},
        {"", Kind::ordinary, {}, ""},
        {"app-flatpak--1.scope", Kind::flatpak, {}, "1"},
        {"dbus-:1.2-@1.service", Kind::ordinary, {}, ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(applicationOfUnit(row.unit),
                  (UnitApplication{row.kind, row.identifiers, row.random}))
            << row.unit << " is "
            << testing::PrintToString(applicationOfUnit(row.unit).identifiers);
}

TEST(SystemdUnit, ReturnsTheInnermostUnitInTheControlGroup) {
    struct Row {
        const char* text;
        const char* unit;
    };
    const Row rows[] = {
        {"0::/user.slice/user-1000.slice/user@1000.service/app.slice/app-gnome-code-1.scope\n",
         "app-gnome-code-1.scope"},
        {"12:cpu:/app-wrong-1.scope\n1:name=systemd:/user.slice/app-code-1.scope\n",
         "app-code-1.scope"},
        {"0::/user@1000.service/app.slice/app-org.kde.konsole-2.scope/tab(9).scope\n",
         "tab(9).scope"},
        {"0::/user@1000.service/app.slice/app-code-1.scope/inner\n", "app-code-1.scope"},
        {"0::/user.slice/user-1000.slice/session-3.scope\n", "session-3.scope"},
        {"0::/\n", ""},
        {"", ""},
        {"nonsense", ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(unitOfControlGroups(row.text), row.unit) << row.text;
}

} // namespace
} // namespace glidemap
