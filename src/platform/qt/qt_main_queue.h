// The main thread's queue: tasks run from Qt's event loop.
//
// When the application's loop ends for good, what still waits is destroyed unrun, and so is what
// comes later: services are being taken down then.
//
// Thread:  made and destroyed on the main thread, after the application object and before it.
// Owner:   the program; every submitter is gone before it.
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
