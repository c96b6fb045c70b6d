// A row that records a keyboard shortcut. After a click, the next key press in any of the program's
// windows becomes the shortcut, and no window receives it. Escape without modifiers cancels. A
// second button lets the user choose a shortcut from a list instead.
//
// While recording in the active window, the row also captures the keys that the desktop reserves
// for itself. Capturing lasts at most thirty seconds, because a screen locker needs exclusive use
// of the keyboard.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its parent. Recording stops when the row is hidden or destroyed.
// Errors:  none. A key without a virtual key code is swallowed, and recording continues.
#pragma once

#include "bindings/key_shortcut.h"
#include "core/lang.h"
#include "ui/recorder/key_presses.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

class QLabel;
class QPushButton;

namespace glidemap {

class Popover;
class SymbolButton;

class ShortcutRecorderView : public QWidget {
public:
    static constexpr int smallestLabel = 160;

    ShortcutRecorderView(std::shared_ptr<KeyPresses> keys, Lang& lang, QWidget* parent = nullptr);
    ~ShortcutRecorderView() override;

    const std::optional<KeyShortcut>& shortcut() const { return recorded; }
    void setShortcut(std::optional<KeyShortcut> shortcut); // does not call onRecord

    // Called when the user records or chooses a shortcut.
    std::function<void(const KeyShortcut&)> onRecord;

    void startRecording();
    void stopRecording();
    bool isRecording() const { return recording; }

    // The maximum time for which a recording captures the keys that the desktop reserves for
    // itself.
    static constexpr std::chrono::seconds maxCaptureTime{30};
    void setMaxCaptureTime(std::chrono::milliseconds duration) {
        captureLimit.setInterval(duration);
    }

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void showHeld(std::uint64_t modifiers);
    void take(const KeyPresses::Press& press);
    void releaseKeys();
    void updateDesktopKeyCapture();
    void record(const KeyShortcut& shortcut);
    void announceState() const;
    void retitle();
    void toggleChooser();
    void closeChooser();
    void makeButtonWideEnough();
    QString buttonText() const;
    QString recordingText() const;
    QString refusal() const;
    QString invitation() const;
    QString recordedText() const;

    const std::shared_ptr<KeyPresses> keys;
    Lang& lang;
    QLabel* label;
    QPushButton* button;
    SymbolButton* chooseButton;
    QPointer<Popover> chooser;
    QTimer captureLimit; // stops capturing the keys that the desktop reserves for itself
    std::optional<KeyShortcut> recorded;
    std::uint64_t held = 0; // the held modifiers, while recording
    bool recording = false;
    // Whether the last pressed key has no virtual key code, so that it cannot be stored.
    bool refusedKey = false;
    bool mayHaveCaptured = false; // keys->start() was called since the last releaseKeys()
    Subscription toLanguage;
};

} // namespace glidemap
