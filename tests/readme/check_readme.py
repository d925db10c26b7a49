#!/usr/bin/env python3
"""Runs the examples of a page: an ```sql block must give the tree of the block behind it (MS Access), and the commands of
each ```console block what stands below them, standard error included. They run in a folder with shop.db, made of
examples/shop.sql.

    check_readme.py PAGE ROOT PROGRAM...
"""

import os
import re
import sqlite3
import subprocess
import sys
import tempfile
from pathlib import Path

PAGE, ROOT = Path(sys.argv[1]), Path(sys.argv[2])
PATH = os.pathsep.join([*(str(Path(program).resolve().parent) for program in sys.argv[3:]), os.environ["PATH"]])


def run(command: list[str] | str, folder: str) -> str:
    return subprocess.run(command, shell=isinstance(command, str), cwd=folder, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, env={**os.environ, "PATH": PATH}, check=False).stdout


def check(shown: str, command: list[str] | str, folder: str) -> int:
    found = run(command, folder)
    if found != shown:
        sys.exit(f"{PAGE.name} shows something else than: {command}\n{found}")
    return 1


def check_page(folder: str) -> int:
    count = 0
    blocks = re.findall(r"^```(\w*)\n(.*?)^```$", PAGE.read_text(), re.M | re.S)
    for (language, block), (_, next_block) in zip(blocks, [*blocks[1:], ("", "")]):
        if language == "sql":
            count += check(next_block, ["qzsql", "tree", "-d", "access", "-e", block.strip()], folder)
        if language == "console":
            for command, shown in re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", block, re.M):
                count += check(shown, command, folder)
    return count


with tempfile.TemporaryDirectory() as work:
    connection = sqlite3.connect(Path(work) / "shop.db")
    connection.executescript((ROOT / "examples" / "shop.sql").read_text())
    connection.close()
    examples = check_page(work)
if examples == 0:
    sys.exit(f"{PAGE.name} has no example")
print(f"the {examples} examples of {PAGE.name} are true")
