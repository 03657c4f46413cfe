#!/usr/bin/env python3
"""Makes the drawings of the sample job: the coast as a DIG file, the layout round platform NF-A as a drawing.

Usage: sample_drawings.py FOLDER   (samples/job/c/Jobs/Northfield/Drawings)
"""
import math
import random
import struct
import sys
from pathlib import Path

# ---- The coast: rough lines by the displacement of midpoints ----

LAND, BEACH, MOLE = 32, 43, 8  # places in the palette of drawings


def rough(a, b, amount, steps, rng):
    """The way from a to b, each half shifted across by a share of its length."""
    if steps == 0:
        return [a]
    dx, dy = b[0] - a[0], b[1] - a[1]
    shift = rng.uniform(-amount, amount)
    middle = (a[0] + dx / 2 - dy * shift, a[1] + dy / 2 + dx * shift)
    return rough(a, middle, amount, steps - 1, rng) + rough(middle, b, amount, steps - 1, rng)


def rough_line(points, amount, steps, rng):
    line = [p for a, b in zip(points, points[1:]) for p in rough(a, b, amount, steps, rng)]
    return line + [points[-1]]


def island(east, north, radius, rng):
    corners = [(east + radius * (1 + rng.uniform(-0.3, 0.3)) * math.sin(i * math.pi / 4),
                north + 0.6 * radius * (1 + rng.uniform(-0.3, 0.3)) * math.cos(i * math.pi / 4)) for i in range(8)]
    return rough_line(corners + corners[:1], 0.16, 4, rng)


def coast():
    rng = random.Random(8)
    shore = rough_line([(513900, 5827300), (516600, 5828500), (519500, 5828700), (523000, 5829300), (526400, 5830900),
                        (528300, 5833300), (529600, 5836600), (531000, 5839300)], 0.17, 6, rng)
    beach = [(e - 130 - 60 * math.sin(i / 17), n + 130 + 60 * math.cos(i / 23)) for i, (e, n) in enumerate(shore)][::4]
    mole = [(527050, 5831450), (526500, 5832050), (526150, 5832200), (525900, 5832130)]
    return [(LAND, shore), (BEACH, beach), (MOLE, mole), (LAND, island(524100, 5835600, 520, rng)),
            (LAND, island(525900, 5836500, 210, rng)), (BEACH, island(524250, 5835700, 900, rng))]


def write_dig(path, lines):
    records = b"".join(struct.pack("<ddh", round(e, 2), round(n, 2), (colour + 1) * (1 if i else -1))
                       for colour, line in lines for i, (e, n) in enumerate(line))
    date = (2024 - 1980) << 9 | 3 << 5 | 5
    header = struct.pack("<BBHHHQ", 1, 0, 12 << 11, date, 0, len(records))
    path.write_bytes(header + records)


# ---- The layout of NF-A, on its heading ----

EAST, NORTH, HEADING = 503150.0, 5843620.0, math.radians(35)


def at(across, along):
    """A place by its distance to starboard of the platform and ahead of it, metres."""
    return (EAST + across * math.cos(HEADING) + along * math.sin(HEADING),
            NORTH - across * math.sin(HEADING) + along * math.cos(HEADING))


class Drawing:
    def __init__(self):
        self.lines = []
        self.layer = "0"
        self.least, self.most = [1e30, 1e30], [-1e30, -1e30]

    def group(self, code, value):
        self.lines.append(f"{code:3d}\n{value:.3f}\n" if isinstance(value, float) else f"{code:3d}\n{value}\n")

    def entity(self, keyword, *points, **groups):
        self.group(0, keyword)
        self.group(8, self.layer)
        for i, point in enumerate(points):
            self.group(10 + i, point[0])
            self.group(20 + i, point[1])
            self.least = [min(a, b) for a, b in zip(self.least, point)]
            self.most = [max(a, b) for a, b in zip(self.most, point)]
        for code, value in groups.items():
            self.group(int(code[1:]), value)

    def outline(self, points, closed=True):
        self.group(0, "LWPOLYLINE")
        self.group(8, self.layer)
        self.group(90, len(points))
        self.group(70, 1 if closed else 0)
        for point in points:
            self.group(10, point[0])
            self.group(20, point[1])
            self.least = [min(a, b) for a, b in zip(self.least, point)]
            self.most = [max(a, b) for a, b in zip(self.most, point)]

    def text(self, place, height, text, turn=35.0, across=0, up=0):
        """Turned clockwise from level by degrees."""
        self.entity("TEXT", place, place, _40=height, _1=text, _50=-turn, _72=across, _73=up)


def box(across, along, width, length):
    return [at(across + i * width / 2, along + k * length / 2) for i, k in ((-1, -1), (1, -1), (1, 1), (-1, 1))]


def layout():
    d = Drawing()
    d.layer = "TOPSIDE"
    d.outline(box(0, 0, 44, 62))
    d.outline([at(*p) for p in ((-22, 18), (-22, 31), (-6, 31), (-6, 24), (6, 24), (6, 18))])
    for across in (-15, 15):
        for along in (-22, 0, 22):
            d.entity("CIRCLE", at(across, along), _40=1.6)
    d.outline([at(-22, -26), at(-58, -44), at(-56, -47), at(-22, -31)])
    d.text(at(-46, -30), 3.0, "Flare boom", 35 - 27, 1)
    d.layer = "HELIDECK"
    deck = at(0, 44)
    d.outline([at(13 * math.sin(math.radians(22.5 + 45 * i)), 44 + 13 * math.cos(math.radians(22.5 + 45 * i)))
               for i in range(8)])
    d.entity("CIRCLE", deck, _40=6.5)
    d.text(deck, 7.0, "H", 35.0, 1, 2)
    d.layer = "CRANES"
    for across, along, name in ((22, 8, "Crane east 45 m"), (-22, -8, "Crane west 45 m")):
        pedestal = at(across, along)
        d.entity("CIRCLE", pedestal, _40=2.2)
        side = 1 if across > 0 else -1
        # Anticlockwise from east in the file; the arm sweeps the half circle on its side.
        middle = 90 - 35 - side * 90
        d.entity("ARC", pedestal, _40=45.0, _50=float((middle - 90) % 360), _51=float((middle + 90) % 360))
        d.text(at(across + side * 30, along), 3.0, name, 35.0, 1)
    d.layer = "SUBSEA"
    for across, bearing, name in ((-9, 296, "DC-1 8in"), (0, 68, "Infield 12in"), (9, 178, "Oil export 24in"),
                                  (15, 246, "West tie-in")):
        start = at(across, -31)
        east, north = math.sin(math.radians(bearing)), math.cos(math.radians(bearing))
        end = (start[0] + 160 * east, start[1] + 160 * north)
        d.entity("LINE", start, end)
        for step in (40, 80, 120):
            middle = (start[0] + step * east, start[1] + step * north)
            d.entity("SOLID", *[(middle[0] + i * 6 * east - k * 3 * north, middle[1] + i * 6 * north + k * 3 * east)
                                for i, k in ((-1, -1), (1, -1), (-1, 1), (1, 1))])
        turn = bearing - 90 if 0 < bearing < 180 else bearing + 90
        d.text((start[0] + 165 * east, start[1] + 165 * north), 4.0, name, float(turn), 0 if bearing < 180 else 2, 2)
    d.layer = "JACKUP"
    for i, (across, along) in enumerate(((72, 30), (118, 0), (72, -30))):
        d.entity("CIRCLE", at(across, along), _40=9.0)
        d.entity("CIRCLE", at(across, along), _40=14.0)
        d.text(at(across, along), 3.5, f"{i + 1}", 35.0, 1, 2)
    d.text(at(87, 47), 4.0, "Jack-up footprints 2023, 4.5 m %%P0.5 m", 35.0, 1)
    d.layer = "LIMITS"
    d.entity("ELLIPSE", at(0, 0), (250 * math.sin(HEADING), 250 * math.cos(HEADING)), _40=0.72, _41=0.0,
             _42=2 * math.pi)
    d.text(at(0, 262), 6.0, "Dropped object zone", 35.0, 1)
    d.layer = "NOTES"
    d.entity("MTEXT", at(-170, 150), _40=5.0, _41=170.0, _71=1, _50=-35.0,
             _1="{\\\\fArial|b1;NF-A}\\\\PJacket 6 legs, heading 035%%D\\\\PNo anchors within 500 m without "
                "a permit of the field's operator".replace("\\\\", "\\"))
    d.layer = "SETTING OUT"
    d.entity("LINE", at(-300, 0), at(300, 0))
    d.entity("LINE", at(0, -300), at(0, 300))
    return d


LAYERS = (("TOPSIDE", 7), ("HELIDECK", 3), ("CRANES", 30), ("SUBSEA", 5), ("JACKUP", 6), ("LIMITS", 1), ("NOTES", 7),
          ("SETTING OUT", -8))


def write_dxf(path, drawing):
    def section(name, body):
        return f"  0\nSECTION\n  2\n{name}\n{body}  0\nENDSEC\n"

    def point(name, place):
        return f"  9\n{name}\n 10\n{place[0]:.3f}\n 20\n{place[1]:.3f}\n 30\n0.0\n"

    layers = "".join(f"  0\nLAYER\n  2\n{name}\n 70\n0\n 62\n{colour}\n  6\nCONTINUOUS\n" for name, colour in LAYERS)
    text = (section("HEADER", "  9\n$ACADVER\n  1\nAC1015\n" + point("$EXTMIN", drawing.least) +
                    point("$EXTMAX", drawing.most)) +
            section("TABLES", f"  0\nTABLE\n  2\nLAYER\n 70\n{len(LAYERS)}\n{layers}  0\nENDTAB\n") +
            section("ENTITIES", "".join(drawing.lines)) + "  0\nEOF\n")
    path.write_bytes(text.replace("\n", "\r\n").encode("cp1252"))


def main():
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    write_dig(folder / "East Coast.DIG", coast())
    write_dxf(folder / "NF-A Layout.dxf", layout())


main()
