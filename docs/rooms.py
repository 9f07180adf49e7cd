"""Draws docs/rooms.svg from docs/rooms.dot, and fails when what it draws is not what the folders of kova/ include.

usage: rooms.py [--renew]

The drawing that is committed is compared by its rooms and arrows: their places depend on the fonts of a machine.
"""

import pathlib
import re
import subprocess
import sys

DOT = pathlib.Path('docs/rooms.dot')
SVG = pathlib.Path('docs/rooms.svg')


def drawn():
    """The rooms from top to bottom, and the kind of each arrow."""
    rooms, arrows, kind = [], {}, 'down'
    for line in DOT.read_text().splitlines():
        if match := re.match(r'  (\w+) +\[label=', line):
            rooms.append(match[1])
        elif match := re.match(r'  edge \[constraint=false style=(\w+)', line):
            kind = {'bold': 'up from a header', 'dashed': 'up from a source'}[match[1]]
        elif match := re.match(r'  (\w+) -> (\w+)', line):
            arrows[match.groups()] = kind
    return rooms, arrows


def includes(suffix):
    for path in pathlib.Path('kova').glob('*/*' + suffix):
        for other in re.findall(r'#include <kova/(\w+)/', path.read_text()):
            if other != path.parts[1]:
                yield path.parts[1], other


def reaches(start, end, arrows):
    return any(via == end or reaches(via, end, arrows) for first, via in arrows if first == start)


def expected(rooms):
    headers, sources = set(includes('.h')), set(includes('.cpp'))
    down = {(a, b) for a, b in headers | sources if rooms.index(a) < rooms.index(b)}
    arrows = {arrow: 'down' for arrow in down if not reaches(*arrow, down - {arrow})}
    arrows |= {arrow: 'up from a source' for arrow in sources - down}
    return arrows | {arrow: 'up from a header' for arrow in headers - down}


def titles(svg):
    return sorted(re.findall(r'<title>(.*)</title>', svg))


def main():
    rooms, arrows = drawn()
    missing = {path.name for path in pathlib.Path('kova').iterdir() if path.is_dir()} ^ set(rooms)
    if missing:
        sys.exit(f"{DOT} and the folders of kova/ differ: {', '.join(sorted(missing))}")
    wanted = expected(rooms)
    for (start, end), kind in sorted(wanted.items() ^ arrows.items()):
        print(f"{DOT}: {'lacks' if wanted.get((start, end)) == kind else 'should not draw'} {start} -> {end}, {kind}")
    if wanted != arrows:
        sys.exit(1)
    svg = subprocess.run(['dot', '-Tsvg', DOT], stdout=subprocess.PIPE, text=True, check=True).stdout
    if '--renew' in sys.argv:
        SVG.write_text(svg)
    elif titles(svg) != titles(SVG.read_text()):
        sys.exit(f'{SVG} does not show {DOT}: docs/build --renew draws it anew')


main()
