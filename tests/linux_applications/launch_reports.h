// What launched scripts write down about themselves, line by line, through a pipe with a name.
//
// Thread:  the test's.
// Owner:   a test.
// Errors:  a script that says nothing in time is a failure of the test.
#pragma once

#include <filesystem>
#include <string>

namespace glidemap {

class LaunchReports {
public:
    // Scripts write to the pipe of that path.
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
