// Captures every key press in the program before the program's windows receive it.
//
// The monitor also swallows the auto-repeats and the release of a captured press, even after it has
// stopped. Otherwise a Return that is held slightly too long would press the default button. While
// it runs, it also swallows the auto-repeated presses of keys that were pressed before it started:
// one of them may be the key that started the recording.
//
// Thread:  the main thread.
// Owner:   ToolkitKeyPresses, which reports the monitor's events. After the monitor's destruction,
//          key events are delivered normally.
// Errors:  none. If another program received the release of a captured key, the next press of that
//          key counts as a new press.
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
    // Called for each press, including modifier keys, while the monitor runs.
    std::function<void(const QKeyEvent&)> onPress;

    // Called with the held modifiers after each press and release, while the monitor runs.
    std::function<void(Qt::KeyboardModifiers)> onModifiers;

    // Called when the monitor has stopped and all captured keys are released.
    std::function<void()> onDone;

    void start();

    // Stops capturing new presses, but still swallows the auto-repeats and releases of captured
    // ones.
    void stop();

    // Like stop(), but no longer swallows the auto-repeats and releases of captured presses.
    void remove();

    bool isInstalled() const { return installed; }

    // Returns whether a captured key is still pressed.
    bool holdsKeys() const { return !taken.empty(); }

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

    std::set<Key> taken; // captured keys that are still pressed
    bool running = false;
    bool installed = false;
};

} // namespace glidemap
