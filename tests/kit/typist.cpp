#include "kit/typist.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

namespace glidemap::test {

namespace {

constexpr std::uint32_t scanCodeOffset = 8;

} // namespace

// While a key is held, window systems repeat its release and press.
void Typist::repeat(const Key& key) {
    send(key, false, true);
    send(key, true, true);
}

void Typist::type(const Key& key) {
    press(key);
    release(key);
}

void Typist::send(const Key& key, bool down, bool isRepetition) {
    const std::uint32_t scanCode = key.kernelCode == 0 ? 0 : key.kernelCode + scanCodeOffset;
    const auto event = [&](QEvent::Type type) {
        return QKeyEvent(type, key.meaning, modifiers, scanCode, 0, nativeModifiers, key.text,
                         isRepetition);
    };
    if (down) {
        QKeyEvent question = event(QEvent::ShortcutOverride);
        question.ignore();
        QCoreApplication::sendEvent(window.windowHandle(), &question);
    }
    QKeyEvent stroke = event(down ? QEvent::KeyPress : QEvent::KeyRelease);
    QCoreApplication::sendEvent(window.windowHandle(), &stroke);
}

} // namespace glidemap::test
