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

private:
    void dress();

    std::string symbol;
    Role role;
    Subscription toTheme;
};

} // namespace glidemap
