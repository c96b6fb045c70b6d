// The settings window. It stores its size and position when it closes, and restores them.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the application's delegate. Closing the window only hides it.
// Errors:  none. If a stored position is not fully on a screen, the window moves onto one.
#pragma once

#include "ui/settings/settings_view.h"
#include "ui/settings/window_geometry_store.h"

#include <QWidget>
#include <memory>

namespace glidemap {

class SettingsWindow : public QWidget {
public:
    static constexpr QSize contentSize{720, 520};
    static constexpr QSize minimumContentSize{680, 480};

    // Without a geometry store, each new window is centred on the screen.
    explicit SettingsWindow(SettingsView::Services services,
                            std::shared_ptr<WindowGeometryStore> geometryStore = nullptr,
                            QWidget* parent = nullptr);
    ~SettingsWindow() override;

    SettingsView& view() const { return *content; }

protected:
    bool event(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void restoreGeometry();
    void rememberPlace();

    std::shared_ptr<WindowGeometryStore> geometryStore;
    SettingsView* content;
    QPoint frameOffset; // from the frame's corner to the content's, when last not maximised
};

} // namespace glidemap
