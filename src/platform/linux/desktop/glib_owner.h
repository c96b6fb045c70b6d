// Owning pointers for GLib's objects and values, and functions that copy texts that GLib has
// allocated.
//
// Thread:  any, as GLib allows for the type. A source must be destroyed on the thread of its
//          context.
// Errors:  none.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

using GAppInfo = struct _GAppInfo;
using GAppInfoMonitor = struct _GAppInfoMonitor;
using GCancellable = struct _GCancellable;
using GDBusConnection = struct _GDBusConnection;
using GDBusNodeInfo = struct _GDBusNodeInfo;
using GDesktopAppInfo = struct _GDesktopAppInfo;
using GError = struct _GError;
using GKeyFile = struct _GKeyFile;
using GList = struct _GList;
using GMainContext = struct _GMainContext;
using GMainLoop = struct _GMainLoop;
using GSettings = struct _GSettings;
using GSettingsSchema = struct _GSettingsSchema;
using GSource = struct _GSource;
using GSubprocess = struct _GSubprocess;
using GVariant = struct _GVariant;

namespace glidemap {

struct GlibRelease {
    void operator()(GAppInfo* application) const;
    void operator()(GAppInfoMonitor* monitor) const;
    void operator()(GCancellable* cancellable) const;
    void operator()(GDBusConnection* connection) const;
    void operator()(GDBusNodeInfo* description) const;
    void operator()(GDesktopAppInfo* entry) const;
    void operator()(GError* error) const;
    void operator()(GKeyFile* keys) const;
    void operator()(GList* objects) const; // also releases the objects in it
    void operator()(GMainContext* context) const;
    void operator()(GMainLoop* loop) const;
    void operator()(GSettings* settings) const;
    void operator()(GSettingsSchema* schema) const;
    void operator()(GSource* source) const; // also stops the source
    void operator()(GSubprocess* process) const;
    void operator()(GVariant* value) const;
    void operator()(char* text) const;
};

template <typename Type>
using GlibOwner = std::unique_ptr<Type, GlibRelease>;

// Returns an empty string for null.
std::string textOrEmpty(const char* text);

// These functions copy a text or list that GLib has allocated, and free the original. Null becomes
// nullopt or an empty list.
std::optional<std::string> takeText(char* text);
std::vector<std::string> takeWords(char** words);

} // namespace glidemap
