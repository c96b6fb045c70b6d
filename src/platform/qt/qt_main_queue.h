// Runs tasks on the main thread from Qt's event loop.
//
// When the application's loop ends for good, pending tasks are destroyed without running, and so
// are later ones: the services are being destroyed then.
//
// Thread:  created and destroyed on the main thread, within the application object's life.
// Owner:   the program; all submitters are destroyed before it.
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
