// A single line of text. A text that is too long is elided, and the tooltip shows it in full.
// Assistive technology always reads the full text.
//
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none.
#pragma once

#include "ui/controls/styled_label.h"

namespace glidemap {

class ElidedLabel : public StyledLabel {
public:
    ElidedLabel(TextStyle style, Role role, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    bool isCut() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QSize withMargins(int textWidth) const;
};

} // namespace glidemap
