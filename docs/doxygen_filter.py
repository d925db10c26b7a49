#!/usr/bin/env python3
"""What Doxygen reads of a header: a comment holds for all declarations below it up to the next comment or empty line, so
it is repeated before each of them. Lines keep their numbers.

    doxygen_filter.py HEADER
"""

import re
import sys
from pathlib import Path

COMMENT = re.compile(r"^ *///(?!<) ?(.*)$")
DECLARATION = re.compile(r"^(?: {4})?(?!(?:class|struct) \w+;|template)[\w~].*$")


def filtered(lines: list[str]) -> list[str]:
    result, comment, is_used = [], [], False
    for line in lines:
        if found := COMMENT.match(line):
            comment = [found[1]] if is_used else [*comment, found[1]]
            is_used = False
        elif not line.strip() or line.rstrip().endswith(("public:", "protected:", "private:")):
            comment, is_used = [], False
        elif DECLARATION.match(line) and comment and "///<" not in line:
            if is_used:
                line = f"/** {' '.join(comment)} */ {line}"
            is_used = True
        if re.match(r"\w.*\{$", line):  # what a class or a structure is said to be holds for no member
            comment = []
        result.append(line)
    return result


print("\n".join(filtered(Path(sys.argv[1]).read_text().split("\n"))), end="")
