#include "platform/qt/qt_main_queue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <atomic>
#include <utility>

namespace glidemap {

namespace {

// The event owns its task, because tasks may be move-only.
class TaskEvent : public QEvent {
public:
    explicit TaskEvent(Task task) : QEvent(kind()), task(std::move(task)) {}

    static Type kind() {
        static const auto registered = static_cast<Type>(registerEventType());
        return registered;
    }

    Task task;
};

} // namespace

class QtMainQueue::Receiver : public QObject {
public:
    Receiver() {
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
                [this] { stopListening(); });
    }

    // Preserves the order of tasks, because Qt delivers events of equal priority in the order of
    // posting.
    void post(Task task) {
        if (listening) {
            QCoreApplication::postEvent(this, new TaskEvent(std::move(task)));
        }
    }

    bool event(QEvent* event) override {
        if (event->type() != TaskEvent::kind()) {
            return QObject::event(event);
        }
        if (listening) {
            static_cast<TaskEvent*>(event)->task();
        }
        return true;
    }

private:
    void stopListening() {
        listening = false;
        QCoreApplication::removePostedEvents(this, TaskEvent::kind());
    }

    std::atomic<bool> listening = true;
};

QtMainQueue::QtMainQueue() : receiver(std::make_unique<Receiver>()) {}
QtMainQueue::~QtMainQueue() = default;

void QtMainQueue::submit(Task task) {
    receiver->post(std::move(task));
}

} // namespace glidemap
