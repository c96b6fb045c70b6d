// Runs tasks on the main thread from Qt's event loop.
//
// When the application quits, pending tasks are destroyed without running. Tasks submitted later
// are destroyed, too, because the services are shutting down.
//
// Thread:  submit() on any thread. Created and destroyed on the main thread, while the application
//          object exists.
// Owner:   the program; all objects that submit tasks must be destroyed before the queue.
// Errors:  none.
#pragma once

#include "core/main_queue.h"

#include <memory>

namespace glidemap {

class QtMainQueue : public MainQueue {
public:
    QtMainQueue();
    ~QtMainQueue() override;

    void submit(Task task) override;

private:
    class Receiver;
    std::unique_ptr<Receiver> receiver;
};

} // namespace glidemap
