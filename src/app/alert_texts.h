// The texts of the application's alerts, except alerts about a binding.
//
// Thread:  the main thread.
// Errors:  none. The text for a failed update check does not depend on the cause.
#pragma once

#include "app/alert.h"
#include "app/update_checker.h"
#include "core/lang.h"

#include <optional>
#include <string>

namespace glidemap {

// Explains that the program did not start, because another instance is running but does not
// respond. The alert is necessary, because a user who starts the program by clicking its icon does
// not see the message on standard error.
AlertText unansweredText(const Lang& lang);

// Explains that the program did not start, because the lock file cannot be opened and a running
// instance cannot be detected.
AlertText withoutLockText(const Lang& lang);

// Explains how to reach the program on a desktop without a status bar.
AlertText noStatusBarText(const Lang& lang);

// Returns the text with the result of an update check that the user requested.
AlertText updateOutcome(const UpdateResult& result,
                        const std::optional<std::string>& currentVersion, const Lang& lang);

// Whether the first button of the alert for this result opens the download page.
bool offersDownload(const UpdateResult& result);

} // namespace glidemap
