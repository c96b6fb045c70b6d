#include "ui/controls/symbol_button.h"

#include "ui/theme/style/paint.h"
#include "ui/theme/symbol.h"

#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <utility>

namespace glidemap {

namespace {

constexpr double faintOpacity = 0.6;
constexpr double groundRadius = 5;

} // namespace

SymbolButton::SymbolButton(std::string_view symbol, Role role, QWidget* parent)
    : QToolButton(parent), symbol(symbol), role(role) {
    setAutoRaise(true);
    setIconSize(QSize(16, 16));
    setFocusPolicy(Qt::StrongFocus);
    toTheme = Theme::shared().changes().subscribe({}, [this] { applyTheme(); });
    applyTheme();
}

void SymbolButton::setSymbol(std::string_view symbolName) {
    symbol = symbolName;
    applyTheme();
}

void SymbolButton::setFaint(bool now) {
    if (std::exchange(faint, now) != now) {
        update();
    }
}

void SymbolButton::showGround() {
    hasGround = true;
    update();
}

void SymbolButton::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    if (hasGround) {
        style::fillRounded(painter, style::snapped(painter, rect()), groundRadius,
                           Theme::shared().color(Role::hover));
    }
    painter.setOpacity(faint ? faintOpacity : 1);
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
}

void SymbolButton::applyTheme() {
    setIcon(symbolIcon(symbol, role, iconSize().width()));
}

} // namespace glidemap
