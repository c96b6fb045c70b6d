#include "platform/linux/desktop/glib_owner.h"

#include <gio/gio.h>

namespace glidemap {

void GlibRelease::operator()(GCancellable* cancellable) const {
    g_object_unref(cancellable);
}

void GlibRelease::operator()(GDBusConnection* connection) const {
    g_object_unref(connection);
}

void GlibRelease::operator()(GKeyFile* keys) const {
    g_key_file_unref(keys);
}

void GlibRelease::operator()(GSettings* settings) const {
    g_object_unref(settings);
}

void GlibRelease::operator()(GSource* source) const {
    g_source_destroy(source);
    g_source_unref(source);
}

void GlibRelease::operator()(GVariant* value) const {
    g_variant_unref(value);
}

} // namespace glidemap
