#include "ui/editor/gesture_list.h"

#include "ui/controls/searchable_list.h"
#include "ui/demo/gesture_demo_view.h"
#include "ui/editor/gesture_search.h"
#include "ui/theme/symbol.h"
#include "ui/theme/text.h"

#include <QVBoxLayout>

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

} // namespace

GestureList::GestureList(GestureType chosen, Lang& language, const QString& search, QWidget* parent)
    : QWidget(parent), lang(language), demo(new GestureDemoView(chosen)),
      entries(new SearchableList([this](const QString& typed) { return findEntries(typed, lang); },
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

} // namespace glidemap
