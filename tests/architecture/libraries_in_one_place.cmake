# The Linux services connect to an X server, call a message bus and free GLib's memory through one class each. Fails if
# another source below SOURCE_DIR calls the libraries' functions for that.
include(${CMAKE_CURRENT_LIST_DIR}/lines_found.cmake)
set(x11 "xcb_connect|xcb_disconnect|xcb_intern_atom")
set(bus "g_bus_[a-z_]+|g_dbus_connection_[a-z_]+")
set(memory "g_free|g_strfreev|g_error_free|g_clear_error|g_object_unref|g_variant_unref")
fail_if_found("(^|[^A-Za-z0-9_])(${x11}|${bus}|${memory}) *\\("
    "^(bench|tests|tools|src/[a-oq-z]|src/platform/(common|macos|qt|virtual)/|src/platform/linux/desktop/(x11|desktop_bus|glib_owner)[.])"
    "use X11Connection, DesktopBus or GlibOwner (src/platform/linux/desktop)")
