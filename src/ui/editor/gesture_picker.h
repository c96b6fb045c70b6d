// Picks one of the gestures. It looks like any picker, and opens the list by category with its
// search, inside the sheet; a letter typed on it opens the list with the search begun.
//
// Thread:  the main thread.
// Owner:   its parent; the language outlives it.
// Errors:  none.
#pragma once

#include "core/gesture_type.h"
#include "core/lang.h"
#include "ui/controls/picker.h"
#include "ui/controls/popover.h"

#include <QPointer>
#include <functional>

namespace glidemap {

class GesturePicker : public Picker {
public:
    explicit GesturePicker(Lang& language, QWidget* parent = nullptr);
    ~GesturePicker() override;

    GestureType gesture() const;
    void setGesture(GestureType gesture); // announces nothing

    // Called when the user has picked another.
    std::function<void(GestureType)> onPick;

    void showPopup() override;
    void hidePopup() override;
    bool isOpen() const { return !popup.isNull(); }

protected:
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void open(const QString& search);
    void retitle();

    Lang& lang;
    QPointer<Popover> popup;
    Subscription toLanguage;
    Subscription toTheme;
};

} // namespace glidemap
