// The alert with the result of a check for updates that the user requested.
//
// Thread:  the main thread.
// Errors:  none. The cause of a failed check is not shown: every failure has the same text.
#pragma once

#include "app/alert.h"
#include "app/update_checker.h"
#include "core/lang.h"

#include <optional>
#include <string>

namespace glidemap {

AlertText updateOutcome(const UpdateResult& result,
                        const std::optional<std::string>& currentVersion, const Lang& lang);

// Whether the first button opens the download.
bool offersDownload(const UpdateResult& result);

} // namespace glidemap
