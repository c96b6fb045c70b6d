// The window's place, kept in a file of its own: it is no setting, and losing it loses nothing.
//
// Thread:  the main thread; blocks for as long as the disk does.
// Owner:   the program.
// Errors:  none; see the port.
#pragma once

#include "ui/settings/window_geometry_store.h"

#include <filesystem>

namespace glidemap {

class QtWindowGeometry : public WindowGeometryStore {
public:
    explicit QtWindowGeometry(std::filesystem::path keptIn);

    std::optional<WindowGeometry> read() const override;
    void write(const WindowGeometry& geometry) override;

private:
    const std::filesystem::path file;
};

} // namespace glidemap
