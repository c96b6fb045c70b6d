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
        if (onDone) {
            onDone();
        }
    }
}

// The scan code identifies a key independently of modifiers. Synthetic events have no scan code and
// are identified by their Qt key.
KeyMonitor::Key KeyMonitor::keyOf(const QKeyEvent& event) {
    const std::uint32_t scanCode = event.nativeScanCode();
    return {scanCode, scanCode != 0 ? 0 : event.key()};
}

bool KeyMonitor::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (takesOverride(*static_cast<QKeyEvent*>(event))) {
            event->accept(); // Qt then sends the press to the monitor instead of running a shortcut
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

// If the key is a modifier, sets or clears its flag explicitly. Depending on the window system,
// event.modifiers() contains the state before or after this event.
void KeyMonitor::reportModifiers(const QKeyEvent& event) const {
    if (!running || !onModifiers || event.isAutoRepeat()) {
        return;
    }
    Qt::KeyboardModifiers held = event.modifiers();
    held.setFlag(modifierOf(event.key()), event.type() == QEvent::KeyPress);
    onModifiers(held);
}

// Before a key press, Qt sends ShortcutOverride. If it is accepted, the press triggers no shortcut.
bool KeyMonitor::takesOverride(const QKeyEvent& event) const {
    return running || (event.isAutoRepeat() && taken.contains(keyOf(event)));
}

bool KeyMonitor::takesPress(const QKeyEvent& event) {
    if (event.isAutoRepeat()) {
        return running || taken.contains(keyOf(event));
    }
    if (!running) {
        taken.erase(keyOf(event)); // no effect unless the key's release was lost
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
