#include "accessory_double.h"
#include "platform/macos/session/user_activity.h"

namespace glidemap {

struct UserActivity::Token {};

UserActivity::UserActivity(const char* reason) {
    test::asked().push_back(std::string("begin: ") + reason);
}

UserActivity::~UserActivity() {
    test::asked().push_back("end");
}

} // namespace glidemap
