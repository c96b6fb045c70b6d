#include "ui/recorder/key_monitor.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace glidemap {

namespace {

Qt::KeyboardModifier modifierOf(int key) {
    switch (key) {
    case Qt::Key_Shift:
        return Qt::ShiftModifier;
    case Qt::Key_Control:
        return Qt::ControlModifier;
    case Qt::Key_Alt:
        return Qt::AltModifier;
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
        return Qt::MetaModifier;
    default:
        return Qt::NoModifier;
    }
}

} // namespace

void KeyMonitor::start() {
    running = true;
    if (!installed) {
        qApp->installEventFilter(this);
        installed = true;
    }
}

void KeyMonitor::stop() {
    running = false;
    removeIfDone();
}

void KeyMonitor::remove() {
    taken.clear();
    stop();
}

void KeyMonitor::removeIfDone() {
    if (installed && !running && taken.empty()) {
        qApp->removeEventFilter(this);
        installed = false;
    }
}

// Identifies a key by its scan code, which modifiers do not change. Synthetic events have none.
KeyMonitor::Key KeyMonitor::keyOf(const QKeyEvent& event) {
    const std::uint32_t scanCode = event.nativeScanCode();
    return {scanCode, scanCode != 0 ? 0 : event.key()};
}

bool KeyMonitor::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (takesOverride(*static_cast<QKeyEvent*>(event))) {
            event->accept(); // so that Qt delivers it to the monitor instead of running a shortcut
            return true;
        }
        return false;
    case QEvent::KeyPress:
        reportModifiers(*static_cast<QKeyEvent*>(event));
        return takesPress(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease:
        reportModifiers(*static_cast<QKeyEvent*>(event));
        return takesRelease(*static_cast<QKeyEvent*>(event));
    default:
        return false;
    }
}

// Window systems differ in whether a modifier's own event includes it in the modifiers.
void KeyMonitor::reportModifiers(const QKeyEvent& event) const {
    if (!running || !onModifiers || event.isAutoRepeat()) {
        return;
    }
    Qt::KeyboardModifiers held = event.modifiers();
    held.setFlag(modifierOf(event.key()), event.type() == QEvent::KeyPress);
    onModifiers(held);
}

// Qt sends this event before the press, to ask whether the press may trigger a shortcut.
bool KeyMonitor::takesOverride(const QKeyEvent& event) const {
    return running || (event.isAutoRepeat() && taken.contains(keyOf(event)));
}

bool KeyMonitor::takesPress(const QKeyEvent& event) {
    if (event.isAutoRepeat()) {
        return running || taken.contains(keyOf(event));
    }
    if (!running) {
        taken.erase(keyOf(event)); // another program received its release
        removeIfDone();
        return false;
    }
    taken.insert(keyOf(event));
    if (onPress) {
        onPress(event);
    }
    return true;
}

bool KeyMonitor::takesRelease(const QKeyEvent& event) {
    if (!taken.contains(keyOf(event))) {
        return false;
    }
    if (!event.isAutoRepeat()) {
        taken.erase(keyOf(event));
        removeIfDone();
    }
    return true;
}

} // namespace glidemap
