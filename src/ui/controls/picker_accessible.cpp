#include "ui/controls/picker_accessible.h"

#include "ui/controls/picker.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>

namespace glidemap {

namespace {

class PickerAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit PickerAccessible(Picker* shown)
        : QAccessibleWidget(shown, QAccessible::ComboBox), picker(*shown) {}

    // The current choice is also the name, as in Qt's own implementation on Linux. The label is
    // exposed as a separate relation.
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name || kind == QAccessible::Value
                   ? choice()
                   : QAccessibleWidget::text(kind);
    }

    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(picker.view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child->object() == picker.view() ? 0 : -1;
    }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }

    QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }
    void doAction(const QString& name) override {
        if (name != showMenuAction() && name != pressAction()) {
            return;
        }
        if (picker.view()->isVisible()) {
            picker.hidePopup();
        } else {
            picker.showPopup();
        }
    }

    // The text interface is read-only and has no selection.
    QString text(int start, int end) const override { return choice().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(choice().size()); }
    void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int /*start*/, int /*end*/) override {}
    void removeSelection(int /*index*/) override {}
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override {}
    QRect characterRect(int /*offset*/) const override { return rect(); }
    int offsetAtPoint(const QPoint& /*point*/) const override { return -1; }
    void scrollToSubstring(int /*start*/, int /*end*/) override {}
    QString attributes(int /*offset*/, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

protected:
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }

private:
    QString choice() const {
        return picker.currentIndex() < 0 ? picker.placeholderText() : picker.currentText();
    }

    Picker& picker;
};

} // namespace

void exposePickersWithTheirText() {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(
            [](const QString& /*className*/, QObject* object) -> QAccessibleInterface* {
                auto* const picker = dynamic_cast<Picker*>(object);
                return picker == nullptr ? nullptr : new PickerAccessible(picker);
            });
        return true;
    }();
}

} // namespace glidemap
