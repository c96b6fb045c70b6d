// The row that records a keyboard shortcut. After a click, the next key press in the program
// becomes the shortcut and reaches no other control. Escape alone cancels.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its parent. Recording stops when the row is hidden or destroyed.
// Errors:  none. A key without a virtual key code is swallowed, and recording continues.
#pragma once

#include "bindings/key_shortcut.h"
#include "core/lang.h"
#include "ui/recorder/key_presses.h"

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

class QLabel;
class QPushButton;

namespace glidemap {

class ShortcutRecorderView : public QWidget {
public:
    static constexpr int smallestLabel = 160;

    ShortcutRecorderView(std::shared_ptr<KeyPresses> keyPresses, Lang& language,
                         QWidget* parent = nullptr);
    ~ShortcutRecorderView() override;

    const std::optional<KeyShortcut>& shortcut() const { return recorded; }
    void setShortcut(std::optional<KeyShortcut> shortcut); // does not call onRecord

    // Called when the user has recorded a shortcut.
    std::function<void(const KeyShortcut&)> onRecord;

    void startRecording();
    void stopRecording();
    bool isRecording() const { return recording; }

protected:
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void showHeld(std::uint64_t modifiers);
    void take(const KeyPresses::Press& press);
    void letGo();
    void record(const KeyShortcut& shortcut);
    void retitle();
    void makeButtonWideEnough();
    QString buttonText() const;
    QString recordingText() const;
    QString invitation() const;
    QString recordedText() const;

    const std::shared_ptr<KeyPresses> keys;
    Lang& lang;
    QLabel* label;
    QPushButton* button;
    std::optional<KeyShortcut> recorded;
    std::uint64_t held = 0; // modifiers, while recording
    bool recording = false;
    bool refusedKey = false;  // the last key has no code that a shortcut can store
    bool mayHoldKeys = false; // has called start() since the last letGo()
    Subscription toLanguage;
};

} // namespace glidemap
