// Port: stores the window's last position and size across launches.
//
// The geometry is not a user setting, and losing it is harmless.
//
// Units:   points of the desktop; position of the window's frame, size of its content.
// Thread:  the main thread.
// Errors:  none. read() returns nullopt for an unreadable or invalid geometry; write errors are
//          ignored.
#pragma once

#include <optional>

namespace glidemap {

struct WindowGeometry {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool maximized = false; // the other values then describe the window when it is not maximised

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
