// A text in a style and in the colour of a role, both kept current with the theme.
//
// Thread:  the main thread. Owner: its parent. Errors: none.
#pragma once

#include "ui/theme/theme.h"

#include <QLabel>
#include <optional>

namespace glidemap {

class StyledLabel : public QLabel {
public:
    StyledLabel(TextStyle textStyle, Role colorRole, QWidget* parent = nullptr);

    void setRole(Role colorRole);

    // Of all of the text in one line, in points. Layouts ask for it many times over, and shaping the
    // letters is the most of what a layout costs: so it is remembered.
    QSizeF lineSize() const;

private:
    void dress();

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
