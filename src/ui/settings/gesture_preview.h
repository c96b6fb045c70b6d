// The content of the popover that opens at a binding's symbol: the gesture's name, a demonstration
// and a description.
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

    // Sets the gesture, and the texts in the current language.
    void setGesture(GestureType gesture, const Lang& lang);

private:
    StyledLabel* name;
    GestureDemoView* demo;
    StyledLabel* detail;
};

} // namespace glidemap
