// Waits for the value that a callback on another thread passes on, and counts the calls.
//
// Thread:  receive() on any thread, the rest on the test's.
// Owner:   a test; it outlives the callbacks.
// Errors:  a value that does not arrive in time fails the test.
#pragma once

#include "kit/patience.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <vector>

namespace glidemap {

template <typename Token>
class ReceivedToken {
public:
    void receive(const Token& token) {
        const std::lock_guard lock(mutex);
        received.push_back(token);
        arrived.notify_one();
    }

    // Waits for a value and returns it. Fails the test if several values have been received.
    Token value() {
        std::unique_lock lock(mutex);
        if (!arrived.wait_for(lock, test::patience, [this] { return !received.empty(); })) {
            ADD_FAILURE() << "no token has been received";
            return {};
        }
        EXPECT_EQ(received.size(), 1U);
        return received.front();
    }

    bool isEmpty() {
        const std::lock_guard lock(mutex);
        return received.empty();
    }

private:
    std::mutex mutex;
    std::condition_variable arrived;
    std::vector<Token> received;
};

} // namespace glidemap
