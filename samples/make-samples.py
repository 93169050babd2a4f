#!/usr/bin/env python3
"""Makes the sample sets beside this script, or in the folder given as the only argument.

The same files come out every time: the only chance is random.random() from a fixed seed, which Python keeps
stable between versions, and every coordinate is rounded to tenths, far coarser than what two mathematics
libraries could disagree about.
"""

import math
import pathlib
import random
import sys

STRIP_WIDTH = 400


class Chance:
    """Random numbers that depend on the seed alone."""

    def __init__(self, seed):
        self._random = random.Random(seed)

    def between(self, low, high):
        return low + (high - low) * self._random.random()

    def whole(self, low, high):
        """A whole number, both ends included."""
        return low + int(self._random.random() * (high - low + 1))


# --- files ---------------------------------------------------------------------------------------------------


def number(tenths):
    """Tenths of a unit as a short decimal."""
    whole, part = divmod(abs(tenths), 10)
    return ("-" if tenths < 0 else "") + f"{whole}" + (f".{part}" if part else "")


def in_tenths(outline):
    return [(round(x * 10), round(y * 10)) for x, y in outline]


def without_repeats(points):
    """Rounding may put neighbours on the same spot."""
    return [point for i, point in enumerate(points) if point != points[i - 1]]


def doubled_area(points):
    return sum(a[0] * b[1] - b[0] * a[1] for a, b in zip(points, points[1:] + points[:1]))


def polygon_file(outline):
    """The text of a polygon file: the outline where it is, and its box, upper-right corner first."""
    points = without_repeats(in_tenths(outline))
    if doubled_area(points) <= 0:
        raise ValueError("an outline is not counter-clockwise")
    lines = [str(len(points))]
    lines += [f"{number(x)},{number(y)}" for x, y in points]
    for corner, sign in ((max, ";"), (min, "")):
        x, y = corner(x for x, _ in points), corner(y for _, y in points)
        lines.append(f"{sign}{number(x)},{number(y)}")
    return "\n".join(lines) + "\n"


def at_origin(outline):
    """The outline moved so that its box begins at 0,0."""
    left = min(x for x, _ in outline)
    bottom = min(y for _, y in outline)
    return [(x - left, y - bottom) for x, y in outline]


def on_middle(outline):
    """The outline moved so that its box stands on 0,0 with the middle of its lower side."""
    outline = at_origin(outline)
    middle = max(x for x, _ in outline) / 2
    return [(x - middle, y) for x, y in outline]


def write_set(folder, pieces):
    """Writes (name, outline) pieces, numbered so that the files sort in this order."""
    folder.mkdir(parents=True, exist_ok=True)
    for old in folder.glob("*.pol"):
        old.unlink()
    digits = len(str(len(pieces)))
    names = []
    for i, (name, outline) in enumerate(pieces, start=1):
        names.append(f"{i:0{digits}}-{name}.pol")
        (folder / names[-1]).write_text(polygon_file(outline), encoding="ascii", newline="\n")
    return names


# --- outlines, all counter-clockwise ---------------------------------------------------------------------------


def rectangle(width, height):
    return [(0, 0), (width, 0), (width, height), (0, height)]


def turned(outline, degrees):
    c, s = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    return [(c * x - s * y, s * x + c * y) for x, y in outline]


def rounded_blob(chance, corners, width, height):
    """A convex outline: points of an ellipse, one in each of as many equal sectors."""
    turn = chance.between(0, 2 * math.pi)
    angles = [turn + (i + chance.between(0.2, 0.8)) * 2 * math.pi / corners for i in range(corners)]
    return [(width / 2 * math.cos(angle), height / 2 * math.sin(angle)) for angle in angles]


def letter_l(width, height, arm):
    return [(0, 0), (width, 0), (width, arm), (arm, arm), (arm, height), (0, height)]


def letter_t(width, height, arm):
    left, right = (width - arm) / 2, (width + arm) / 2
    bar = height - arm
    return [(left, 0), (right, 0), (right, bar), (width, bar), (width, height), (0, height), (0, bar), (left, bar)]


def letter_u(width, height, arm):
    inner = width - arm
    return [(0, 0), (width, 0), (width, height), (inner, height), (inner, arm), (arm, arm), (arm, height), (0, height)]


def letter_z(width, height, arm):
    """A bar at the bottom right, one at the top left, joined by an upright in the middle."""
    left, right = (width - arm) / 2, (width + arm) / 2
    return [(left, 0), (width, 0), (width, arm), (right, arm), (right, height), (0, height), (0, height - arm), (left, height - arm)]


def star(points, radius, depth, turn=0.0):
    outline = []
    for i in range(2 * points):
        reach = radius if i % 2 == 0 else radius * depth
        angle = math.radians(90 + turn) + i * math.pi / points
        outline.append((reach * math.cos(angle), reach * math.sin(angle)))
    return outline


def gear(teeth, radius, depth):
    """Each tooth: up, along, down, along, the flanks a little slanted."""
    outline = []
    for i in range(teeth):
        for reach, part in ((depth, 0.0), (1.0, 0.12), (1.0, 0.44), (depth, 0.56)):
            angle = (i + part) * 2 * math.pi / teeth
            outline.append((radius * reach * math.cos(angle), radius * reach * math.sin(angle)))
    return outline


# --- sets ------------------------------------------------------------------------------------------------------


def squares():
    return [(f"square-{side}", rectangle(side, side)) for side in (90, 75, 60, 45, 30)]


RECTANGLES_HEIGHT = 240
RECTANGLES_COLUMNS = 10
RECTANGLES_HALVED = 8


def cut_in_two(chance, length):
    """Somewhere in the middle two fifths."""
    part = chance.whole(-(-length * 3 // 10), length * 7 // 10)
    return [part, length - part]


def rectangles():
    """A sheet cut from top to bottom into columns, the widest left each time, and most columns across.

    The columns are tall and stand on the middle of their lower side: the fewer first offsets the strip's walls
    clamp, and the more evenly, the fewer first packings have two rectangles flush with the same wall, where
    the second one cannot be dropped past the first.
    """
    chance = Chance(20)
    widths = [STRIP_WIDTH]
    while len(widths) < RECTANGLES_COLUMNS:
        widths.sort()
        widths += cut_in_two(chance, widths.pop())
    pieces = []
    for column, width in enumerate(sorted(widths)):
        halved = column < RECTANGLES_HALVED
        heights = cut_in_two(chance, RECTANGLES_HEIGHT) if halved else [RECTANGLES_HEIGHT]
        pieces += [(f"rectangle-{width}x{height}", on_middle(rectangle(width, height))) for height in heights]
    return pieces


def convex():
    chance = Chance(30)
    corner_counts = (3, 4, 5, 6, 7, 8, 10, 12) * 3
    return [
        (f"convex-{corners}", at_origin(rounded_blob(chance, corners, chance.between(50, 110), chance.between(45, 90))))
        for corners in corner_counts
    ]


def concave():
    """Few letters stand upright: see rectangles()."""
    pieces = [
        ("letter-l", letter_l(60, 80, 20)),
        ("letter-l", turned(letter_l(60, 80, 20), 200)),
        ("letter-l", turned(letter_l(50, 70, 18), 75)),
        ("letter-l", turned(letter_l(70, 70, 24), 37)),
        ("letter-t", letter_t(80, 60, 20)),
        ("letter-t", turned(letter_t(80, 60, 20), 160)),
        ("letter-t", turned(letter_t(70, 70, 22), 24)),
        ("letter-u", turned(letter_u(80, 60, 20), 8)),
        ("letter-u", turned(letter_u(80, 60, 20), 190)),
        ("letter-u", turned(letter_u(70, 50, 16), 65)),
        ("letter-z", letter_z(70, 80, 20)),
        ("letter-z", turned(letter_z(70, 80, 20), 100)),
        ("letter-z", turned(letter_z(60, 60, 18), 15)),
        ("star-5", star(5, 45, 0.42)),
        ("star-5", star(5, 40, 0.42, 36)),
        ("star-6", star(6, 38, 0.55, 11)),
        ("star-4", star(4, 40, 0.38, 20)),
        ("gear-8", gear(8, 36, 0.72)),
        ("gear-10", gear(10, 42, 0.76)),
        ("gear-12", gear(12, 46, 0.8)),
    ]
    return [(name, at_origin(outline)) for name, outline in pieces]


def large():
    chance = Chance(60)

    def askew(outline):
        return turned(outline, 90 * chance.whole(0, 3) + chance.between(5, 85))

    pieces = []
    for _ in range(15):
        pieces += [
            ("rectangle", askew(rectangle(chance.whole(20, 60), chance.whole(20, 60)))),
            ("triangle", rounded_blob(chance, 3, chance.between(40, 70), chance.between(40, 70))),
            ("convex", rounded_blob(chance, 7, chance.between(35, 65), chance.between(30, 60))),
            ("convex", rounded_blob(chance, 11, chance.between(35, 65), chance.between(30, 60))),
            ("letter-l", askew(letter_l(chance.whole(35, 55), chance.whole(40, 60), 14))),
            ("letter-u", askew(letter_u(chance.whole(40, 55), chance.whole(35, 50), 12))),
            ("star", star(5, chance.between(22, 34), 0.45, chance.between(0, 72))),
            ("gear", gear(9, chance.between(20, 32), 0.74)),
        ]
    return [(name, at_origin(outline)) for name, outline in pieces]


# --- the puzzle --------------------------------------------------------------------------------------------------

PUZZLE_HEIGHT = 300
PUZZLE_ROWS = 4
PUZZLE_COLUMNS = 4
PUZZLE_ROW = PUZZLE_HEIGHT / PUZZLE_ROWS
PUZZLE_PITCH = STRIP_WIDTH / PUZZLE_COLUMNS

# Half a tab: distance from its middle, part of its height.
TAB = ((20, 0), (15, 0.4), (9, 0.9), (0, 1))


def joint(chance, level):
    """The cut below one row, from wall to wall, with a tab or a slot in each column. A function of x, so that
    one row can be dropped onto the other."""
    base = level * PUZZLE_ROW
    cut = [(0, base)]
    if 0 < level < PUZZLE_ROWS:
        for column in range(PUZZLE_COLUMNS):
            middle = (column + chance.between(0.42, 0.58)) * PUZZLE_PITCH
            height = chance.between(13, 18) * (1 if chance.between(0, 1) < 0.5 else -1)
            rising = [(middle - away, base + part * height) for away, part in TAB]
            falling = [(middle + away, base + part * height) for away, part in TAB[-2::-1]]
            cut += rising + falling
    return cut + [(STRIP_WIDTH, base)]


def crossings(chance, level):
    """Where the sheet's sides and the cuts between columns meet a joint, leaning one way and the other by turns.

    The sides lean too, by a unit: a piece whose upright side is in line with the corner of another cannot be
    dropped past it, and the sheet could not be put together again.
    """
    inset = level % 2
    xs = [column * PUZZLE_PITCH + 9 * (-1) ** (level + column) + chance.between(-3, 3)
          for column in range(1, PUZZLE_COLUMNS)]
    return [inset] + xs + [STRIP_WIDTH - inset]


def stretch(cut, left, right):
    """The part of a joint between two x on its level parts."""
    base = cut[0][1]
    return [(left, base)] + [point for point in cut if left < point[0] < right] + [(right, base)]


def puzzle():
    """Outlines where they lie in the sheet, in an order in which they can be dropped: row by row, and first
    those that are narrow at the top, which their neighbours lean over."""
    chance = Chance(50)
    joints = [joint(chance, level) for level in range(PUZZLE_ROWS + 1)]
    crossed = [crossings(chance, level) for level in range(PUZZLE_ROWS + 1)]
    pieces = []
    for row in range(PUZZLE_ROWS):
        narrow, wide = [], []
        for column in range(PUZZLE_COLUMNS):
            low, high = crossed[row][column : column + 2], crossed[row + 1][column : column + 2]
            outline = stretch(joints[row], *low) + stretch(joints[row + 1], *high)[::-1]
            leaning = narrow if high[1] - high[0] < low[1] - low[0] else wide
            leaning.append([(round(x, 1), round(y, 1)) for x, y in outline])
        pieces += narrow + wide
    return pieces


def write_puzzle(folder):
    """The pieces, and how they lay in the sheet: files in drop order, each with the x of its box's left side."""
    pieces = puzzle()
    names = write_set(folder, [("piece", at_origin(outline)) for outline in pieces])
    lefts = [number(round(10 * min(x for x, _ in outline))) for outline in pieces]
    lines = [f"{name} {left}\n" for name, left in zip(names, lefts)]
    (folder / "as-cut.txt").write_text("".join(lines), encoding="ascii", newline="\n")


def main():
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else pathlib.Path(__file__).resolve().parent
    for make in (squares, rectangles, convex, concave, large):
        write_set(folder / make.__name__, make())
    write_puzzle(folder / "puzzle")


if __name__ == "__main__":
    main()
