#!/usr/bin/env python3
"""Checks that includes only go down the floors.

usage: check_includes.py [ROOT]

floors.txt names the floors and rooms and what each sees. Every quoted include of a file of one, or of its tests, must
name a file of its own floor or of one that it sees; only rooms that floors.txt lets do so include a window toolkit. Prints each include that breaks this and exits with 1.
"""

import pathlib
import re
import sys

SUFFIXES = {".h", ".cpp", ".cc"}
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]')
# Headers without a folder or with one, as a window toolkit names them.
TOOLKIT = re.compile(r"^Q(t[A-Z]\w*/)?[A-Z]?\w*$")


class Floor:
    """One line of floors.txt."""

    def __init__(self, name, folder, toolkit, *sees):
        self.name, self.folder, self.toolkit, self.sees = name, folder, toolkit == "qt", sees


def read_floors(root):
    lines = (root / "floors.txt").read_text(encoding="utf-8").splitlines()
    floors = [Floor(*line.split()) for line in lines if line.strip() and not line.startswith("#")]
    return {floor.name: floor for floor in floors}


def seen_from(floors, name):
    """The floors whose headers a file of the floor may include."""
    seen = {name}
    for below in floors[name].sees:
        seen |= seen_from(floors, below)
    return seen


def floor_of(floors, path):
    """The floor that a file belongs to, by its folder or by that of its tests; None for a file of no floor."""
    for floor in floors.values():
        if path.as_posix().startswith((floor.folder + "/", f"tests/{floor.name}/")):
            return floor
    return None


def includes_of(path):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        found = INCLUDE.match(line)
        if found:
            yield number, found.group(1), found.group(2)


def header_exists(root, floors, name):
    head = name.split("/")[0]
    in_floor = root / pathlib.Path(floors[head].folder).parent / name
    return in_floor.is_file() or (root / "tests" / name).is_file()


def check_file(root, floors, path, complaints):
    floor = floor_of(floors, path)
    if path.parts[0] == "src" and floor is None:
        complaints.append(f"{path}: stands on no floor")
        return
    allowed = seen_from(floors, floor.name) if floor else set(floors)
    for number, quote, name in includes_of(root / path):
        where = f"{path}:{number}"
        head = name.split("/")[0]
        if quote == "<":
            if floor and not floor.toolkit and TOOLKIT.match(name):
                complaints.append(f"{where}: {floor.name} sees no window toolkit: <{name}>")
        elif head in floors and "/" in name:
            if head not in allowed:
                complaints.append(f'{where}: {floor.name} doesn\'t see {head}: "{name}"')
            elif not header_exists(root, floors, name):
                complaints.append(f'{where}: no such header: "{name}"')
        elif path.parts[0] == "src":
            complaints.append(f'{where}: name the floor of the header: "{name}"')


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".").resolve()
    if not (root / "floors.txt").is_file():
        print(f"{root}: no floors.txt", file=sys.stderr)
        return 2
    floors = read_floors(root)
    complaints = []
    for tree in ("src", "tests", "fuzz", "bench", "apps"):
        for path in sorted((root / tree).rglob("*")):
            if path.suffix in SUFFIXES and path.is_file():
                check_file(root, floors, path.relative_to(root), complaints)
    for complaint in complaints:
        print(complaint)
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
