// Sets the accessible role of a widget class that Qt reports as a plain panel or frame by default.
//
// Thread:  the main thread.
// Errors:  none.
#pragma once

#include <QAccessibleWidget>

namespace glidemap {

// Sets the role for all widgets of this class in the process. Idempotent.
template <typename Widget, QAccessible::Role role>
void presentAs() {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(
            [](const QString& /*className*/, QObject* object) -> QAccessibleInterface* {
                auto* const widget = dynamic_cast<Widget*>(object);
                return widget == nullptr ? nullptr : new QAccessibleWidget(widget, role);
            });
        return true;
    }();
}

} // namespace glidemap
