// The catalogue of gestures as a list by category with a search, below the demonstration of the gesture
// that is highlighted.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its parent; the language outlives it.
// Errors:  none. If no gesture matches, the list says so, and the demonstration stays.
#pragma once

#include "core/gesture_type.h"
#include "core/lang.h"

#include <QWidget>
#include <functional>

namespace glidemap {

class GestureDemoView;
class SearchableList;

class GestureList : public QWidget {
public:
    GestureList(GestureType chosen, Lang& language, const QString& search,
                QWidget* parent = nullptr);

    std::function<void(GestureType)> onChoose;

    // Called when Tab is pressed, to move the focus on.
    std::function<void()> onLeave;

private:
    void demonstrate(GestureType gesture);
    void retitle();

    Lang& lang;
    GestureDemoView* demo;
    SearchableList* entries;
    Subscription toLanguage;
};

} // namespace glidemap
