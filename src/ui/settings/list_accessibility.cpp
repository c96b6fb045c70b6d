#include "ui/settings/binding_list_view.h"

#include <QAccessibleWidget>
#include <algorithm>
#include <cstddef>
#include <map>

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

// Represents a binding that is scrolled out of view and has no row. Assistive technology can count
// and read it like the other bindings.
class AbsentRow : public QAccessibleInterface {
public:
    AbsentRow(const BindingListView& shown, std::size_t index) : shown(shown), index(index) {}

    std::size_t place() const { return index; }

    bool isValid() const override { return index < shown.count(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(const_cast<BindingListView*>(&shown));
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid()
                   ? BindingRow::spokenName(shown.at(index), shown.language())
                   : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override { return shown.placeOf(index); }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.selectable = true;
        state.focusable = true;
        state.offscreen = true;
        return state;
    }

private:
    const BindingListView& shown;
    const std::size_t index;
};

// Makes the items direct children of the list, and omits the widgets in between. Each binding has
// an item, even without a row, so that positions and counts are correct.
class AccessibleList : public QAccessibleWidget {
public:
    explicit AccessibleList(BindingListView* list)
        : QAccessibleWidget(list, QAccessible::List), shown(*list) {}
    AccessibleList(const AccessibleList&) = delete;
    AccessibleList& operator=(const AccessibleList&) = delete;

    int childCount() const override { return static_cast<int>(shown.count()); }

    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) {
            return nullptr;
        }
        const auto place = static_cast<std::size_t>(index);
        const auto row = shown.rows().find(place);
        return row != shown.rows().end() ? QAccessible::queryAccessibleInterface(row->second)
                                         : absentRow(place);
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        if (const auto* const unseen = dynamic_cast<const AbsentRow*>(child)) {
            return static_cast<int>(unseen->place());
        }
        const auto& rows = shown.rows();
        const auto place = std::ranges::find_if(
            rows, [child](const auto& entry) { return entry.second == child->object(); });
        return place != rows.end() ? static_cast<int>(place->first) : -1;
    }

    QAccessibleInterface* focusChild() const override {
        const auto selected = shown.selectedIndex();
        const auto row = selected ? shown.rows().find(*selected) : shown.rows().end();
        return shown.hasFocus() && row != shown.rows().end()
                   ? QAccessible::queryAccessibleInterface(row->second)
                   : QAccessibleWidget::focusChild();
    }

    // If a row is selected, that row has the focus instead of the list.
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.focused = shown.hasFocus() && !shown.selectedIndex();
        return state;
    }

protected:
    ~AccessibleList() override {
        for (const auto& [place, identifier] : absent) {
            QAccessible::deleteAccessibleInterface(identifier);
        }
    }

private:
    QAccessibleInterface* absentRow(std::size_t place) const {
        auto known = absent.find(place);
        if (known == absent.end()) {
            const auto identifier =
                QAccessible::registerAccessibleInterface(new AbsentRow(shown, place));
            known = absent.emplace(place, identifier).first;
        }
        return QAccessible::accessibleInterface(known->second);
    }

    const BindingListView& shown;
    mutable std::map<std::size_t, QAccessible::Id> absent;
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

void installListAccessibility() {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(describe);
        return true;
    }();
}

} // namespace glidemap
