#include "ui/controls/styled_label.h"

namespace glidemap {

StyledLabel::StyledLabel(TextStyle textStyle, Role colorRole, QWidget* parent)
    : QLabel(parent), style(textStyle), role(colorRole) {
    setTextFormat(Qt::PlainText);
    toTheme = Theme::shared().changes().subscribe({}, [this] { dress(); });
    dress();
}

void StyledLabel::setRole(Role colorRole) {
    role = colorRole;
    dress();
}

void StyledLabel::dress() {
    setFont(Theme::shared().font(style));
    QPalette own = palette();
    own.setColor(QPalette::WindowText, Theme::shared().color(role));
    own.setColor(QPalette::Disabled, QPalette::WindowText, Theme::shared().color(Role::tertiary));
    setPalette(own);
}

} // namespace glidemap
