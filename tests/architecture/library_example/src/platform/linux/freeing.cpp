// Examples for the check of the libraries' functions. Not compiled.
void found() {
    g_free(text);
    auto* const server = xcb_connect(nullptr, nullptr);
    g_dbus_connection_call(connection, name);
}

void allowed() {
    g_free_all(text);
    xcb_connection_has_error(server);
    g_dbus_is_name(name);
}
