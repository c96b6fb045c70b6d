// A label that names a category: a short text on a rounded background, which has the text's colour
// at opacity 0.15.
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

    // Sets the colour of the text and the background.
    void setColor(Role colorRole);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Role role = Role::blue;
};

} // namespace glidemap
