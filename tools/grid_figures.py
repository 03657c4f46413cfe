#!/usr/bin/env python3
"""Grid positions of tests/data/geodesy/grids.txt.

    grid_figures.py check           makes every position again with PROJ's cct and says which differ
    grid_figures.py table QUILLON   prints docs/grid-catalogue.md with the residuals of the program at that path
"""
import json
import math
import pathlib
import subprocess
import sys

FIGURES = pathlib.Path(__file__).resolve().parent.parent / "tests/data/geodesy/grids.txt"


def read_blocks():
    blocks = []
    for line in FIGURES.read_text().splitlines():
        key, _, rest = line.partition(" ")
        if key == "row":
            blocks.append({"row": tuple(map(int, rest.split())), "positions": []})
        elif key in ("source", "operation", "tolerance", "differs"):
            blocks[-1][key] = rest
        elif line and key != "#":
            blocks[-1]["positions"].append(tuple(map(float, line.split())))
    return blocks


def run(command, lines):
    result = subprocess.run(command, input="\n".join(lines) + "\n", capture_output=True, text=True, check=True)
    return [tuple(map(float, line.split()[:2])) for line in result.stdout.strip().split("\n")]


def misses(block, results):
    return [math.hypot(x - p[2], y - p[3]) for p, (x, y) in zip(block["positions"], results, strict=True)]


def check():
    bad = 0
    for block in read_blocks():
        lines = [f"{lon} {lat} 0 0" for lat, lon, _, _ in block["positions"]]
        worst = max(misses(block, run(["cct", "-d", "5", *block["operation"].split()], lines)))
        if worst > 2e-5:
            bad += 1
            print(f"row {block['row']}: {worst:.5f} m")
    print(f"{bad} of {len(read_blocks())} blocks differ")
    return 1 if bad else 0


def residual(quillon, block):
    kind, zone, subtype = map(str, block["row"])
    lines = [f"{lat} {lon}" for lat, lon, _, _ in block["positions"]]
    command = [quillon, "grid", "forward", "--type", kind, "--zone", zone, "--subtype", subtype]
    return max(misses(block, run(command, lines)))


def metres(value):
    if value < 0.0001:
        return "< 0.1 mm"
    return f"{value * 1000:.1f} mm" if value < 0.1 else f"{value:.2f} m"


def table(quillon):
    rows = json.loads(subprocess.run([quillon, "grid", "list", "--json"], capture_output=True, check=True).stdout)
    by_row = {}
    for block in read_blocks():
        by_row.setdefault(block["row"][:2], []).append(block)
    print("# The grids, row by row\n")
    print("Largest distance between a row's positions and those of its source, over the positions in")
    print("`tests/data/geodesy/grids.txt`, which lie spread over the area where the row is used. Made by")
    print("`tools/grid_figures.py table`; [geodesy.md](geodesy.md) says what the figures mean.\n")
    print("| type | zone | name | comment | source | residual |")
    print("|---|---|---|---|---|---|")
    for row in rows:
        blocks = by_row.get((row["type"], row["zone"]), [])
        sources = "; ".join(dict.fromkeys(b["source"] + (": " + b["differs"] if "differs" in b else "") for b in blocks))
        worst = metres(max(residual(quillon, b) for b in blocks)) if blocks else "no position has a meaning"
        print(f"| {row['type']} | {row['zone']} | {row['name']} | {row['comment']} | {sources or 'none'} | {worst} |")
    return 0


if __name__ == "__main__":
    if sys.argv[1:] == ["check"]:
        sys.exit(check())
    if len(sys.argv) == 3 and sys.argv[1] == "table":
        sys.exit(table(sys.argv[2]))
    sys.exit(__doc__)
