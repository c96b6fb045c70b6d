// Captures every key press in the program before its windows receive it.
//
// The monitor also swallows the repetitions and the release of a captured press, even after it has
// stopped. Otherwise a Return that is held a moment too long would press the default button. It
// swallows repetitions of keys that were pressed before it started, but does not report them: the
// key that started it may still be down.
//
// Thread:  the main thread.
// Owner:   the recorder of the keys. After its destruction, key events are delivered normally.
// Errors:  none. A release may be missing because another program received it. The monitor does not
//          wait for it, and the next press of that key is a new one.
#pragma once

#include <QObject>
#include <cstdint>
#include <functional>
#include <set>
#include <utility>

class QKeyEvent;

namespace glidemap {

class KeyMonitor : public QObject {
public:
    // Called with each press, including modifier keys, while the monitor runs.
    std::function<void(const QKeyEvent&)> onPress;

    // Called with the held modifiers after each press and release, while the monitor runs.
    std::function<void(Qt::KeyboardModifiers)> onModifiers;

    void start();

    // Ignores new presses, but still swallows the rest of captured ones.
    void stop();

    // Like stop(), but also forgets captured presses.
    void remove();

    bool isInstalled() const { return installed; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Key = std::pair<std::uint32_t, int>;
    static Key keyOf(const QKeyEvent& event);

    bool takesOverride(const QKeyEvent& event) const;
    bool takesPress(const QKeyEvent& event);
    void reportModifiers(const QKeyEvent& event) const;
    bool takesRelease(const QKeyEvent& event);
    void removeIfDone();

    std::set<Key> taken; // pressed and not yet released
    bool running = false;
    bool installed = false;
};

} // namespace glidemap
