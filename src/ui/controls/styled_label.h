// A label with a text style and a colour role. Both follow the theme.
//
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none.
#pragma once

#include "ui/theme/theme.h"

#include <QLabel>
#include <optional>

namespace glidemap {

class StyledLabel : public QLabel {
public:
    StyledLabel(TextStyle style, Role role, QWidget* parent = nullptr);

    void setRole(Role colorRole);

    // Returns the size of the text on one line, in points. The size is cached, because layouts
    // query it often and shaping the text is the most expensive part of a layout.
    QSizeF lineSize() const;

private:
    void applyTheme();

    struct Measured {
        QString text;
        QFont font;
        QSizeF size;
    };
    mutable std::optional<Measured> measured;

    TextStyle style;
    Role role;
    Subscription toTheme;
};

} // namespace glidemap
