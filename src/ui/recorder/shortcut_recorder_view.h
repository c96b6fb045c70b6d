// The row in which a keyboard shortcut is recorded: after a click the next key press anywhere in the
// program becomes the shortcut, and reaches nothing else. Escape alone cancels.
//
// Thread:  the main thread.
// Owner:   its parent; the keys outlive it. While it goes, or is hidden, recording stops.
// Errors:  none. A key that has no virtual key code is swallowed, and the recorder goes on waiting.
#pragma once

#include "bindings/key_shortcut.h"
#include "core/lang.h"
#include "ui/recorder/hardware_keys.h"

#include <QWidget>
#include <functional>
#include <optional>

class QPushButton;

namespace glidemap {

class ShortcutRecorderView : public QWidget {
public:
    ShortcutRecorderView(const HardwareKeys& hardware, Lang& language, QWidget* parent = nullptr);
    ~ShortcutRecorderView() override;

    const std::optional<KeyShortcut>& shortcut() const { return recorded; }
    void setShortcut(std::optional<KeyShortcut> shortcut); // announces nothing

    // Called when the user has recorded one.
    std::function<void(const KeyShortcut&)> onRecord;

    void startRecording();
    void stopRecording();
    bool isRecording() const { return recording; }

private:
    const HardwareKeys& keys;
    Lang& lang;
    std::optional<KeyShortcut> recorded;
    bool recording = false;
};

} // namespace glidemap
