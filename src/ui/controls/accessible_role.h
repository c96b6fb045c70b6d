// Tells programs that read the window to the user what a widget of ours is, where the toolkit would call it a plain panel or a
// frame.
//
// Thread:  the main thread.
// Errors:  none.
#pragma once

#include <QAccessibleWidget>

namespace glidemap {

// Of all widgets of this class. Once for the process; more often does nothing.
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
