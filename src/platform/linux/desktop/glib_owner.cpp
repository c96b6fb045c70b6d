#include "platform/linux/desktop/glib_owner.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

namespace glidemap {

void GlibRelease::operator()(GAppInfo* application) const {
    g_object_unref(application);
}

void GlibRelease::operator()(GAppInfoMonitor* monitor) const {
    g_object_unref(monitor);
}

void GlibRelease::operator()(GCancellable* cancellable) const {
    g_object_unref(cancellable);
}

void GlibRelease::operator()(GDBusConnection* connection) const {
    g_object_unref(connection);
}

void GlibRelease::operator()(GDBusNodeInfo* description) const {
    g_dbus_node_info_unref(description);
}

void GlibRelease::operator()(GDesktopAppInfo* entry) const {
    g_object_unref(entry);
}

void GlibRelease::operator()(GError* error) const {
    g_error_free(error);
}

void GlibRelease::operator()(GKeyFile* keys) const {
    g_key_file_unref(keys);
}

void GlibRelease::operator()(GList* objects) const {
    g_list_free_full(objects, g_object_unref);
}

void GlibRelease::operator()(GMainContext* context) const {
    g_main_context_unref(context);
}

void GlibRelease::operator()(GMainLoop* loop) const {
    g_main_loop_unref(loop);
}

void GlibRelease::operator()(GSettings* settings) const {
    g_object_unref(settings);
}

void GlibRelease::operator()(GSettingsSchema* schema) const {
    g_settings_schema_unref(schema);
}

void GlibRelease::operator()(GSource* source) const {
    g_source_destroy(source);
    g_source_unref(source);
}

void GlibRelease::operator()(GSubprocess* process) const {
    g_object_unref(process);
}

void GlibRelease::operator()(GVariant* value) const {
    g_variant_unref(value);
}

void GlibRelease::operator()(char* text) const {
    g_free(text);
}

std::string textOrEmpty(const char* text) {
    return text != nullptr ? text : "";
}

std::optional<std::string> takeText(char* text) {
    if (text == nullptr) {
        return std::nullopt;
    }
    std::string copy(text);
    g_free(text);
    return copy;
}

std::vector<std::string> takeWords(char** words) {
    std::vector<std::string> copy;
    for (char** word = words; word != nullptr && *word != nullptr; ++word) {
        copy.emplace_back(*word);
    }
    g_strfreev(words);
    return copy;
}

} // namespace glidemap
