#include "ui/settings/list_accessibility.h"

#include "ui/settings/binding_list_view.h"

#include <QAccessibleWidget>
#include <algorithm>
#include <iterator>

namespace glidemap {

namespace {

BindingListView* listAround(const QWidget* row) {
    for (QWidget* widget = row->parentWidget(); widget != nullptr;
         widget = widget->parentWidget()) {
        if (auto* list = dynamic_cast<BindingListView*>(widget)) {
            return list;
        }
    }
    return nullptr;
}

// What holds the rows is passed over: they are the list's own children.
class AccessibleList : public QAccessibleWidget {
public:
    explicit AccessibleList(BindingListView* list)
        : QAccessibleWidget(list, QAccessible::List), shown(*list) {}

    int childCount() const override { return static_cast<int>(shown.rows().size()); }

    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) {
            return nullptr;
        }
        return QAccessible::queryAccessibleInterface(
            std::next(shown.rows().begin(), index)->second);
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto& rows = shown.rows();
        const auto place = std::ranges::find_if(
            rows, [child](const auto& entry) { return entry.second == child->object(); });
        return place != rows.end() ? static_cast<int>(std::distance(rows.begin(), place)) : -1;
    }

    QAccessibleInterface* focusChild() const override {
        const auto selected = shown.selectedIndex();
        const auto row = selected ? shown.rows().find(*selected) : shown.rows().end();
        return shown.hasFocus() && row != shown.rows().end()
                   ? QAccessible::queryAccessibleInterface(row->second)
                   : QAccessibleWidget::focusChild();
    }

private:
    const BindingListView& shown;
};

class AccessibleRow : public QAccessibleWidget {
public:
    explicit AccessibleRow(BindingRow* row)
        : QAccessibleWidget(row, QAccessible::ListItem), shown(*row) {}

    QAccessibleInterface* parent() const override {
        BindingListView* list = listAround(&shown);
        return list != nullptr ? QAccessible::queryAccessibleInterface(list)
                               : QAccessibleWidget::parent();
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const BindingListView* list = listAround(&shown);
        state.selectable = true;
        state.selected = shown.isSelected();
        state.focusable = true;
        state.focused = shown.isSelected() && list != nullptr && list->hasFocus();
        return state;
    }

private:
    const BindingRow& shown;
};

QAccessibleInterface* describe(const QString& /*name*/, QObject* object) {
    if (auto* list = dynamic_cast<BindingListView*>(object)) {
        return new AccessibleList(list);
    }
    if (auto* row = dynamic_cast<BindingRow*>(object)) {
        return new AccessibleRow(row);
    }
    return nullptr;
}

} // namespace

void describeListsToAssistance() {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(describe);
        return true;
    }();
}

} // namespace glidemap
