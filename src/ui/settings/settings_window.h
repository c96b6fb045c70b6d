// The one window: its title, its size, and where it was when it was last closed.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the application's delegate. Closing only hides it.
// Errors:  none. A remembered place that no screen shows any more is not used.
#pragma once

#include "ui/settings/settings_view.h"

#include <QWidget>

namespace glidemap {

class SettingsWindow : public QWidget {
public:
    static constexpr QSize contentSize{720, 520};
    static constexpr QSize minimumContentSize{680, 480};

    explicit SettingsWindow(SettingsView::Services services, QWidget* parent = nullptr);

    SettingsView& view() const { return *content; }

private:
    SettingsView* content;
};

} // namespace glidemap
