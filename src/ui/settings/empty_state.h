// The text and button in place of the list while there are no bindings.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the settings view.
// Errors:  none. The text wraps.
#pragma once

#include "core/lang.h"

#include <QWidget>

namespace glidemap {

class StyledLabel;

class EmptyState : public QWidget {
public:
    explicit EmptyState(QWidget* parent = nullptr);

    void retitle(const Lang& lang);

private:
    StyledLabel* text;
};

} // namespace glidemap
