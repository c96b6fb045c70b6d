#include "ui/demo/gesture_demo.h"

namespace glidemap::demo {

Frame frame(GestureType /*gesture*/, double /*t*/) {
    return {};
}

double env(double /*t*/, double /*from*/, double /*to*/, double /*fade*/) {
    return 0;
}

std::vector<Point> hand(int /*count*/, Point /*center*/, double /*spacing*/) {
    return {};
}

} // namespace glidemap::demo
