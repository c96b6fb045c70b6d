// The program on a Mac's desktop: an accessory, whose window comes before those of all others when
// the user asks for it.
//
// Thread:  the main thread, within the application object's life.
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
