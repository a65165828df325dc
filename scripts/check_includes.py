#!/usr/bin/env python3
"""Checks each #include "..." of src and tools against the table "Who includes what" in docs/architecture.md.

A row names a part, its files by how their paths begin (the longest match counts), and the parts above it that it includes.
Prints what is wrong with file and line, and fails. From the root of the tree.
"""

import re
import sys
from pathlib import Path

PAGE = Path("docs/architecture.md")
TITLE = "### Who includes what"


def read_table():
    """Rows of (line, part, paths, included parts)."""
    lines = PAGE.read_text(encoding="utf-8").splitlines()
    start = lines.index(TITLE) + 1
    end = next((i for i in range(start, len(lines)) if lines[i].startswith("#")), len(lines))
    cells = [(i + 1, [cell.strip() for cell in lines[i].strip("|").split("|")]) for i in range(start, end) if lines[i][:1] == "|"]
    ticked = re.compile(r"`([^`]+)`")
    return [(i, ticked.findall(row[0])[0], ticked.findall(row[1]), ticked.findall(row[2])) for i, row in cells[2:]]


def main():
    rows, faults, used = read_table(), [], set()
    order = [part for _, part, _, _ in rows]
    paths = sorted(((path, part) for _, part, own, _ in rows for path in own), key=lambda entry: -len(entry[0]))
    allowed = {part: included for _, part, _, included in rows}
    line_of = {part: line for line, part, _, _ in rows}

    def owner(file):
        for path, part in paths:
            if file.startswith((path + "/", path + ".")):
                used.add(path)
                return part
        return None

    for file in sorted(f for top in ("src", "tools") for f in Path(top).rglob("*") if f.suffix in (".cpp", ".h")):
        part = owner(file.as_posix())
        if not part:
            faults.append(f"{file}: its folder is in no row of {PAGE}, {TITLE[4:]!r}")
            continue
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            include = re.match(r'\s*#\s*include\s*"([^"]+)"', line)
            if not include:
                continue
            target = next((top + include[1] for top in ("src/", "tools/") if Path(top + include[1]).is_file()), None)
            other = owner(target) if target else None
            if not other:
                faults.append(f'{file}:{number}: "{include[1]}" is no file of src or tools by its path from there')
            elif other != part and other not in allowed[part]:
                faults.append(f'{file}:{number}: {part} may not include {other} ("{include[1]}"); '
                              f"{PAGE}:{line_of[part]} tells what it may")
            used.add((part, other))
    for line, part, own, included in rows:
        faults += [f"{PAGE}:{line}: there is no file {path} any more" for path in own if path not in used]
        for other in included:
            if other not in order[:order.index(part)]:
                faults.append(f"{PAGE}:{line}: {part} may include only parts in rows above it, and {other} isn't")
            if (part, other) not in used:
                faults.append(f"{PAGE}:{line}: {part} includes nothing of {other} any more; take that out of the row")
    print(*faults, sep="\n", end="\n" if faults else "")
    sys.exit(bool(faults) or not rows)


main()
