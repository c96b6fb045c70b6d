// A line that separates two parts of a window, one point thick.
//
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none.
#pragma once

#include "ui/theme/theme.h"

#include <QWidget>

namespace glidemap {

class Separator : public QWidget {
public:
    explicit Separator(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Subscription toTheme;
};

} // namespace glidemap
