// A fake GNOME Shell on a bus: replies to queries about extensions, and sends the reports of
// Glidemap's extension. Messages are in GLib's text format.
//
// Thread:  one; the fake replies on its own thread.
// Owner:   a test.
// Errors:  any failure fails the test.
#pragma once

#include "platform/linux/desktop/desktop_thread.h"

#include <mutex>
#include <string>
#include <vector>

using GDBusConnection = struct _GDBusConnection;
using GDBusMethodInvocation = struct _GDBusMethodInvocation;
using GVariant = struct _GVariant;

namespace glidemap {

class FakeGnomeShell {
public:
    // The replies to queries about the shell and an extension.
    struct Knowledge {
        std::string version = "'43.9'";
        std::string extension = "{}"; // the extension's properties
        bool isStarting = false;      // the shell owns its name, but exports no objects
    };

    FakeGnomeShell(const std::string& busAddress, Knowledge knowledge);
    FakeGnomeShell(const FakeGnomeShell&) = delete;
    FakeGnomeShell& operator=(const FakeGnomeShell&) = delete;
    ~FakeGnomeShell();

    // The fake extension announces its start and its end. While it runs, it returns `windows` to
    // callers.
    void startExtension(const std::string& windows);
    void stopExtension();

    // Sends a signal from the extension's object.
    void emit(const char* signal, const std::string& values);

    // Returns the extensions that callers have asked the shell to enable. The shell enables only
    // extensions that it has loaded; for others, the caller must change the settings.
    std::vector<std::string> enabled();

private:
    void emitHere(const char* signal, const std::string& values);
    void registerObject(const char* path, const char* interface);
    void answer(const std::string& method, GVariant* arguments, GDBusMethodInvocation* invocation);

    Knowledge knowledge;
    std::string windows;
    unsigned windowsObject = 0;
    std::mutex mutex;
    std::vector<std::string> asked;
    GDBusConnection* connection = nullptr;
    DesktopThread thread;
};

} // namespace glidemap
