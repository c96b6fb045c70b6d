#include "ui/controls/styled_label.h"

namespace glidemap {

StyledLabel::StyledLabel(TextStyle style, Role role, QWidget* parent)
    : QLabel(parent), style(style), role(role) {
    setTextFormat(Qt::PlainText);
    toTheme = Theme::shared().changes().subscribe({}, [this] { applyTheme(); });
    applyTheme();
}

void StyledLabel::setRole(Role colorRole) {
    role = colorRole;
    applyTheme();
}

// The cached size does not depend on the screen, because the theme sets font sizes in pixels.
QSizeF StyledLabel::lineSize() const {
    if (!measured || measured->text != text() || measured->font != font()) {
        const QFontMetricsF metrics(font(), this);
        measured = {
            text(),
            font(),
            {metrics.horizontalAdvance(text()), metrics.size(Qt::TextSingleLine, text()).height()}};
    }
    return measured->size;
}

void StyledLabel::applyTheme() {
    setFont(Theme::shared().font(style));
    QPalette own = palette();
    own.setColor(QPalette::WindowText, Theme::shared().color(role));
    own.setColor(QPalette::Disabled, QPalette::WindowText, Theme::shared().color(Role::tertiary));
    setPalette(own);
}

} // namespace glidemap
