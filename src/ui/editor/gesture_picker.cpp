#include "ui/editor/gesture_picker.h"

#include "ui/controls/searchable_list.h"
#include "ui/demo/gesture_demo_view.h"
#include "ui/editor/gesture_search.h"
#include "ui/theme/symbol.h"
#include "ui/theme/text.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <functional>
#include <utility>
#include <vector>

namespace glidemap {

namespace {

constexpr int listWidth = 300;
constexpr int roomForEntries = 290;
constexpr int demoHeight = 110;

SearchableList::Entry entryOf(GestureType gesture, const Lang& lang) {
    return {.text = toQt(displayName(gesture, lang)),
            .icon = symbolIcon(symbolName(gesture), Role::accent),
            .value = static_cast<int>(gesture)};
}

std::vector<SearchableList::Group> findEntries(const QString& typed, const Lang& lang) {
    std::vector<SearchableList::Group> groups;
    for (const FoundGestures& found : findGestures(typed.toStdString())) {
        SearchableList::Group group{toQt(displayName(found.category, lang)), {}};
        for (const GestureType gesture : found.gestures) {
            group.entries.push_back(entryOf(gesture, lang));
        }
        groups.push_back(std::move(group));
    }
    return groups;
}

// The gestures in a searchable list, grouped by category, below a demonstration of the highlighted
// gesture. If no gesture matches, the list says so and the demonstration stays.
class GestureList : public QWidget {
public:
    GestureList(GestureType chosen, Lang& lang, const QString& search, QWidget* parent = nullptr);

    std::function<void(GestureType)> onChoose;

    // Called when the user presses Tab or Shift+Tab. The callback moves the focus.
    std::function<void()> onLeave;

private:
    void demonstrate(GestureType gesture);
    void retitle();

    Lang& lang;
    GestureDemoView* demo;
    SearchableList* entries;
    Subscription toLanguage;
};

GestureList::GestureList(GestureType chosen, Lang& lang, const QString& search, QWidget* parent)
    : QWidget(parent), lang(lang), demo(new GestureDemoView(chosen)),
      entries(new SearchableList(
          [this](const QString& typed) { return findEntries(typed, this->lang); },
          static_cast<int>(chosen), search)) {
    demo->setObjectName("browsedGesture");
    demo->setFixedHeight(demoHeight);
    entries->setPartNames("gestureSearch", "gestureList");
    entries->setRoomForEntries(roomForEntries);
    setFixedWidth(listWidth);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(demo);
    column->addWidget(entries);
    setFocusProxy(entries);
    entries->onChoose = [this](int value) {
        if (onChoose) {
            onChoose(static_cast<GestureType>(value)); // may destroy this list
        }
    };
    entries->onBrowse = [this](int value) {
        demonstrate(static_cast<GestureType>(value));
    };
    entries->onLeave = [this](bool /*forward*/) {
        if (onLeave) {
            onLeave();
        }
    };
    toLanguage = lang.changes().subscribe({}, [this] { retitle(); });
    demonstrate(chosen);
    retitle();
}

void GestureList::demonstrate(GestureType gesture) {
    demo->setGesture(gesture);
    demo->setAccessibleName(toQt(displayName(gesture, lang)));
}

void GestureList::retitle() {
    entries->setTexts({
        .find = toQt(lang.choose("Search gestures", "搜索手势")),
        .clear = toQt(lang.choose("Clear", "清除")),
        .list = toQt(lang.choose("Trackpad gesture", "触控板手势")),
        .nothingFound = toQt(lang.choose("No matching gestures", "没有匹配的手势")),
        .currentChoice = toQt(lang.choose("Current choice", "当前选择")),
    });
}

// Whether the key types a character and is not a command.
bool types(const QKeyEvent& event) {
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !event.text().isEmpty() && event.text().front().isPrint() &&
           !event.text().front().isSpace() && (event.modifiers() & commands) == Qt::NoModifier;
}

bool opens(int key) {
    return key == Qt::Key_Space || key == Qt::Key_Select || key == Qt::Key_F4 ||
           key == Qt::Key_Up || key == Qt::Key_Down;
}

} // namespace

GesturePicker::GesturePicker(Lang& lang, QWidget* parent) : Picker(parent), lang(lang) {
    for (const GestureType gesture : allGestureTypes) {
        addItem(toQt(displayName(gesture, lang)));
    }
    connect(this, &QComboBox::currentIndexChanged, this, [this] {
        if (onPick) {
            onPick(gesture());
        }
    });
    toLanguage = lang.changes().subscribe({}, [this] { retitle(); });
    toTheme = Theme::shared().changes().subscribe({}, [this] { retitle(); });
    retitle();
}

GesturePicker::~GesturePicker() {
    if (isOpen()) {
        popup->onClosed = {};
        popup->dismiss();
    }
}

GestureType GesturePicker::gesture() const {
    return allGestureTypes[static_cast<std::size_t>(currentIndex())];
}

void GesturePicker::setGesture(GestureType gesture) {
    const QSignalBlocker quiet(this);
    setCurrentIndex(static_cast<int>(gesture));
}

void GesturePicker::showPopup() {
    open({});
}

void GesturePicker::open(const QString& search) {
    if (isOpen()) {
        return;
    }
    auto* list = new GestureList(gesture(), lang, search);
    list->onChoose = [this](GestureType chosen) {
        hidePopup();
        setCurrentIndex(static_cast<int>(chosen));
    };
    list->onLeave = [this] {
        hidePopup();
    };
    popup = new Popover(this, list);
    popup->setAccessibleName(accessibleName());
    popup->onClosed = [this] {
        popup = nullptr;
        setFocus(Qt::PopupFocusReason);
    };
    list->setFocus(Qt::PopupFocusReason);
}

void GesturePicker::hidePopup() {
    if (isOpen()) {
        popup->dismiss();
    }
}

void GesturePicker::hideEvent(QHideEvent* event) {
    hidePopup();
    Picker::hideEvent(event);
}

// Keys that are not handled here must reach the sheet, for example Return to save and Escape to
// cancel. QComboBox would search its items for the text of such keys.
void GesturePicker::keyPressEvent(QKeyEvent* event) {
    if (opens(event->key())) {
        showPopup();
    } else if (types(*event)) {
        open(event->text());
    } else {
        QWidget::keyPressEvent(event); // NOLINT(bugprone-parent-virtual-call): skips QComboBox
    }
}

void GesturePicker::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event); // NOLINT(bugprone-parent-virtual-call): skips QComboBox
    } else if (isOpen()) {
        hidePopup();
    } else {
        showPopup();
    }
}

void GesturePicker::retitle() {
    for (const GestureType gesture : allGestureTypes) {
        const int index = static_cast<int>(gesture);
        setItemText(index, toQt(displayName(gesture, lang)));
        setItemIcon(index, symbolIcon(symbolName(gesture), Role::accent));
    }
}

} // namespace glidemap
