#!/usr/bin/env python3
"""Looks into the built product with one check: headers, imports, resources or themes.

    check_product.py x86|x64 BUILD CHECK

BUILD/bin has what users get. Prints what is wrong, and fails. From the root of the tree.
"""

import re
import struct
import sys
from pathlib import Path

ARCHITECTURE, BIN, CHECK = sys.argv[1], Path(sys.argv[2], "bin"), sys.argv[3]
WIDE = ARCHITECTURE == "x64"
SYMBOLS = Path("scripts/vista_symbols.txt")
GUI, CONSOLE = 2, 3
SUBSYSTEMS = {"Quorvane.exe": GUI, "Gallery.exe": GUI, "QuorvaneLine.exe": CONSOLE, "QuorvaneRead.exe": CONSOLE, "QuorvaneZHCN.dll": None}
CURSORS, DIALOG, STRINGS, ICONS, VERSION, MANIFEST, DIALOG_LISTS = 12, 5, 6, 14, 16, 24, 240
faults = []


class Image:
    """A program or library as its file tells it."""

    def __init__(self, path):
        self.data = path.read_bytes()
        head = self.value("I", 0x3C) + 4
        self.machine, sections, self.time, names, self.symbols, size, self.flags = struct.unpack_from("<HHIIIHH", self.data, head)
        optional = head + 20
        self.wide = self.value("H", optional) == 0x20B
        self.version = struct.unpack_from("<HH", self.data, optional + 48)
        self.subsystem, self.traits = struct.unpack_from("<HH", self.data, optional + 68)
        places = optional + (112 if self.wide else 96)
        self.tables = [self.value("I", places + 8 * i) for i in range(16)]
        self.checksum = self.value("I", optional + 64)
        plain = self.data[:optional + 64] + bytes(4) + self.data[optional + 68:]
        total = sum(struct.unpack(f"<{(len(plain) + 1) // 2}H", plain + bytes(len(plain) % 2)))
        while total >> 16:
            total = (total & 0xFFFF) + (total >> 16)
        self.sum = total + len(plain)
        rows = range(optional + size, optional + size + 40 * sections, 40)
        self.sections = [struct.unpack_from("<8sIIII", self.data, row) for row in rows]
        self.rights = [self.value("I", row + 36) for row in rows]
        names += 18 * self.symbols # where long names are

        def full(name):
            start = names + int(name[1:].strip(b"\0") or 0) if name[:1] == b"/" else 0
            return (self.data[start:self.data.index(0, start)] if start else name.strip(b"\0")).decode()

        self.names = [full(row[0]) for row in self.sections]

    def value(self, form, offset):
        return struct.unpack_from("<" + form, self.data, offset)[0]

    def offset(self, address):
        return next(address - start + raw for _, _, start, size, raw in self.sections if start <= address < start + size)

    def text(self, address):
        start = self.offset(address)
        return self.data[start:self.data.index(0, start)].decode()

    def imports(self):
        """(library, symbol) of each; a symbol without a name is its number."""
        form, size, by_number = ("Q", 8, 1 << 63) if self.wide else ("I", 4, 1 << 31)
        row = self.offset(self.tables[1]) if self.tables[1] else None
        while row and self.value("I", row + 12):
            names, library = self.offset(self.value("I", row) or self.value("I", row + 16)), self.text(self.value("I", row + 12))
            while entry := self.value(form, names):
                yield library.lower(), f"number {entry & 0xFFFF}" if entry & by_number else self.text(entry + 2)
                names += size
            row += 20

    def resources(self):
        """Contents by (type, name)."""
        base = self.offset(self.tables[2])

        def entries(folder):
            named, numbered = struct.unpack_from("<HH", self.data, base + folder + 12)
            for row in range(base + folder + 16, base + folder + 16 + 8 * (named + numbered), 8):
                yield self.value("I", row), self.value("I", row + 4) & 0x7FFFFFFF

        found = {}
        for kind, names in entries(0):
            for name, languages in entries(names):
                for _, leaf in entries(languages):
                    start = self.offset(self.value("I", base + leaf))
                    found[kind, name] = self.data[start:start + self.value("I", base + leaf + 4)]
        return found


def expect(condition, fault):
    if not condition:
        faults.append(fault)


def check_headers(images):
    for name, image in images.items():
        program = name.endswith(".exe")
        expect((image.machine, image.wide) == ((0x8664, True) if WIDE else (0x14C, False)), f"{name} isn't made for {ARCHITECTURE}")
        # Windows XP, and its 64-bit edition.
        expect(image.version <= ((5, 2) if WIDE else (5, 1)), f"{name} asks for Windows {image.version}: newer than XP")
        expect(not program or image.subsystem == SUBSYSTEMS[name], f"{name} has the subsystem {image.subsystem}, not {SUBSYSTEMS[name]}")
        marks = {0x40: "that it may lie at any address", 0x100: "that its data is no code"}
        marks |= {0x8000: "that it knows terminal servers"} if program else {}
        marks |= {0x20: "that it may lie above 4 GiB"} if WIDE else {}
        for bit, what in marks.items():
            expect(image.traits & bit, f"{name} doesn't say {what} (DLL characteristic {bit:#x})")
        # The language library has nothing but resources, which need no relocation.
        expect(not image.flags & 1 and (image.tables[5] or not program), f"{name} has no relocations, so it can't be moved")
        expect(image.checksum == image.sum, f"{name} has the checksum {image.checksum:#x}, not {image.sum:#x}")
        expect(not image.time, f"{name} holds the time of its build")
        expect(str(Path.cwd()).encode() not in image.data, f"{name} holds the folder of its build")
        both = [section for section, rights in zip(image.names, image.rights) if rights & 0xA0000000 == 0xA0000000]
        expect(not both, f"{name} has sections that can be written and run: {both}")
        debugging = [section for section in image.names if section.startswith(".debug")]
        expect(not image.symbols and not debugging, f"{name} carries debugging information: {debugging or 'symbols'}")


def check_imports(images):
    known = set()
    for line in SYMBOLS.read_text(encoding="utf-8").splitlines():
        head, _, names = line.partition("#")[0].partition(":")
        library, _, only = head.partition(" ")
        known |= {(library, name) for name in names.split() if only in ("", ARCHITECTURE)}
    for name, image in images.items():
        for library, symbol in image.imports():
            expect((library, symbol) in known, f"{name} imports {symbol} of {library}, which {SYMBOLS} doesn't list for "
                   f"{ARCHITECTURE}: look up the first Windows that has it. Up to Vista, add it there; later, load it when needed")
    expect(not list(images["QuorvaneZHCN.dll"].imports()), "QuorvaneZHCN.dll has imports, and is to be resources alone")
    expect("user32.dll" in {library for library, _ in images["Quorvane.exe"].imports()}, "Quorvane.exe imports no user32.dll")


def check_resources(images):
    found = {name: image.resources() for name, image in images.items()}
    both = [(DIALOG, id) for id in (100, 102, 129, 146, 219)] + [(ICONS, id) for id in (128, 133, 134)] + [(DIALOG_LISTS, 219)]
    wanted = {"Quorvane.exe": both + [(CURSORS, 144)], "QuorvaneZHCN.dll": both}
    texts = "CompanyName FileDescription FileVersion InternalName OriginalFilename ProductName ProductVersion".split()
    for name, resources in found.items():
        for key in wanted.get(name, []):
            expect(resources.get(key), f"{name} has no resource {key[1]} of type {key[0]}")
        version = resources.get((VERSION, 1), b"")
        for text in texts:
            expect(version.count(text.encode("utf-16-le") + b"\0\0") == 2, f"{name} doesn't tell {text} in both languages")
        for part in (b'level="asInvoker"', b">UTF-8</activeCodePage>"):
            expect(name.endswith(".dll") or part in resources.get((MANIFEST, 1), b""), f"the manifest of {name} lacks {part.decode()}")
    blocks, chinese = ({name for kind, name in found[n] if kind == STRINGS} for n in ("Quorvane.exe", "QuorvaneZHCN.dll"))
    expect(blocks and blocks == chinese, f"the two languages differ in their blocks of strings: {blocks ^ chinese or 'none'}")


def check_themes(_):
    """Every picture that the program names is there and whole, and no other."""
    sources = [file.read_text(encoding="utf-8") for top in ("skin", "dialogs", "panel") for file in Path("src", top).glob("*.[ch]*")]
    named = {picture for text in sources for picture in re.findall(r'(\w+\.bmp)"', text)}
    shipped = {file.name: file.read_bytes() for file in (BIN / "Themes/DefaultTheme").glob("*")}
    expect(named and named == set(shipped), f"pictures that are only named or only shipped: {named ^ set(shipped) or 'none'}")
    for name, data in shipped.items():
        expect(data[:2] == b"BM" and data[2:6] == struct.pack("<I", len(data)), f"{name} is no whole bitmap file")


missing = [name for name in SUBSYSTEMS if not (BIN / name).is_file()]
if missing:
    sys.exit(f"{BIN} lacks {', '.join(missing)}: build {ARCHITECTURE} first")
{"headers": check_headers, "imports": check_imports, "resources": check_resources, "themes": check_themes}[CHECK](
    {name: Image(BIN / name) for name in SUBSYSTEMS})
print(*faults, sep="\n", end="\n" if faults else "")
sys.exit(bool(faults))
