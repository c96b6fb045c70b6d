// Port: stores the window's last position and size across launches.
//
// This is not a user setting: its loss is harmless.
//
// Units:   points of the desktop; position of the window's frame, size of its content.
// Thread:  the main thread.
// Errors:  none. An unreadable or invalid geometry returns nullopt; write errors are ignored.
#pragma once

#include <optional>

namespace glidemap {

struct WindowGeometry {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool maximized = false; // the other values are then those to restore

    friend bool operator==(const WindowGeometry&, const WindowGeometry&) = default;
};

class WindowGeometryStore {
public:
    WindowGeometryStore() = default;
    WindowGeometryStore(const WindowGeometryStore&) = delete;
    WindowGeometryStore& operator=(const WindowGeometryStore&) = delete;
    virtual ~WindowGeometryStore() = default;

    virtual std::optional<WindowGeometry> read() const = 0;
    virtual void write(const WindowGeometry& geometry) = 0;
};

} // namespace glidemap
