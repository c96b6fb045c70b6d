// A fake status bar whose kind the test sets. It records the look each time the item is drawn.
//
// Thread:  the test's main thread.
#pragma once

#include "app/status_bar.h"

#include <vector>

namespace glidemap::test {

class FakeStatusBar : public StatusBar {
public:
    Kind kind() override { return present; }
    Observable& changes() override { return observers; }
    void itemWasDrawn(Look look) override { drawn.push_back(look); }

    void become(Kind kind) {
        present = kind;
        observers.announceDidChange();
    }

    std::vector<Look> drawn;

private:
    Kind present = Kind::none;
    Observable observers;
};

} // namespace glidemap::test
