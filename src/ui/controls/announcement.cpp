#include "ui/controls/announcement.h"

#include "ui/controls/accessible_role.h"

#include <QAccessible>
#include <QWidget>

namespace glidemap {

namespace {

// A widget of one pixel that draws nothing and is exposed to assistive technology as a
// notification. The first announcement in a window creates it, as a child of the window.
class Announcement : public QWidget {
public:
    explicit Announcement(QWidget* window) : QWidget(window) {
        presentAs<Announcement, QAccessible::Notification>();
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        setGeometry(0, 0, 1, 1);
        show();
    }

    static Announcement& in(QWidget& window) {
        for (QObject* const child : window.children()) {
            if (auto* const known = dynamic_cast<Announcement*>(child)) {
                return *known;
            }
        }
        return *new Announcement(&window);
    }
};

} // namespace

void announce(const QWidget& source, const QString& text) {
    if (!QAccessible::isActive()) {
        return;
    }
    Announcement& announcement = Announcement::in(*source.window());
    announcement.setAccessibleName(text);
    QAccessibleEvent shown(&announcement, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}

} // namespace glidemap
