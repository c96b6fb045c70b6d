// The program itself as a login item, in the system's register of them.
//
// Thread:  the main thread; the system's calls are done when they return.
// Owner:   the program makes one.
// Errors:  as the port says. A status that the system has come to know since counts as not
//          registered: nobody can say that the next session starts the program.
#pragma once

#include "app/login_item_service.h"

namespace glidemap {

class MainAppLoginItem : public LoginItemService {
public:
    Status status() const override;
    std::optional<std::string> registerItem() override;
    std::optional<std::string> unregisterItem() override;
};

} // namespace glidemap
