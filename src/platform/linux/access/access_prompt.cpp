#include "platform/linux/access/access_prompt.h"

#include "platform/linux/access/grant_prompt.h"

#include <utility>

namespace glidemap {

AccessPrompt::AccessPrompt(std::shared_ptr<MainQueue> queue, std::vector<std::string> askingCommand)
    : mainQueue(std::move(queue)), command(std::move(askingCommand)),
      life(std::make_shared<AccessPrompt*>(this)) {}

void AccessPrompt::ask() {
    if (!std::exchange(isAsking, true) && isReady) {
        submit();
    }
}

void AccessPrompt::ready() {
    if (!std::exchange(isReady, true) && isAsking) {
        submit();
    }
}

void AccessPrompt::submit() {
    mainQueue->submit([weak = std::weak_ptr(life)] {
        if (const auto alive = weak.lock()) {
            (*alive)->start();
        }
    });
}

void AccessPrompt::start() {
    const bool hasStarted =
        startGrantPrompt(command, [queue = mainQueue, weak = std::weak_ptr(life)](int exitCode) {
            queue->submit([weak, exitCode] {
                if (const auto alive = weak.lock()) {
                    (*alive)->answered(exitCode);
                }
            });
        });
    if (!hasStarted) {
        answered(notAsked);
    }
}

void AccessPrompt::answered(int exitCode) {
    isAsking = false;
    failed = exitCode == notAsked;
    if (onAnswer) {
        onAnswer();
    }
}

} // namespace glidemap
