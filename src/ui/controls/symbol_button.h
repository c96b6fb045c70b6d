// A borderless button that shows a symbol. Its accessible name and tooltip describe its function.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none.
#pragma once

#include "ui/theme/theme.h"

#include <QToolButton>
#include <string>
#include <string_view>

namespace glidemap {

class SymbolButton : public QToolButton {
public:
    SymbolButton(std::string_view symbol, Role role, QWidget* parent = nullptr);

    void setSymbol(std::string_view symbolName);

    // Draws it paler, to be less prominent while still usable.
    void setFaint(bool now);
    bool isFaint() const { return faint; }

    // Adds a background, which shows that the symbol is a button.
    void showGround();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void applyTheme();

    std::string symbol;
    Role role;
    bool faint = false;
    bool hasGround = false;
    Subscription toTheme;
};

} // namespace glidemap
