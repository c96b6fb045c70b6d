// Runs tasks on the main thread from Qt's event loop.
//
// When the application quits, pending tasks are destroyed without running. Tasks submitted later
// are destroyed, too, because the services are shutting down.
//
// Thread:  created and destroyed on the main thread, within the application object's life.
// Owner:   the program; all submitters are destroyed before the queue.
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
