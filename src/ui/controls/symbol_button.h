// A borderless button that is a symbol. What it does is its accessible name and its hover help.
//
// Units:   points.
// Thread:  the main thread. Owner: its parent. Errors: none.
#pragma once

#include "ui/theme/theme.h"

#include <QToolButton>
#include <string>
#include <string_view>

namespace glidemap {

class SymbolButton : public QToolButton {
public:
    SymbolButton(std::string_view symbolName, Role colorRole, QWidget* parent = nullptr);

    void setSymbol(std::string_view symbolName);

    // Draws it paler: what need not catch the eye now, yet can be used.
    void setFaint(bool now);
    bool isFaint() const { return faint; }

    // A ground behind the symbol says that it can be pressed.
    void showGround();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void dress();

    std::string symbol;
    Role role;
    bool faint = false;
    bool hasGround = false;
    Subscription toTheme;
};

} // namespace glidemap
