// Port: where the window was when it was last seen, kept across launches.
//
// It is no setting of the user's: losing it loses nothing.
//
// Units:   points of the desktop; the place is that of the window's frame, the size its content's.
// Thread:  the main thread.
// Errors:  none. What cannot be read, or makes no sense, is absent; what cannot be written is lost.
#pragma once

#include <optional>

namespace glidemap {

struct WindowGeometry {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool maximized = false; // the rest is then what it goes back to

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
