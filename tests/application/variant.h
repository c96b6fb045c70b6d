// A reference to a GVariant, which is released automatically.
#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>

namespace glidemap::test {

struct GiveBackVariant {
    void operator()(GVariant* value) const { g_variant_unref(value); }
};

using OwnedVariant = std::unique_ptr<GVariant, GiveBackVariant>;

// Returns a child of a tuple or an array. If the child is a variant, returns the value in it.
inline OwnedVariant childOf(const OwnedVariant& container, std::size_t index) {
    OwnedVariant child(g_variant_get_child_value(container.get(), index));
    if (g_variant_is_of_type(child.get(), G_VARIANT_TYPE_VARIANT) != FALSE) {
        child.reset(g_variant_get_variant(child.get()));
    }
    return child;
}

inline std::string textOf(const OwnedVariant& value) {
    return value != nullptr &&
                   (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING) != FALSE ||
                    g_variant_is_of_type(value.get(), G_VARIANT_TYPE_OBJECT_PATH) != FALSE)
               ? g_variant_get_string(value.get(), nullptr)
               : "";
}

// The target of a call: a bus name, an object path and an interface.
struct Callee {
    std::string name;
    std::string path;
    std::string interface;
};

// Waits for the reply. Returns null on failure, which the caller must handle: the target may have
// disappeared. Takes ownership of the arguments.
OwnedVariant call(GDBusConnection* bus, const Callee& callee, const char* method,
                  GVariant* arguments = nullptr);

// Returns a property's value without its variant wrapper; null on failure.
OwnedVariant property(GDBusConnection* bus, const Callee& callee, const char* name);

} // namespace glidemap::test
