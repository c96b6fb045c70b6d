// What a check for updates that the user has asked for came to, in words.
//
// Thread:  the main thread.
// Errors:  none. Why a check failed is not for the user's eyes: every failure reads the same.
#pragma once

#include "app/alert.h"
#include "app/update_checker.h"
#include "core/lang.h"

#include <optional>
#include <string>

namespace glidemap {

AlertText updateOutcome(const UpdateResult& result,
                        const std::optional<std::string>& currentVersion, const Lang& lang);

// Whether the first button leads to the newer version.
bool offersDownload(const UpdateResult& result);

} // namespace glidemap
