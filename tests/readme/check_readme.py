#!/usr/bin/env python3
"""Runs the examples of README.md: the first ```sql block must give the tree of the block behind it, and the commands of
each ```console block what stands below them. They run in a folder with shop.db, made of examples/shop.sql.

    check_readme.py README.md QZSQL
"""

import os
import re
import sqlite3
import subprocess
import sys
import tempfile
from pathlib import Path

blocks = re.findall(r"^```(\w*)\n(.*?)^```$", Path(sys.argv[1]).read_text(), re.M | re.S)
sql, shown = blocks[0][1], blocks[1][1]
if blocks[0][0] != "sql":
    sys.exit("README.md does not begin with an sql example")
tree = subprocess.run([sys.argv[2], "tree", "-d", "access", "-e", sql.strip()], capture_output=True, text=True, check=True)
if tree.stdout != shown:
    sys.exit(f"README.md shows another tree than qzsql:\n{tree.stdout}")


def check_commands(block: str, folder: str) -> None:
    path = os.pathsep.join([str(Path(sys.argv[2]).resolve().parent), os.environ["PATH"]])
    for command, wanted in re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", block, re.M):
        run = subprocess.run(command, shell=True, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                             env={**os.environ, "PATH": path})
        if run.stdout != wanted:
            sys.exit(f"README.md shows something else than: {command}\n{run.stdout}")


with tempfile.TemporaryDirectory() as folder:
    connection = sqlite3.connect(Path(folder) / "shop.db")
    connection.executescript((Path(sys.argv[1]).parent / "examples" / "shop.sql").read_text())
    connection.close()
    for language, block in blocks:
        if language == "console":
            check_commands(block, folder)
print("the examples of README.md are true")
