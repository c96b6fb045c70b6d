#include "gesture_demo_accessible.h"

#include "ui/demo/gesture_demo_view.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace glidemap::demo {

namespace {

// Qt calls this factory for every widget class; nullptr leaves the widget to the other factories.
QAccessibleInterface* accessibleDemo(const QString& /*className*/, QObject* object) {
    auto* const view = dynamic_cast<GestureDemoView*>(object);
    return view == nullptr ? nullptr : new QAccessibleWidget(view, QAccessible::Animation);
}

} // namespace

void installDemoAccessibility() {
    QAccessible::installFactory(accessibleDemo);
}

} // namespace glidemap::demo
