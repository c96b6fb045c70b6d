// A short text on a rounded background of its own colour at opacity 0.15. It names a category.
//
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none. A text that is too long is elided.
#pragma once

#include "ui/controls/elided_label.h"

namespace glidemap {

class Badge : public ElidedLabel {
public:
    explicit Badge(QWidget* parent = nullptr);

    // The colour of the text and of the background.
    void setColor(Role colorRole);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Role role = Role::blue;
};

} // namespace glidemap
