#include "desktops/launch_reports.h"

#include "desktops/program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <utility>

namespace glidemap {

LaunchReports::LaunchReports(std::filesystem::path pipe) : path(std::move(pipe)) {
    EXPECT_EQ(mkfifo(path.c_str(), 0600), 0) << path;
    // The pipe is also open for writing, so that reading never reaches the end.
    descriptor = open(path.c_str(), O_RDWR | O_CLOEXEC);
    EXPECT_GE(descriptor, 0) << path;
}

LaunchReports::~LaunchReports() {
    close(descriptor);
    std::filesystem::remove(path);
}

std::string LaunchReports::nextLine() {
    const int patience = static_cast<int>(
        std::chrono::duration_cast<std::chrono::milliseconds>(test::patience).count());
    for (;;) {
        if (const std::size_t end = read.find('\n'); end != std::string::npos) {
            const std::string line = read.substr(0, end);
            read.erase(0, end + 1);
            return line;
        }
        pollfd source{descriptor, POLLIN, 0};
        if (poll(&source, 1, patience) != 1) {
            ADD_FAILURE() << "no script has reported";
            return "";
        }
        std::array<char, 4096> buffer{};
        const ssize_t size = ::read(descriptor, buffer.data(), buffer.size());
        read.append(buffer.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
    }
}

} // namespace glidemap
