#!/usr/bin/env python3
"""Holds what a shared library exports against contract.txt and beside.txt: nothing may be missing, nothing unlisted.

    check_exports.py LIBRARY
"""

import re
import subprocess
import sys
from pathlib import Path

# The standard text types as people write them.
SHORT = [
    (re.compile(r"std::(?:__cxx11::)?basic_string(_view)?<char16_t, [^()]*?> ?>"), r"u16string\1"),
    (re.compile(r"std::(?:__cxx11::)?basic_string(_view)?<char, [^()]*?> ?>"), r"string\1"),
    (re.compile(r"\[abi:cxx11\]"), ""),
]


def shortened(name: str) -> str:
    for pattern, short in SHORT:
        name = pattern.sub(short, name)
    return name


def listed(path: Path) -> set[str]:
    lines = (line.strip() for line in path.read_text().splitlines())
    return {line for line in lines if line and not line.startswith("#")}


def exported(library: str) -> set[str]:
    command = ["nm", "-DC", "--defined-only", library]
    table = subprocess.run(command, capture_output=True, text=True, check=True).stdout
    return {shortened(line.split(maxsplit=2)[2]) for line in table.splitlines()}


def main() -> None:
    folder = Path(__file__).parent
    expected = listed(folder / "contract.txt") | listed(folder / "beside.txt")
    found = exported(sys.argv[1])
    problems = [f"not exported: {name}" for name in sorted(expected - found)]
    problems += [f"exported but not listed: {name}" for name in sorted(found - expected)]
    if problems:
        sys.exit("\n".join(problems))
    print(f"{len(found)} names are exported, all of them listed")


main()
