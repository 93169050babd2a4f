#!/usr/bin/env python3
"""Makes the drawings in the folder "drawings" beside this script, or in the one given as the only argument.

The parts of a wall shelf for hooks, to be cut from 12 mm board. Two of them are DXF files of loose lines and
arcs, as drawing programs leave them; the others are SVG files. The same files come out every time.
"""

import math
import pathlib
import sys

# --- DXF ---------------------------------------------------------------------------------------------------


def number(value):
    return f"{round(value, 4):g}"


class Dxf:
    """A DXF file of release 12's entities, which every program reads, in millimetres."""

    def __init__(self):
        self._pairs = [(0, "SECTION"), (2, "HEADER"), (9, "$ACADVER"), (1, "AC1009"), (9, "$INSUNITS"),
                       (70, "4"), (0, "ENDSEC"), (0, "SECTION"), (2, "ENTITIES")]

    def _entity(self, name, layer, *pairs):
        self._pairs += [(0, name), (8, layer)]
        self._pairs += [(code, v if isinstance(v, str) else number(v)) for code, v in pairs]

    def line(self, start, end, layer="cut"):
        self._entity("LINE", layer, (10, start[0]), (20, start[1]), (11, end[0]), (21, end[1]))

    def circle(self, centre, radius):
        self._entity("CIRCLE", "cut", (10, centre[0]), (20, centre[1]), (40, radius))

    def arc(self, centre, radius, first, last):
        """Counter-clockwise, in degrees."""
        self._entity("ARC", "cut", (10, centre[0]), (20, centre[1]), (40, radius), (50, first), (51, last))

    def text(self, place, height, words):
        self._entity("TEXT", "engrave", (10, place[0]), (20, place[1]), (40, height), (1, words))

    def rounded(self, corners, radius):
        """A counter-clockwise outline with its convex corners rounded."""
        touching = [touch_points(corners, i, radius) for i in range(len(corners))]
        for i, (before, after, centre) in enumerate(touching):
            first, last = (math.degrees(math.atan2(p[1] - centre[1], p[0] - centre[0])) % 360
                           for p in (before, after))
            self.arc(centre, radius, first, last)
            self.line(after, touching[(i + 1) % len(corners)][0])

    def content(self):
        pairs = self._pairs + [(0, "ENDSEC"), (0, "EOF")]
        return "".join(f"{code:3}\n{value}\n" for code, value in pairs)


def touch_points(corners, i, radius):
    """Where a circle in a corner touches the sides before and after it, and its centre."""
    x, y = corners[i]
    before, after = (unit(x, y, *corners[j % len(corners)]) for j in (i - 1, i + 1))
    half = math.acos(before[0] * after[0] + before[1] * after[1]) / 2
    along, away = radius / math.tan(half), radius / math.sin(half)
    middle = unit(0, 0, before[0] + after[0], before[1] + after[1])
    return ((x + along * before[0], y + along * before[1]), (x + along * after[0], y + along * after[1]),
            (x + away * middle[0], y + away * middle[1]))


def unit(x, y, to_x, to_y):
    length = math.hypot(to_x - x, to_y - y)
    return (to_x - x) / length, (to_y - y) / length


def bracket():
    """A triangle with a window, and two holes for screws."""
    dxf = Dxf()
    dxf.rounded([(0, 0), (36, 0), (150, 114), (150, 150), (0, 150)], 8)
    dxf.rounded([(34, 48), (102, 116), (34, 116)], 6)
    dxf.circle((17, 20), 2.5)
    dxf.circle((17, 133), 2.5)
    return dxf.content()


def rail():
    """The board that holds the hooks: slots for their tongues, an engraved line and two words."""
    dxf = Dxf()
    dxf.rounded([(0, 0), (420, 0), (420, 70), (0, 70)], 10)
    for middle in (75, 210, 345):
        left, right = middle - 6.1, middle + 6.1
        for start, end in (((left, 20), (right, 20)), ((right, 20), (right, 50)), ((right, 50), (left, 50)),
                           ((left, 50), (left, 20))):
            dxf.line(start, end)
    dxf.line((15, 62), (405, 62), layer="engrave")
    dxf.text((118, 30), 11, "COATS")
    dxf.text((258, 30), 11, "HATS")
    return dxf.content()


# --- SVG ---------------------------------------------------------------------------------------------------

CUT = 'fill="none" stroke="#d00000" stroke-width="0.2"'
ENGRAVE = 'fill="none" stroke="#0000d0" stroke-width="0.2"'


def svg(width, height, *elements):
    """One unit is a millimetre."""
    inside = "".join(f"  {element}\n" for element in elements)
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}mm" height="{height}mm" '
            f'viewBox="0 0 {width} {height}">\n{inside}</svg>\n')


def hook():
    """A tongue at the back, and an arm that bends up."""
    return svg(95, 90, f'<path {CUT} d="M 0 22 H 12 V 8 Q 12 0 20 0 H 24 Q 32 0 32 8 V 40 '
                       'C 32 62 66 62 66 40 V 34 A 11 11 0 0 1 88 34 V 42 '
                       'C 88 98 12 98 12 60 V 52 H 0 Z"/>',
               f'<circle {CUT} cx="22" cy="12" r="2.5"/>')


def badge():
    return svg(110, 60, f'<ellipse {CUT} cx="55" cy="30" rx="55" ry="30"/>',
               f'<circle {CUT} cx="9" cy="30" r="2"/>',
               f'<circle {CUT} cx="101" cy="30" r="2"/>',
               f'<path {ENGRAVE} d="M 25 42 Q 40 36 55 42 T 85 42"/>',
               '<text x="30" y="32" font-size="14" fill="#0000d0">HOME</text>')


def washer():
    return svg(24, 24, f'<circle {CUT} cx="12" cy="12" r="12"/>',
               f'<circle {CUT} cx="12" cy="12" r="3"/>')


def main():
    beside = pathlib.Path(__file__).resolve().parent / "drawings"
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else beside
    folder.mkdir(parents=True, exist_ok=True)
    contents = {"bracket.dxf": bracket(), "rail.dxf": rail(), "hook.svg": hook(), "badge.svg": badge(),
                "washer.svg": washer()}
    for name, content in contents.items():
        (folder / name).write_text(content, encoding="ascii", newline="\n")


if __name__ == "__main__":
    main()
