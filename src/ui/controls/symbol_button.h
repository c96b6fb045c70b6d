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

    // Draws the symbol paler, so that the button is less prominent. The button stays usable.
    void setFaint(bool now);
    bool isFaint() const { return faint; }

    // Draws a background behind the symbol, so that it is recognisable as a button.
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
