// The program's icon, for its windows and alerts.
//
// The installation contains the same drawings for the desktop. The copies here also work without an
// installation.
//
// Thread:  the main thread, during the life of the QApplication.
// Errors:  none.
#pragma once

#include <QIcon>

namespace glidemap {

QIcon applicationIcon();

} // namespace glidemap
