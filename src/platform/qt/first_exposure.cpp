#include "platform/qt/first_exposure.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWindow>
#include <utility>

namespace glidemap {

FirstExposure::FirstExposure(std::function<void()> onSeen) : onSeen(std::move(onSeen)) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool FirstExposure::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Expose && watched->isWindowType() &&
        static_cast<QWindow*>(watched)->isExposed()) {
        QCoreApplication::instance()->removeEventFilter(this);
        if (const auto seen = std::exchange(onSeen, {})) {
            seen();
        }
    }
    return false;
}

} // namespace glidemap
