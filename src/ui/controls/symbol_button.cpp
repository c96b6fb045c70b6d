#include "ui/controls/symbol_button.h"

#include "ui/theme/symbol.h"

namespace glidemap {

SymbolButton::SymbolButton(std::string_view symbolName, Role colorRole, QWidget* parent)
    : QToolButton(parent), symbol(symbolName), role(colorRole) {
    setAutoRaise(true);
    setIconSize(QSize(16, 16));
    setFocusPolicy(Qt::StrongFocus);
    toTheme = Theme::shared().changes().subscribe({}, [this] { dress(); });
    dress();
}

void SymbolButton::setSymbol(std::string_view symbolName) {
    symbol = symbolName;
    dress();
}

void SymbolButton::dress() {
    setIcon(symbolIcon(symbol, role, iconSize().width()));
}

} // namespace glidemap
