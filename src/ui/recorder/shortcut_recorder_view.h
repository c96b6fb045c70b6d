// The row in which a keyboard shortcut is recorded: after a click the next key press anywhere in
// the program becomes the shortcut, and reaches nothing else. A plain Escape cancels. A second
// button lets the user choose a shortcut instead of pressing it.
//
// While recording in the active window, it also captures the keys that the desktop reserves for
// itself, for at most thirty seconds: a screen that locks itself needs the keyboard.
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

    // Called when the user has recorded or chosen a shortcut.
    std::function<void(const KeyShortcut&)> onRecord;

    void startRecording();
    void stopRecording();
    bool isRecording() const { return recording; }

    // The maximum time for which one recording captures the desktop's own keys.
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
    QString invitation() const;
    QString recordedText() const;

    const std::shared_ptr<KeyPresses> keys;
    Lang& lang;
    QLabel* label;
    QPushButton* button;
    SymbolButton* chooseButton;
    QPointer<Popover> chooser;
    QTimer captureLimit; // ends the capture of the desktop's own keys
    std::optional<KeyShortcut> recorded;
    std::uint64_t held = 0; // modifiers, while recording
    bool recording = false;
    bool refusedKey = false;      // the last key has no code that a shortcut can store
    bool mayHaveCaptured = false; // start() was called since the last releaseKeys()
    Subscription toLanguage;
};

} // namespace glidemap
