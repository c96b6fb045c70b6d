#include "ui/editor/application_picker.h"

#include "ui/theme/text.h"

#include <QIcon>
#include <QKeyEvent>
#include <QListView>
#include <QPixmap>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QStyleOptionComboBox>
#include <algorithm>
#include <iterator>
#include <utility>

namespace glidemap {

namespace {

// Returns a null icon if the icon cannot be drawn, for example an SVG file without the SVG image
// plugin.
QIcon iconNamed(const std::optional<std::string>& name, const QSize& size) {
    if (!name) {
        return {};
    }
    const QIcon icon = name->starts_with('/') ? QIcon(toQt(*name)) : QIcon::fromTheme(toQt(*name));
    return icon.pixmap(size).isNull() ? QIcon() : icon;
}

} // namespace

ApplicationPicker::ApplicationPicker(const Workspace& workspace, Offer offer, Lang& lang,
                                     QWidget* parent)
    : Picker(parent), workspace(workspace), offer(std::move(offer)), lang(lang) {
    reload();
    connect(this, &QComboBox::currentIndexChanged, this, [this](int index) { pick(index); });
    toLanguage = lang.changes().subscribe({}, [this] { reload(); });
}

void ApplicationPicker::setSelection(std::optional<RunningApp> selection) {
    if (selected != selection) {
        selected = std::move(selection);
        reload();
    }
}

void ApplicationPicker::reload() {
    const QSignalBlocker quiet(this);
    apps = offer(workspace);
    clear();
    addItem(toQt(lang.choose("Choose an app", "选择 App")));
    setItemData(0, palette().brush(QPalette::PlaceholderText), Qt::ForegroundRole);
    for (const RunningApp& app : apps) {
        addItem(toQt(app.name));
    }
    addIcons();
    if (!selected) {
        setCurrentIndex(0);
        return;
    }
    const auto found = std::ranges::find(apps, *selected);
    if (found == apps.end()) {
        addHiddenEntry(*selected);
    }
    setCurrentIndex(1 + static_cast<int>(found - apps.begin()));
}

// If at least one application has an icon, the others get an empty icon, so that all names are
// aligned.
void ApplicationPicker::addIcons() {
    std::vector<QIcon> icons;
    std::ranges::transform(apps, std::back_inserter(icons), [this](const RunningApp& app) {
        return iconNamed(workspace.iconOfApplication(app.bundleID), iconSize());
    });
    if (std::ranges::all_of(icons, &QIcon::isNull)) {
        return;
    }
    QPixmap nothing(iconSize());
    nothing.fill(Qt::transparent);
    for (std::size_t index = 0; index < icons.size(); ++index) {
        setItemIcon(static_cast<int>(index) + 1,
                    icons[index].isNull() ? QIcon(nothing) : icons[index]);
    }
}

// Adds the name of a chosen application that is not running, so that the picker can show it and
// screen readers can read it. The entry is hidden in the list, and neither the pointer nor the
// keyboard can choose it.
void ApplicationPicker::addHiddenEntry(const RunningApp& app) {
    addItem(toQt(app.name));
    const int row = count() - 1;
    if (auto* items = dynamic_cast<QStandardItemModel*>(model()); items != nullptr) {
        items->item(row)->setFlags(Qt::NoItemFlags);
    }
    if (auto* list = dynamic_cast<QListView*>(view()); list != nullptr) {
        list->setRowHidden(row, true);
    }
}

void ApplicationPicker::pick(int index) {
    if (index < 0 || index > static_cast<int>(apps.size())) {
        return;
    }
    selected = index == 0 ? std::nullopt : std::optional(apps[static_cast<std::size_t>(index - 1)]);
    if (onPick) {
        onPick(selected);
    }
}

// Draws the entry for no application like a placeholder.
void ApplicationPicker::initStyleOption(QStyleOptionComboBox* option) const {
    Picker::initStyleOption(option);
    if (currentIndex() == 0) {
        option->palette.setBrush(QPalette::ButtonText,
                                 option->palette.brush(QPalette::PlaceholderText));
    }
}

void ApplicationPicker::showPopup() {
    reload();
    Picker::showPopup();
}

void ApplicationPicker::showEvent(QShowEvent* event) {
    reload();
    Picker::showEvent(event);
}

// Keys can change the choice without opening the list, so the list must be current.
void ApplicationPicker::keyPressEvent(QKeyEvent* event) {
    reload();
    Picker::keyPressEvent(event);
}

} // namespace glidemap
