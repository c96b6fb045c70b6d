#!/usr/bin/env python3
"""Calculates expected_frames.txt: the frames of each gesture's demonstration at chosen times.

    expected_frames.py > expected_frames.txt
    expected_frames.py --verify expected_frames.txt

The script is independent of the program: it follows the description of each motion, calculates times,
curves and straight paths in exact fractions, and has its own table of the fingers' positions. The times
lie below, at and above each limit of a motion. No time lies exactly at a limit where a count jumps or an
item appears, because rounding could decide there.
"""
import math
import sys
from fractions import Fraction as F


def s(x):
    x = max(F(0), min(F(1), x))
    return 3 * x**2 - 2 * x**3


def fades(t, begin, end, fade):
    begin, end, fade = F(begin), F(end), F(fade)
    if t < begin or t > end:
        return F(0)
    return min(s((t - begin) / fade), s((end - t) / fade), F(1))


# Positions of the fingers of a hand: the offset from its middle in spacings, and the offset downwards.
HANDS = {
    2: [("-0.5", "-0.0055"), ("0.5", "-0.0055")],
    3: [("-1", "0.008"), ("0", "-0.01"), ("1", "0.008")],
    4: [("-1.5", "0.0305"), ("-0.5", "-0.0055"), ("0.5", "-0.0055"), ("1.5", "0.0305")],
    5: [("-2", "0.062"), ("-1", "0.008"), ("0", "-0.01"), ("1", "0.008"), ("2", "0.062")],
}
MIDDLE_FINGER = {2: 1, 3: 1, 4: 2, 5: 2}


def hand(count, x, y, spacing):
    return [(x + F(spacing) * F(along), y + F(hangs)) for along, hangs in HANDS[count]]


def circle(turn):
    def at(t):
        e = s((t - F("0.25")) / F("1.8"))

        def on_it(share):  # `share` of the whole circle, starting at the top
            angle = turn * 2 * math.pi * float(share)
            return (0.5 + 0.216 * math.sin(angle), 0.5 - 0.3 * math.cos(angle))

        pieces = max(math.floor(60 * e), 2)
        finger = (*on_it(e), fades(t, "0.15", "2.25", "0.18"), 1)
        return [finger], [on_it(e * j / pieces) for j in range(pieces + 1)], None

    return at


def swipe(count, dx, dy):
    def at(t):
        e = s(t - F("0.5"))
        shift = F("0.34") * e
        start = (F("0.5") - dx * F("0.17"), F("0.5") - dy * F("0.17"))
        spacing = "0.11" if dy == 0 else "0.16"
        places = hand(count, start[0] + dx * shift, start[1] + dy * shift, spacing)
        opacity = fades(t, "0.35", "1.8", "0.18")
        trail = []
        if e > F("0.02"):
            x, y = places[MIDDLE_FINGER[count]]
            trail = [(x - dx * shift, y - dy * shift), (x, y)]
        return [(x, y, opacity, 1) for x, y in places], trail, None

    return at


def taps(count, windows):
    def at(t):
        p = max(fades(t, begin, end, "0.1") for begin, end in windows)
        places = hand(count, F("0.5"), F("0.5"), "0.16")
        return [(x, y, p, 1 + F("0.25") * (1 - p)) for x, y in places], [], None

    return at


def fix_and_tap(x, y):
    def at(t):
        q = fades(t, "1.0", "1.5", "0.12")
        fixed = (F("0.5"), F("0.52"), fades(t, "0.2", "2.4", "0.18"), 1)
        return [fixed, (F(x), F(y), q, 1 + F("0.3") * (1 - q))], [], None

    return at


def click(count):
    def at(t):
        opacity = fades(t, "0.4", "2.2", "0.18")
        scale = 1 - F("0.28") * fades(t, "1.0", "1.5", "0.12")
        r = (t - F("1.05")) / F("0.7")
        ring = (F("0.5"), F("0.5"), F("0.14") + F("0.24") * r, F("0.8") * (1 - r))
        places = hand(count, F("0.5"), F("0.5"), "0.16")
        return [(x, y, opacity, scale) for x, y in places], [], ring if 0 < r < 1 else None

    return at


def long_press(count):
    def at(t):
        opacity = fades(t, "0.4", "2.2", "0.15")
        e = s((t - F("0.6")) / F("1.3"))
        ring = (F("0.5"), F("0.5"), 0.22 + 0.02 * math.sin(6 * float(t)), F("0.7") * e)
        places = hand(count, F("0.5"), F("0.5"), "0.16")
        shown = e > 0 and opacity > 0
        return [(x, y, opacity, 1) for x, y in places], [], ring if shown else None

    return at


def edge_swipe(x, y, dx, dy):
    def at(t):
        e = s((t - F("0.55")) / F("0.9"))
        start = (F(x), F(y))
        finger = (start[0] + e * F(dx), start[1] + e * F(dy))
        trail = [start, finger] if e > F("0.02") else []
        return [(*finger, fades(t, "0.4", "1.75", "0.18"), 1)], trail, None

    return at


def corner_tap(x, y):
    def at(t):
        q = fades(t, "0.9", "1.5", "0.12")
        return [(F(x), F(y), q, 1 + F("0.3") * (1 - q))], [], None

    return at


def pinch(begin, end):
    def at(t):
        d = F(begin) + (F(end) - F(begin)) * s((t - F("0.5")) / F("1.1"))
        opacity = fades(t, "0.35", "1.95", "0.18")
        half = F("0.5")
        return [(half - d, half + F("0.4") * d, opacity, 1),
                (half + d, half - F("0.4") * d, opacity, 1)], [], None

    return at


def rotate(turn):
    def at(t):
        opacity = fades(t, "0.35", "2.0", "0.18")
        degrees = turn * 100 * float(s((t - F("0.5")) / F("1.2")))

        def finger(offset):
            angle = math.radians(degrees + offset)
            return (0.5 + 0.242 * math.cos(angle), 0.5 + 0.22 * math.sin(angle), opacity, 1)

        return [finger(-30), finger(150)], [], None

    return at


SINGLE = [("0.9", "1.5")]
DOUBLE = [("0.7", "1.05"), ("1.3", "1.65")]

GESTURES = {
    "drawCircle": circle(1),
    "drawCircleClockwise": circle(1),
    "drawCircleCounterclockwise": circle(-1),
    "fixAndTapRight": fix_and_tap("0.76", "0.52"),
    "fixAndTapLeft": fix_and_tap("0.24", "0.52"),
    "fixAndTapAbove": fix_and_tap("0.5", "0.26"),
    "fixAndTapBelow": fix_and_tap("0.5", "0.78"),
    "twoFingerTap": taps(2, SINGLE),
    "threeFingerTap": taps(3, SINGLE),
    "fourFingerTap": taps(4, SINGLE),
    "fiveFingerTap": taps(5, SINGLE),
    "twoFingerDoubleTap": taps(2, DOUBLE),
    "threeFingerDoubleTap": taps(3, DOUBLE),
    "fourFingerDoubleTap": taps(4, DOUBLE),
    "twoFingerClick": click(2),
    "threeFingerClick": click(3),
    "fourFingerClick": click(4),
    "twoFingerSwipeLeft": swipe(2, -1, 0),
    "twoFingerSwipeRight": swipe(2, 1, 0),
    "twoFingerSwipeUp": swipe(2, 0, -1),
    "twoFingerSwipeDown": swipe(2, 0, 1),
    "threeFingerSwipeLeft": swipe(3, -1, 0),
    "threeFingerSwipeRight": swipe(3, 1, 0),
    "threeFingerSwipeUp": swipe(3, 0, -1),
    "threeFingerSwipeDown": swipe(3, 0, 1),
    "fourFingerSwipeLeft": swipe(4, -1, 0),
    "fourFingerSwipeRight": swipe(4, 1, 0),
    "fourFingerSwipeUp": swipe(4, 0, -1),
    "fourFingerSwipeDown": swipe(4, 0, 1),
    "fiveFingerSwipeLeft": swipe(5, -1, 0),
    "fiveFingerSwipeRight": swipe(5, 1, 0),
    "fiveFingerSwipeUp": swipe(5, 0, -1),
    "fiveFingerSwipeDown": swipe(5, 0, 1),
    "edgeSwipeFromLeft": edge_swipe("0.06", "0.5", "0.4", "0"),
    "edgeSwipeFromRight": edge_swipe("0.94", "0.5", "-0.4", "0"),
    "edgeSwipeFromTop": edge_swipe("0.5", "0.09", "0", "0.4"),
    "edgeSwipeFromBottom": edge_swipe("0.5", "0.91", "0", "-0.4"),
    "cornerTapTopLeft": corner_tap("0.12", "0.17"),
    "cornerTapTopRight": corner_tap("0.88", "0.17"),
    "cornerTapBottomLeft": corner_tap("0.12", "0.83"),
    "cornerTapBottomRight": corner_tap("0.88", "0.83"),
    "pinchIn": pinch("0.3", "0.1"),
    "pinchOut": pinch("0.1", "0.3"),
    "rotateClockwise": rotate(1),
    "rotateCounterclockwise": rotate(-1),
    "twoFingerLongPress": long_press(2),
    "threeFingerLongPress": long_press(3),
    "fourFingerLongPress": long_press(4),
}

# s(x) is 0.02 at x = 0.0838…: a swipe's trail begins at 0.5838…, an edge swipe's at 0.6254….
MOMENTS = {
    "Circle": "0.15 0.16 0.249 0.25 0.26 0.33 0.45 0.5 0.81 1.2 1.73 2.04 2.06 2.07 2.17 2.249 2.25",
    "fixAnd": "0.2 0.29 0.38 0.99 1 1.01 1.06 1.12 1.25 1.38 1.44 1.499 1.5 1.51 2.22 2.31 2.4 2.41",
    "DoubleTap": "0.69 0.7 0.71 0.75 0.8 0.875 0.95 1 1.049 1.05 1.06 1.2 1.3 1.31 1.35 1.4 1.55 1.6"
                 " 1.649 1.65 1.66",
    "corner": "0.89 0.9 0.91 0.96 1.02 1.2 1.38 1.44 1.49 1.5 1.51",
    "FingerTap": "0.89 0.9 0.91 0.925 0.95 1 1.2 1.4 1.45 1.49 1.5 1.51",
    "Click": "0.39 0.4 0.41 0.49 0.58 0.99 1 1.01 1.049 1.051 1.06 1.12 1.3 1.38 1.44 1.5 1.51 1.7"
             " 1.749 1.751 2.02 2.11 2.2 2.21",
    "edge": "0.39 0.4 0.41 0.49 0.55 0.56 0.58 0.625 0.626 0.775 1 1.225 1.44 1.45 1.46 1.57 1.66"
            " 1.749 1.75 1.76",
    "Swipe": "0.35 0.36 0.44 0.5 0.53 0.583 0.584 0.75 1 1.25 1.49 1.5 1.62 1.71 1.799 1.8 1.81",
    "pinch": "0.34 0.35 0.36 0.44 0.5 0.51 0.775 1.05 1.325 1.59 1.6 1.61 1.77 1.86 1.949 1.95 1.96",
    "rotate": "0.34 0.35 0.36 0.44 0.5 0.51 0.8 1.1 1.4 1.69 1.7 1.71 1.82 1.91 1.999 2 2.01",
    "LongPress": "0.39 0.4 0.41 0.475 0.55 0.6 0.61 0.925 1.25 1.575 1.89 1.9 1.91 2.05 2.125 2.199"
                 " 2.2 2.21",
}


def moments_of(gesture):
    family = next(part for part in MOMENTS if part in gesture)
    return ["0", *MOMENTS[family].split(), "2.5", "2.59999"]


def plain(value):
    text = f"{float(value):.12f}".rstrip("0").rstrip(".")
    return "0" if text == "-0" else text


def line(kind, values):
    return "  " + " ".join([kind, *map(plain, values)])


def lines():
    for gesture, at in GESTURES.items():
        for moment in moments_of(gesture):
            fingers, trail, ring = at(F(moment))
            yield f"{gesture} {moment}"
            for finger in fingers:
                yield line("finger", finger)
            if trail:
                yield line("trail", [value for point in trail for value in point])
            if ring:
                yield line("ring", ring)


text = "\n".join(lines()) + "\n"
if sys.argv[1:2] == ["--verify"]:
    with open(sys.argv[2], encoding="utf-8") as file:
        sys.exit(0 if file.read() == text else f"{sys.argv[2]} differs from the output of this script")
sys.stdout.write(text)
