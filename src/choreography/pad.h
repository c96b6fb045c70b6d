// A simulated touchpad. Samples the fingers at its own rate and reports them with the jitter of
// fingertips and electronics. In this timeline, each number is the state of the contact in one
// report (MTTouchState):
//
//   finger    . . . . . ┌───── down ─────┐. . . . .
//   reports   2   2   2   3   4   4   4   2   2   7        a pad that reports hovering fingers
//                         3   4   4   4   7                a pad that does not
//
// Units:   seconds; the first report is at 0.
#pragma once

#include "choreography/chance.h"
#include "choreography/finger.h"
#include "choreography/timed_report.h"

namespace glidemap {

Performance report(const Fingers& fingers, Chance& chance);

} // namespace glidemap
