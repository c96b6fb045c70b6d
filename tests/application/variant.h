// A value of the message bus, given back by whoever holds it last.
#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>

namespace glidemap::application {

struct GiveBackVariant {
    void operator()(GVariant* value) const { g_variant_unref(value); }
};

using Variant = std::unique_ptr<GVariant, GiveBackVariant>;

// The child of a tuple or an array, taken out of its variant if it is in one.
inline Variant childOf(const Variant& container, std::size_t index) {
    Variant child(g_variant_get_child_value(container.get(), index));
    if (g_variant_is_of_type(child.get(), G_VARIANT_TYPE_VARIANT) != FALSE) {
        child.reset(g_variant_get_variant(child.get()));
    }
    return child;
}

inline std::string textOf(const Variant& value) {
    return value != nullptr &&
                   (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING) != FALSE ||
                    g_variant_is_of_type(value.get(), G_VARIANT_TYPE_OBJECT_PATH) != FALSE)
               ? g_variant_get_string(value.get(), nullptr)
               : "";
}

// Whom a call is for.
struct Callee {
    std::string name; // on the bus
    std::string path;
    std::string interface;
};

// Waits for the answer; null if there is none, which is the caller's to judge: what is asked may have
// gone meanwhile. Takes the arguments.
Variant call(GDBusConnection* bus, const Callee& callee, const char* method,
             GVariant* arguments = nullptr);

// A property's value, not in a variant; null if there is none.
Variant property(GDBusConnection* bus, const Callee& callee, const char* name);

} // namespace glidemap::application
