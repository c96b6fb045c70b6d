// A text in a style and in the colour of a role, both kept current with the theme.
//
// Thread:  the main thread. Owner: its parent. Errors: none.
#pragma once

#include "ui/theme/theme.h"

#include <QLabel>

namespace glidemap {

class StyledLabel : public QLabel {
public:
    StyledLabel(TextStyle textStyle, Role colorRole, QWidget* parent = nullptr);

    void setRole(Role colorRole);

private:
    void dress();

    TextStyle style;
    Role role;
    Subscription toTheme;
};

} // namespace glidemap
