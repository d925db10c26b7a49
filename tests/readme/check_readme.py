#!/usr/bin/env python3
"""Runs the example of README.md: the first ```sql block must give the tree of the block behind it.

    check_readme.py README.md QZSQL
"""

import re
import subprocess
import sys
from pathlib import Path

blocks = re.findall(r"^```(\w*)\n(.*?)^```$", Path(sys.argv[1]).read_text(), re.M | re.S)
sql, shown = blocks[0][1], blocks[1][1]
if blocks[0][0] != "sql":
    sys.exit("README.md does not begin with an sql example")
tree = subprocess.run([sys.argv[2], "tree", "-d", "access", "-e", sql.strip()], capture_output=True, text=True, check=True)
if tree.stdout != shown:
    sys.exit(f"README.md shows another tree than qzsql:\n{tree.stdout}")
print("the example of README.md is true")
