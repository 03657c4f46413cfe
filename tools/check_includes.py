#!/usr/bin/env python3
"""Checks that includes only go down the floors.

usage: check_includes.py [ROOT]

Every quoted include below src/, tests/, fuzz/, bench/ and apps/ must name a file of its own floor or of a floor below
it; the library includes no header of a window toolkit. Prints each include that breaks this and exits with 1.
"""

import pathlib
import re
import sys

# Each floor with the floors directly below it; what these see, it sees too.
BELOW = {
    "platform": [],
    "foundation": ["platform"],
    "geodesy": ["foundation"],
    "frame": ["foundation"],
    "background": ["geodesy", "frame"],
    "features": ["background"],
    "target": ["features"],
    "display": ["target"],
    "panes": ["display"],
}
SUFFIXES = {".h", ".cpp", ".cc"}
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]')
# Headers without a folder or with one, as a window toolkit names them.
TOOLKIT = re.compile(r"^Q(t[A-Z]\w*/)?[A-Z]?\w*$")


def seen_from(floor):
    """The floors whose headers a file of `floor` may include."""
    seen = {floor}
    for below in BELOW[floor]:
        seen |= seen_from(below)
    return seen


def includes_of(path):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        found = INCLUDE.match(line)
        if found:
            yield number, found.group(1), found.group(2)


def check_tree(root, tree, complaints):
    """Checks root/tree. Folders named for a floor are held to it; others may see every floor."""
    everything = set(BELOW)
    for path in sorted((root / tree).rglob("*")):
        if path.suffix not in SUFFIXES or not path.is_file():
            continue
        parts = path.relative_to(root / tree).parts
        floor = parts[0] if len(parts) > 1 and parts[0] in BELOW else None
        if tree == "src" and floor is None:
            complaints.append(f"{path}: stands on no floor")
            continue
        allowed = seen_from(floor) if floor else everything
        for number, quote, name in includes_of(path):
            where = f"{path.relative_to(root)}:{number}"
            if quote == "<":
                if tree == "src" and TOOLKIT.match(name):
                    complaints.append(f"{where}: the library sees no window toolkit: <{name}>")
                continue
            head = name.split("/")[0]
            if head in BELOW and head not in allowed:
                complaints.append(f"{where}: {floor} doesn't see {head}: \"{name}\"")
            elif head in BELOW and not (root / "src" / name).is_file() and not (root / tree / name).is_file():
                complaints.append(f"{where}: no such header: \"{name}\"")
            elif tree == "src" and head not in BELOW:
                complaints.append(f"{where}: name the floor of the header: \"{name}\"")


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".").resolve()
    if not (root / "src").is_dir():
        print(f"{root}: no folder src", file=sys.stderr)
        return 2
    complaints = []
    for tree in ("src", "tests", "fuzz", "bench", "apps"):
        if (root / tree).is_dir():
            check_tree(root, tree, complaints)
    for complaint in complaints:
        print(complaint)
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
