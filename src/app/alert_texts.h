// The texts of the application's alerts, except those of a binding.
//
// Thread:  the main thread.
// Errors:  none. The cause of a failed check for updates is not shown: every failure has the same
//          text.
#pragma once

#include "app/alert.h"
#include "app/update_checker.h"
#include "core/lang.h"

#include <optional>
#include <string>

namespace glidemap {

// The next two explain why the program did not start, for users who start it by its icon and see no
// terminal. Another instance is running, and does not respond.
AlertText unansweredText(const Lang& lang);

// The lock file cannot be opened, so a running instance cannot be detected.
AlertText withoutLockText(const Lang& lang);

// For desktops without a status bar, shown once per run: how to reach the program without a status
// item.
AlertText noStatusBarText(const Lang& lang);

// The result of a check for updates that the user requested.
AlertText updateOutcome(const UpdateResult& result,
                        const std::optional<std::string>& currentVersion, const Lang& lang);

// Whether the first button of that alert opens the download.
bool offersDownload(const UpdateResult& result);

} // namespace glidemap
