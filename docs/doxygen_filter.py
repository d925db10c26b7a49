#!/usr/bin/env python3
"""What Doxygen reads of a header. A comment holds for all declarations below it up to the next comment or empty line, so
it is repeated before each of them; in a header without such comments its head does. The head is what is said of the file.
Lines keep their numbers.

    doxygen_filter.py HEADER
"""

import re
import sys
from pathlib import Path

HEAD = re.compile(r"(?://(?!/).*\n)+|/\*(?:.|\n)*?\*/\n")
COMMENT = re.compile(r"^ *///(?!<) ?(.*)$")
DECLARATION = r"(?!(?:class|struct) \w+;|template|extern)[\w~]"


def head_of(text: str) -> str:
    found = HEAD.match(text)
    return re.sub(r"^(?://|/\*| \*/?) ?|\*/$", "", found[0], flags=re.M).strip() if found else ""


def filtered(lines: list[str], everywhere: list[str]) -> list[str]:
    result, comment, is_used, indent = [], [], False, ""
    for line in lines:
        if found := COMMENT.match(line):
            comment = [found[1]] if is_used else [*comment, found[1]]
            is_used = False
        elif not line.strip() or line.rstrip().endswith(("public:", "protected:", "private:")):
            comment, is_used = everywhere, bool(everywhere)
        elif re.match(indent + DECLARATION, line) and comment and "///<" not in line:
            if is_used:
                line = f"/** {' '.join(comment)} */ {line}"
            is_used = True
        if re.match(r"(?:class|struct|enum)\b.*\{$", line):  # what is said of a class holds for no member
            comment, indent = [], "    "
        elif line.startswith("}"):
            indent = ""
        result.append(line)
    return result


text = Path(sys.argv[1]).read_text()
head = head_of(text)
print("\n".join(filtered(text.split("\n"), [] if re.search(r"^ *///", text, re.M) else head.split("\n"))))
print(f"/** @file\n{head} */")
