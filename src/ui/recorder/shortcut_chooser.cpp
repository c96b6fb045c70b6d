#include "ui/recorder/shortcut_chooser.h"

#include "bindings/key_words.h"
#include "bindings/spoken_shortcut.h"
#include "ui/controls/searchable_list.h"
#include "ui/recorder/key_choices.h"
#include "ui/theme/text.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace glidemap {

namespace {

constexpr int smallestWidth = 300;
constexpr int roomForKeys = 260;

constexpr std::uint64_t storedModifiers =
    modifier::shift | modifier::control | modifier::option | modifier::command;

SearchableList::Entry entryOf(std::uint16_t keyCode, const QString& typed, const Lang& lang) {
    const auto is = [&typed](const std::string& name) {
        return typed.compare(toQt(name), Qt::CaseInsensitive) == 0;
    };
    return {.text = toQt(keyChoice(keyCode, lang)),
            .icon = {},
            .value = keyCode,
            .isExact = is(keyLabel(keyCode)) || is(keyWords(keyCode, lang))};
}

std::vector<SearchableList::Group> findEntries(const QString& text, const Lang& lang) {
    const QString typed = text.trimmed();
    std::vector<SearchableList::Group> groups;
    for (const FoundKeys& found : findKeys(typed.toStdString())) {
        SearchableList::Group group{toQt(label(found.group, lang)), {}};
        for (const std::uint16_t keyCode : found.keyCodes) {
            group.entries.push_back(entryOf(keyCode, typed, lang));
        }
        groups.push_back(std::move(group));
    }
    return groups;
}

} // namespace

ShortcutChooser::ShortcutChooser(const std::optional<KeyShortcut>& shown, Lang& lang,
                                 QWidget* parent)
    : QWidget(parent), lang(lang), key(shown ? std::optional(shown->keyCode) : std::nullopt),
      modifiers(shown ? shown->modifiers & storedModifiers : 0),
      keys(new SearchableList(
          [this](const QString& typed) { return findEntries(typed, this->lang); },
          key ? std::optional<int>(*key) : std::nullopt, {})) {
    setObjectName("shortcutChooser");
    setMinimumWidth(smallestWidth);
    keys->setPartNames("keySearch", "keyList");
    keys->setRoomForEntries(roomForKeys);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(makeToggles());
    column->addWidget(keys);
    column->addStretch();
    setFocusProxy(keys);
    keys->onChoose = [this](int value) {
        choose(static_cast<std::uint16_t>(value));
    };
    keys->onLeave = [this](bool forward) {
        leaveList(forward);
    };
    toLanguage = lang.changes().subscribe({}, [this] { retitle(); });
    retitle();
    // A fixed minimum height prevents the chooser from shrinking as the list gets shorter. If the
    // chooser is above its button, the search field would otherwise move while the user types.
    setMinimumHeight(sizeHint().height());
}

QWidget* ShortcutChooser::makeToggles() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (const std::uint64_t bit : allModifiers) {
        const QString word = toQt(modifierWord(bit));
        auto* button = new QPushButton(toQt(modifierSymbols(bit)) + " " + word);
        button->setObjectName(word);
        button->setAccessibleName(word);
        button->setCheckable(true);
        button->setChecked((modifiers & bit) != 0);
        button->setAutoDefault(false);
        connect(button, &QPushButton::toggled, this, [this, bit](bool isOn) {
            modifiers = isOn ? modifiers | bit : modifiers & ~bit;
            announce();
        });
        layout->addWidget(button, 1);
        toggles.push_back({bit, button});
    }
    return row;
}

void ShortcutChooser::choose(std::uint16_t keyCode) {
    key = keyCode;
    announce();
    if (onDone) {
        onDone(); // may destroy this object
    }
}

void ShortcutChooser::announce() {
    if (key && onChange) {
        onChange({.keyCode = *key, .modifiers = modifiers});
    }
}

// Tab leaves the chooser; Shift+Tab moves back to the toggles.
void ShortcutChooser::leaveList(bool forward) {
    if (!forward) {
        toggles.back().button->setFocus(Qt::BacktabFocusReason);
    } else if (onDone) {
        onDone();
    }
}

// Tab moves through the toggles to the list. Shift+Tab on the first toggle leaves the chooser.
bool ShortcutChooser::focusNextPrevChild(bool next) {
    const QWidget* const focused = focusWidget();
    if (next && focused == toggles.back().button) {
        keys->setFocus(Qt::TabFocusReason);
        return true;
    }
    if (!next && focused == toggles.front().button) {
        if (onDone) {
            onDone();
        }
        return true;
    }
    return QWidget::focusNextPrevChild(next);
}

// While a toggle has the focus, Return closes the chooser. Otherwise the key would reach the sheet,
// which would save the binding.
void ShortcutChooser::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QWidget::keyPressEvent(event);
    } else if (onDone && !event->isAutoRepeat()) {
        onDone();
    }
}

void ShortcutChooser::retitle() {
    keys->setTexts({
        .find = toQt(lang.choose("Search keys", "搜索按键")),
        .clear = toQt(lang.choose("Clear", "清除")),
        .list = toQt(lang.choose("Key", "按键")),
        .nothingFound = toQt(lang.choose("No matching keys", "没有匹配的按键")),
        .currentChoice = toQt(lang.choose("Current choice", "当前选择")),
    });
}

} // namespace glidemap
