// Presents the program to macOS: an accessory whose window comes to the front when the user opens
// it.
//
// Thread:  the main thread, while the application object exists.
// Owner:   the program.
// Errors:  none; see the port.
#pragma once

#include "app/application_shell.h"

namespace glidemap {

class MacosApplicationShell : public ApplicationShell {
public:
    void becomeAccessory() override;
    void activate(QWidget& window) override;
    void terminate() override;
};

} // namespace glidemap
