// Owning pointers for GLib objects and values.
//
// Thread:  any, as GLib allows for the type. A source must be destroyed on the thread of its
//          context.
// Errors:  none.
#pragma once

#include <memory>

using GCancellable = struct _GCancellable;
using GDBusConnection = struct _GDBusConnection;
using GKeyFile = struct _GKeyFile;
using GSettings = struct _GSettings;
using GSource = struct _GSource;
using GVariant = struct _GVariant;

namespace glidemap {

struct GlibRelease {
    void operator()(GCancellable* cancellable) const;
    void operator()(GDBusConnection* connection) const;
    void operator()(GKeyFile* keys) const;
    void operator()(GSettings* settings) const;
    void operator()(GSource* source) const; // also removes it from its context
    void operator()(GVariant* value) const;
};

template <typename Type>
using GlibOwner = std::unique_ptr<Type, GlibRelease>;

} // namespace glidemap
