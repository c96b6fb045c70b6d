#include "input/touch_frame.h"

#include <algorithm>
#include <iterator>

namespace glidemap {

std::vector<TouchPoint> TouchFrame::touching() const {
    std::vector<TouchPoint> result;
    std::ranges::copy_if(touches, std::back_inserter(result), &TouchPoint::isTouching);
    return result;
}

} // namespace glidemap
