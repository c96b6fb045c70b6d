// Composes a shortcut without key presses: four toggles for the modifiers, and a searchable list
// for the key. For keys that the desktop reserves for itself, and for keys that few keyboards have.
//
// If a key is chosen already, a toggle changes the shortcut at once; otherwise it takes effect with
// the key.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its parent; the language outlives it.
// Errors:  none. If no key matches, the list says so.
#pragma once

#include "bindings/key_shortcut.h"
#include "core/lang.h"

#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

class QPushButton;

namespace glidemap {

class SearchableList;

class ShortcutChooser : public QWidget {
public:
    ShortcutChooser(const std::optional<KeyShortcut>& shown, Lang& lang, QWidget* parent = nullptr);

    // Called with each shortcut that the user makes.
    std::function<void(const KeyShortcut&)> onChange;

    // Called when the user has chosen a key, or leaves by Tab.
    std::function<void()> onDone;

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Toggle {
        std::uint64_t bit;
        QPushButton* button;
    };

    QWidget* makeToggles();
    void choose(std::uint16_t keyCode);
    void announce();
    void leaveList(bool forward);
    void retitle();

    Lang& lang;
    std::optional<std::uint16_t> key;
    std::uint64_t modifiers = 0;
    std::vector<Toggle> toggles;
    SearchableList* keys;
    Subscription toLanguage;
};

} // namespace glidemap
