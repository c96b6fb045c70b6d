// What hangs from the symbol of a binding: the gesture's name, how it is made, and what to know.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the popover that shows it.
// Errors:  none.
#pragma once

#include "core/gesture_type.h"
#include "core/lang.h"

#include <QWidget>

namespace glidemap {

class GestureDemoView;
class StyledLabel;

class GesturePreview : public QWidget {
public:
    static constexpr QSize demoSize{230, 150};

    GesturePreview(GestureType gesture, const Lang& lang, QWidget* parent = nullptr);

    // The texts are those of the language at this moment.
    void setGesture(GestureType gesture, const Lang& lang);

private:
    StyledLabel* name;
    GestureDemoView* demo;
    StyledLabel* detail;
};

} // namespace glidemap
