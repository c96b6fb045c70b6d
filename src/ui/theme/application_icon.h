// The icon of the program, for its windows and alerts.
//
// The same drawings are installed for the desktop; these are at hand where it is not installed.
//
// Thread:  the main thread, while there is a QApplication.
// Errors:  none.
#pragma once

#include <QIcon>

namespace glidemap {

QIcon applicationIcon();

} // namespace glidemap
