// Takes every key press that reaches the program, before any of its windows sees it.
//
// What belongs to a press goes the same way: its repetitions and its release are swallowed, too,
// also when the monitor has been stopped meanwhile, or else holding Return a moment too long would
// press the default button. Repetitions of a key that was held before are swallowed while the
// monitor runs, and tell nothing: whoever started it with that key has not let go yet.
//
// Thread:  the main thread.
// Owner:   who wants the keys. When it goes, the keys are everybody's again.
// Errors:  none. A release that never comes, because another program has got it, is not waited for:
//          the key's next press is a new one.
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
    // Called with each press, modifier keys among them, while the monitor runs.
    std::function<void(const QKeyEvent&)> onPress;

    // Called with what is held after each press and release of a key, while the monitor runs.
    std::function<void(Qt::KeyboardModifiers)> onModifiers;

    void start();

    // Leaves alone what comes from now on, but for the rest of the presses that were taken.
    void stop();

    // The same without the rest.
    void remove();

    bool isInstalled() const { return installed; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Key = std::pair<std::uint32_t, int>;
    static Key keyOf(const QKeyEvent& event);

    bool takesOverride(const QKeyEvent& event) const;
    bool takesPress(const QKeyEvent& event);
    void tellModifiers(const QKeyEvent& event) const;
    bool takesRelease(const QKeyEvent& event);
    void removeIfDone();

    std::set<Key> taken; // pressed, and not released yet
    bool running = false;
    bool installed = false;
};

} // namespace glidemap
