// A message bus of the test's own: nobody is on it but whom the test puts there.
//
// Owner:   a test; destroying it ends the bus.
// Errors:  a bus that does not start is a failure of the test.
#pragma once

#include "kit/temporary_folder.h"

#include <sys/types.h>

#include <string>

namespace glidemap::test {

class PrivateBus {
public:
    PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus();

    const std::string& address() const { return _address; }

    // From now on, the bus starts the command for whoever asks for the name.
    void makeStartable(const std::string& name, const std::string& command) const;

private:
    TemporaryFolder folder;
    pid_t process = -1;
    std::string _address;
};

} // namespace glidemap::test
