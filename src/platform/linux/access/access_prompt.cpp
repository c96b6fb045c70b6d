#include "platform/linux/access/access_prompt.h"

#include "platform/linux/access/grant_prompt.h"

#include <utility>

namespace glidemap {

AccessPrompt::AccessPrompt(std::shared_ptr<MainQueue> queue, std::vector<std::string> askingCommand)
    : mainQueue(std::move(queue)), command(std::move(askingCommand)),
      life(std::make_shared<AccessPrompt*>(this)) {}

void AccessPrompt::ask() {
    if (std::exchange(isAsking, true)) {
        return;
    }
    mainQueue->submit([weak = std::weak_ptr(life)] {
        if (const auto alive = weak.lock()) {
            (*alive)->start();
        }
    });
}

void AccessPrompt::start() {
    isAsking = startGrantPrompt(command, [queue = mainQueue, weak = std::weak_ptr(life)] {
        queue->submit([weak] {
            if (const auto alive = weak.lock()) {
                (*alive)->answered();
            }
        });
    });
}

void AccessPrompt::answered() {
    isAsking = false;
    if (onAnswer) {
        onAnswer();
    }
}

} // namespace glidemap
