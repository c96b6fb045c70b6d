// A symbol that is only decoration. Assistive technology ignores it.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none.
#pragma once

#include "ui/theme/theme.h"

#include <QWidget>
#include <string>
#include <string_view>

namespace glidemap {

class SymbolLabel : public QWidget {
public:
    SymbolLabel(std::string_view symbol, Role role, int points, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string symbol;
    Role role;
    int points;
    Subscription toTheme;
};

} // namespace glidemap
