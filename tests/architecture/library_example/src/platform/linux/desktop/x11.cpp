// Exempt from the check. Not compiled.
void disconnect() {
    xcb_disconnect(server);
}
