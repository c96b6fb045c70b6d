// A double of GNOME Shell on a bus: what it says of extensions, and what our extension says in it.
// Messages are given as GLib writes values.
//
// Thread:  one; it answers on a thread of its own.
// Owner:   a test.
// Errors:  what cannot be done is a failure of the test.
#pragma once

#include "platform/linux/windows/desktop_thread.h"

#include <mutex>
#include <string>
#include <vector>

using GDBusConnection = struct _GDBusConnection;
using GDBusMethodInvocation = struct _GDBusMethodInvocation;
using GVariant = struct _GVariant;

namespace glidemap {

class ShellDouble {
public:
    // What it answers to whoever asks about an extension.
    struct Knowledge {
        std::string version = "'43.9'";
        std::string extension = "{}"; // what it knows of it
        bool isStarting = false;      // its name is there, its objects are not
    };

    ShellDouble(const std::string& busAddress, Knowledge knowledge);
    ShellDouble(const ShellDouble&) = delete;
    ShellDouble& operator=(const ShellDouble&) = delete;
    ~ShellDouble();

    // The extension starts in it, tells these windows now and to whoever asks; or it stops.
    void startExtension(const std::string& windows);
    void stopExtension();

    // Any signal of the extension's object.
    void emit(const char* signal, const std::string& values);

    // The extensions that it was asked to enable, which it does for those that it knows.
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
