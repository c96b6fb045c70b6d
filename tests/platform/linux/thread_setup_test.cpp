#include "platform/linux/thread_setup.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <array>
#include <string>
#include <thread>

namespace glidemap {
namespace {

std::string nameAfterSetUp(std::string_view name) {
    std::array<char, 16> read{};
    std::thread([&] {
        setUpResponsiveThread(name);
        pthread_getname_np(pthread_self(), read.data(), read.size());
    }).join();
    return read.data();
}

TEST(ThreadSetup, SetsTheThreadName) {
    EXPECT_EQ(nameAfterSetUp("touch"), "touch");
}

TEST(ThreadSetup, KeepsTheEndOfALongName) {
    EXPECT_EQ(nameAfterSetUp("com.corvane.glidemap.touch"), ".glidemap.touch");
    EXPECT_EQ(nameAfterSetUp("0123456789abcdef"), "123456789abcdef");
}

} // namespace
} // namespace glidemap
