// A fake of GNOME Shell on a bus: its replies about extensions, and the reports of our extension in
// it. Messages are in GLib's text format.
//
// Thread:  one; it replies on a thread of its own.
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

class ShellDouble {
public:
    // The reply to a query about an extension.
    struct Knowledge {
        std::string version = "'43.9'";
        std::string extension = "{}"; // its properties
        bool isStarting = false;      // it owns its name, but its objects do not exist
    };

    ShellDouble(const std::string& busAddress, Knowledge knowledge);
    ShellDouble(const ShellDouble&) = delete;
    ShellDouble& operator=(const ShellDouble&) = delete;
    ~ShellDouble();

    // Starts the extension, which reports these windows now and to each caller; or stops it.
    void startExtension(const std::string& windows);
    void stopExtension();

    // Sends a signal from the extension's object.
    void emit(const char* signal, const std::string& values);

    // The extensions that a caller has enabled; the shell enables the ones it has loaded.
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
