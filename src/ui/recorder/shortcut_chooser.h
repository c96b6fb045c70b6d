// Composes a shortcut without pressing its keys, from four modifier toggles and a searchable list
// of keys. It is meant for keys that the desktop reserves for itself and for keys that few
// keyboards have.
//
// If a key has been chosen, a toggle changes the shortcut immediately. Otherwise the toggles take
// effect when the user chooses a key.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its parent. The language must outlive the chooser.
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

    // Called each time the user changes the shortcut.
    std::function<void(const KeyShortcut&)> onChange;

    // Called when the user chooses a key, or leaves the chooser with Tab, Shift+Tab or Return.
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
