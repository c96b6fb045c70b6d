// Collects the lines that launched scripts write about themselves to a named pipe.
//
// Thread:  the test's.
// Owner:   a test.
// Errors:  a script that writes nothing in time fails the test.
#pragma once

#include <filesystem>
#include <string>

namespace glidemap {

class LaunchReports {
public:
    // Creates the pipe at this path.
    explicit LaunchReports(std::filesystem::path pipe);
    LaunchReports(const LaunchReports&) = delete;
    LaunchReports& operator=(const LaunchReports&) = delete;
    ~LaunchReports();

    std::string nextLine();

private:
    std::filesystem::path path;
    int descriptor = -1;
    std::string read;
};

} // namespace glidemap
