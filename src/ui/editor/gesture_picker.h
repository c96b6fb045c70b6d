// A picker for a gesture. It looks like other pickers, but opens a searchable list, grouped by
// category, within the sheet. Typing a letter opens the list and starts a search.
//
// Thread:  the main thread.
// Owner:   its parent. The language must outlive the picker.
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
    explicit GesturePicker(Lang& lang, QWidget* parent = nullptr);
    ~GesturePicker() override;

    GestureType gesture() const;
    void setGesture(GestureType gesture); // does not call onPick

    // Called when the user picks another gesture.
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
