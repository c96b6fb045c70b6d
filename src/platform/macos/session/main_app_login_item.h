// Registers the program itself as a login item.
//
// Thread:  the main thread; the system's calls are synchronous.
// Owner:   the program.
// Errors:  see LoginItemService. A status that only newer systems report counts as not registered,
//          because the next session may not start the program.
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
