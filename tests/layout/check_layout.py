#!/usr/bin/env python3
"""Holds the classes of the installed headers against layout.txt, as the compiler lays them out.

    check_layout.py CXX ROOT INCLUDE_FOLDER...
"""

import re
import subprocess
import sys
import tempfile
from dataclasses import dataclass, field
from pathlib import Path


@dataclass
class Class:
    base: str = ""
    operations: list[str] = field(default_factory=list)
    members: list[str] = field(default_factory=list)
    slots: dict[int, str] = field(default_factory=dict, compare=False, repr=False)
    has_virtual_destructor: bool = field(default=False, compare=False, repr=False)


def listed(path: Path) -> dict[str, Class]:
    text = re.sub(r"^#.*\n", "", path.read_text(), flags=re.M)
    row = re.compile(r"^class (\w+)(?: : (\w+))?\noperations:((?:\s+\w+)*?)\nmembers:((?:\s+\w+)*?)\n(?=\n|\Z)", re.M)
    found = {m[1]: Class(m[2] or "", m[3].split(), m[4].split()) for m in row.finditer(text)}
    if len(found) != text.count("class "):
        sys.exit(f"{path}: a class that cannot be read")
    return found


def debug_information(compiler: str, root: Path, includes: list[str]) -> str:
    headers = (root / "QZParserSQL" / "installed_headers.txt").read_text().split()
    with tempfile.TemporaryDirectory() as folder:
        source, made = Path(folder) / "headers.cpp", Path(folder) / "headers.o"
        source.write_text("".join(f'#include "QZParserSQL/{header}"\n' for header in headers))
        subprocess.run([compiler, "-std=c++17", "-g", "-fno-eliminate-unused-debug-types", "-femit-class-debug-always",
                        "-c", str(source), "-o", str(made), *(f"-I{folder}" for folder in includes)], check=True)
        command = ["readelf", "--debug-dump=info", "-W", str(made)]
        return subprocess.run(command, capture_output=True, text=True, check=True).stdout


ENTRY = re.compile(r"^ <(\w+)><(\w+)>: Abbrev Number: \d+ \(DW_TAG_(\w+)\)$")
ATTRIBUTE = re.compile(r"^ +<\w+> +DW_AT_(\w+) *: (.*)$")


@dataclass
class Entry:
    depth: int
    place: str
    tag: str
    attributes: dict[str, str] = field(default_factory=dict)

    @property
    def name(self) -> str:
        return self.attributes.get("name", "").rsplit("): ", 1)[-1].strip()


def entries_of(dump: str) -> list[Entry]:
    entries: list[Entry] = []
    for line in dump.splitlines():
        if entry := ENTRY.match(line):
            entries.append(Entry(int(entry[1], 16), entry[2], entry[3]))
        elif entries and (attribute := ATTRIBUTE.match(line)):
            entries[-1].attributes[attribute[1]] = attribute[2]
    return entries


def note(entry: Entry, owner: Class, names: dict[str, str]) -> None:
    attributes = entry.attributes
    if entry.tag == "inheritance":
        owner.base = names[re.search(r"<0x(\w+)>", attributes["type"])[1]]
    elif entry.tag == "member" and not entry.name.startswith("_vptr") and "external" not in attributes:
        owner.members.append(entry.name)
    elif "vtable_elem_location" in attributes:
        owner.slots[int(re.search(r"DW_OP_constu: (\d+)", attributes["vtable_elem_location"])[1])] = entry.name
    elif "virtuality" in attributes:
        owner.has_virtual_destructor = True


def table_of(name: str, classes: dict[str, Class]) -> dict[int, str]:
    """The entries of a class's virtual operations. The compiler does not tell where the two of a destructor are: they
    are where the others leave a gap."""
    if not name:
        return {}
    table = {**classes[name].slots, **table_of(classes[name].base, classes)}
    if classes[name].has_virtual_destructor and "destructor" not in table.values():
        gap = next(slot for slot in range(len(table) + 1) if slot not in table)
        table.update({gap: "destructor", gap + 1: ""})
    return table


def laid_out(dump: str, wanted: set[str]) -> dict[str, Class]:
    entries = entries_of(dump)
    names = {entry.place: entry.name for entry in entries if entry.tag == "class_type"}
    classes: dict[str, Class] = {}
    owner = None
    for entry in entries:
        if entry.depth == 1:
            is_wanted = entry.tag == "class_type" and entry.name in wanted and "declaration" not in entry.attributes
            owner = classes.setdefault(entry.name, Class()) if is_wanted else None
        elif owner is not None and entry.depth == 2:
            note(entry, owner, names)
    for name, found in classes.items():
        table, inherited = table_of(name, classes), table_of(found.base, classes)
        found.operations = [table[slot] for slot in sorted(table) if slot not in inherited and table[slot]]
    return classes


def main() -> None:
    root = Path(sys.argv[2])
    wanted = listed(Path(__file__).parent / "layout.txt")
    found = laid_out(debug_information(sys.argv[1], root, sys.argv[3:]), set(wanted))
    wrong = [f"{name}\n  wanted {wanted[name]}\n  is     {found.get(name)}"
             for name in wanted if wanted[name] != found.get(name)]
    if wrong:
        sys.exit("\n".join(wrong))
    print(f"{len(wanted)} classes lie as they are listed")


main()
