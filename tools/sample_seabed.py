#!/usr/bin/env python3
"""The sea bed and the licence blocks of the sample job: soundings on a grid, and a shape file in degrees.

    sample_seabed.py    writes both into samples/job

The figures are made up: a bed that falls to the south-west, a buried valley across it, a field of sand waves with their
steep sides to the north-east, and scour round the platforms. They come out the same on every run.
"""
import math
import pathlib
import random
import struct

JOB = pathlib.Path(__file__).resolve().parent.parent / "samples/job/c/Jobs/Northfield"
STEP = 50
WEST, EAST = 499500, 511500
SOUTH, NORTH = 5839000, 5848000
PLATFORMS = [(503150, 5843620), (509480, 5846210)]


def smooth(value, low, high):
    t = min(max((value - low) / (high - low), 0.0), 1.0)
    return t * t * (3 - 2 * t)


def valley(east, north):
    """Metres below the bed around: a channel that winds from the north-west to the south-east."""
    along = (east - 505500) * 0.80 - (north - 5843000) * 0.60
    across = (east - 505500) * 0.60 + (north - 5843000) * 0.80
    off = across - 650 * math.sin(along / 1900) + 900
    return 7.5 * math.exp(-(off / 620) ** 2) + 2.0 * math.exp(-((off - 420) / 260) ** 2)


def sand_waves(east, north):
    """Metres above the bed around: crests across the tide, gentle to the south-west and steep to the north-east."""
    along = (east - 500000) * 0.53 + (north - 5840000) * 0.85 + 160 * math.sin(east / 1300) + 90 * math.sin(north / 900)
    phase = along / 520 % 1.0
    wave = phase / 0.72 if phase < 0.72 else (1 - phase) / 0.28
    field = smooth(east, 503800, 506200) * smooth(north, 5840000, 5842300)
    small = 0.18 * math.sin(along / 21 + math.sin(east / 310))
    return field * (2.9 * (wave * wave * (3 - 2 * wave) - 0.5) + small)


def scour(east, north):
    return sum(1.9 * math.exp(-(math.hypot(east - x, north - y) / 130) ** 2) for x, y in PLATFORMS)


def depth(east, north):
    plane = 28.6 - (east - 505500) * 0.00021 - (north - 5843500) * 0.00034
    swell = 0.8 * math.sin(east / 2600 + 0.7) * math.cos(north / 2100)
    return plane + swell + valley(east, north) - sand_waves(east, north) + scour(east, north)


def is_surveyed(east, north):
    """The lines of the survey end raggedly, and one block was never run."""
    ragged = 120 * math.sin(north / 170) + 90 * math.sin(north / 61)
    inside = WEST + 260 + ragged < east < EAST - 240 - ragged
    corner = (east - WEST) + (NORTH - north) > 2300 and (EAST - east) + (north - SOUTH) > 2600
    return inside and corner and not (507900 < east < 508400 and 5840200 < north < 5840650)


def write_soundings():
    rng = random.Random(31)
    lines = []
    for north in range(SOUTH, NORTH + 1, STEP):
        for east in range(WEST, EAST + 1, STEP):
            noise = rng.gauss(0, 0.03)
            if is_surveyed(east, north):
                lines.append(f"{east} {north} {-(depth(east, north) + noise):.2f}\r\n")
    (JOB / "Seabed").mkdir(exist_ok=True)
    (JOB / "Seabed/Northfield 50m.xyz").write_bytes("".join(lines).encode())


def blocks():
    """(name, holder, ring of longitude and latitude): 6 by 4 minutes each, with their edges cut every minute."""
    for row in range(4):
        for column in range(6):
            west, south = 2 + (46 + 6 * column) / 60, 52 + (38 + 4 * row) / 60
            east, north = west + 6 / 60, south + 4 / 60
            ring = [(west, south), (west, north)]
            ring += [(west + i / 60, north) for i in range(1, 7)]
            ring += [(east, south)] + [(east - i / 60, south) for i in range(1, 7)]
            yield f"N{4 - row}/{column + 1}", "Northfield" if 1 <= row <= 2 and 1 <= column <= 3 else "open", ring


def shape_head(bytes_behind, bounds):
    return (struct.pack(">7i", 9994, 0, 0, 0, 0, 0, (100 + bytes_behind) // 2) + struct.pack("<2i", 1000, 5) +
            struct.pack("<8d", *bounds, 0, 0, 0, 0))


def write_blocks():
    shp, shx, rows = b"", b"", b""
    every = [point for _, _, ring in blocks() for point in ring]
    for number, (name, holder, ring) in enumerate(blocks(), 1):
        box = min(x for x, _ in ring), min(y for _, y in ring), max(x for x, _ in ring), max(y for _, y in ring)
        content = struct.pack("<i4d3i", 5, *box, 1, len(ring), 0) + b"".join(struct.pack("<2d", *p) for p in ring)
        shx += struct.pack(">2i", (100 + len(shp)) // 2, len(content) // 2)
        shp += struct.pack(">2i", number, len(content) // 2) + content
        rows += b" " + name.ljust(8).encode() + holder.ljust(16).encode()
    bounds = min(x for x, _ in every), min(y for _, y in every), max(x for x, _ in every), max(y for _, y in every)
    fields = b"".join(n.ljust(11, b"\0") + b"C" + bytes(4) + bytes([w, 0]) + bytes(14)
                      for n, w in ((b"NAME", 8), (b"HOLDER", 16)))
    count = sum(1 for _ in blocks())
    head = struct.pack("<4BIHH", 3, 124, 1, 1, count, 32 + len(fields) + 1, 25) + bytes(20)
    folder = JOB / "Charts"
    folder.mkdir(exist_ok=True)
    (folder / "Licence Blocks.shp").write_bytes(shape_head(len(shp), bounds) + shp)
    (folder / "Licence Blocks.shx").write_bytes(shape_head(len(shx), bounds) + shx)
    (folder / "Licence Blocks.dbf").write_bytes(head + fields + b"\r" + rows + b"\x1a")
    (folder / "Licence Blocks.prj").write_bytes(
        b'GEOGCS["GCS_WGS_1984",DATUM["D_WGS_1984",SPHEROID["WGS_1984",6378137.0,298.257223563]],'
        b'PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]]')


write_soundings()
write_blocks()
