// A single line that ends in "…" where there is no room for it, and then shows the whole as hover
// help. Assistive programs always read the whole.
//
// Thread:  the main thread. Owner: its parent. Errors: none.
#pragma once

#include "ui/controls/styled_label.h"

namespace glidemap {

class ElidedLabel : public StyledLabel {
public:
    using StyledLabel::StyledLabel;

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

} // namespace glidemap
