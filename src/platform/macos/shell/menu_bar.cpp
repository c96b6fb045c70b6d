#include "platform/macos/shell/menu_bar.h"

#include "platform/macos/shell/status_button.h"

namespace glidemap {

void MenuBar::itemWasDrawn(Look look) {
    showSystemSymbol("hand.draw.fill", "Glidemap", look == Look::off);
}

} // namespace glidemap
