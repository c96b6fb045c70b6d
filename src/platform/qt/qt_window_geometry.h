// Stores the window's geometry in a separate file, because it is not a setting and losing it is
// harmless.
//
// Thread:  the main thread; blocks on the disk.
// Owner:   the program.
// Errors:  none; see WindowGeometryStore.
#pragma once

#include "ui/settings/window_geometry_store.h"

#include <filesystem>

namespace glidemap {

class QtWindowGeometry : public WindowGeometryStore {
public:
    explicit QtWindowGeometry(std::filesystem::path file);

    std::optional<WindowGeometry> read() const override;
    void write(const WindowGeometry& geometry) override;

private:
    const std::filesystem::path file;
};

} // namespace glidemap
