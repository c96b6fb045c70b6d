#include "ui/editor/gesture_picker.h"

#include "ui/editor/gesture_list.h"
#include "ui/theme/symbol.h"
#include "ui/theme/text.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>

namespace glidemap {

namespace {

// Whether the key types a character instead of running a command.
bool types(const QKeyEvent& event) {
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !event.text().isEmpty() && event.text().front().isPrint() &&
           !event.text().front().isSpace() && (event.modifiers() & commands) == Qt::NoModifier;
}

bool opens(int key) {
    return key == Qt::Key_Space || key == Qt::Key_Select || key == Qt::Key_F4 ||
           key == Qt::Key_Up || key == Qt::Key_Down;
}

} // namespace

GesturePicker::GesturePicker(Lang& language, QWidget* parent) : Picker(parent), lang(language) {
    for (const GestureType gesture : allGestureTypes) {
        addItem(toQt(displayName(gesture, lang)));
    }
    connect(this, &QComboBox::currentIndexChanged, this, [this] {
        if (onPick) {
            onPick(gesture());
        }
    });
    toLanguage = lang.changes().subscribe({}, [this] { retitle(); });
    toTheme = Theme::shared().changes().subscribe({}, [this] { retitle(); });
    retitle();
}

GesturePicker::~GesturePicker() {
    if (isOpen()) {
        popup->onClosed = {};
        popup->dismiss();
    }
}

GestureType GesturePicker::gesture() const {
    return allGestureTypes[static_cast<std::size_t>(currentIndex())];
}

void GesturePicker::setGesture(GestureType gesture) {
    const QSignalBlocker quiet(this);
    setCurrentIndex(static_cast<int>(gesture));
}

void GesturePicker::showPopup() {
    open({});
}

void GesturePicker::open(const QString& search) {
    if (isOpen()) {
        return;
    }
    auto* list = new GestureList(gesture(), lang, search);
    list->onChoose = [this](GestureType chosen) {
        hidePopup();
        setCurrentIndex(static_cast<int>(chosen));
    };
    list->onLeave = [this] {
        hidePopup();
    };
    popup = new Popover(this, list);
    popup->setAccessibleName(accessibleName());
    popup->onClosed = [this] {
        popup = nullptr;
        setFocus(Qt::PopupFocusReason);
    };
    list->setFocus(Qt::PopupFocusReason);
}

void GesturePicker::hidePopup() {
    if (isOpen()) {
        popup->dismiss();
    }
}

void GesturePicker::hideEvent(QHideEvent* event) {
    hidePopup();
    Picker::hideEvent(event);
}

// Leaves other keys to the sheet: Return saves, Escape cancels.
void GesturePicker::keyPressEvent(QKeyEvent* event) {
    if (opens(event->key())) {
        showPopup();
    } else if (types(*event)) {
        open(event->text());
    } else {
        QWidget::keyPressEvent(event);
    }
}

void GesturePicker::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event);
    } else if (isOpen()) {
        hidePopup();
    } else {
        showPopup();
    }
}

void GesturePicker::retitle() {
    for (const GestureType gesture : allGestureTypes) {
        const int index = static_cast<int>(gesture);
        setItemText(index, toQt(displayName(gesture, lang)));
        setItemIcon(index, symbolIcon(symbolName(gesture), Role::accent));
    }
}

} // namespace glidemap
