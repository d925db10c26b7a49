#!/usr/bin/env python3
"""Compiles each installed header by itself, and all of them beside macros like those of <windows.h>, in C++17 and C++20
with the compilers given, all warnings being errors.

    check_headers.py ROOT INCLUDE_FOLDERS COMPILER...

The include folders are separated by commas.
"""

import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wshadow", "-Wconversion", "-Werror"]
MACROS = """\
#define min(a, b) (((a) < (b)) ? (a) : (b))
#define max(a, b) (((a) > (b)) ? (a) : (b))
#define DATE double
#define IN
#define OPTIONAL
"""


def headers_of(root: Path, folders: list[str]) -> list[str]:
    headers = [f"QZParserSQL/{name}" for name in (root / "QZParserSQL" / "installed_headers.txt").read_text().split()]
    for folder in folders:
        headers += [str(path.relative_to(folder)) for path in sorted(Path(folder).glob("QZParserSQL/**/*Tokens.h"))]
    return headers


def standard_headers(root: Path, headers: list[str]) -> list[str]:
    texts = "".join((root / header).read_text() for header in headers if (root / header).exists())
    return sorted(set(re.findall(r"^#include (<[\w.]+>)$", texts, re.M)))


def including(names: list[str]) -> str:
    return "".join(f"#include {name}\n" for name in names)


def main() -> None:
    root, folders, compilers = Path(sys.argv[1]), sys.argv[2].split(","), sys.argv[3:]
    headers = headers_of(root, folders)
    quoted = [f'"{header}"' for header in headers]
    # Standard headers need not bear the macros, so that they come first there.
    sources = {header: including([header]) for header in quoted}
    sources["all, with macros"] = including(standard_headers(root, headers)) + MACROS + including(quoted)
    runs = [(compiler, standard, name) for compiler in compilers for standard in ["c++17", "c++20"] for name in sources]

    def compile_one(run: tuple[str, str, str]) -> str:
        compiler, standard, name = run
        command = [compiler, f"-std={standard}", *WARNINGS, *(f"-I{folder}" for folder in folders), "-fsyntax-only",
                   "-xc++", "-"]
        made = subprocess.run(command, input=sources[name], capture_output=True, text=True, check=False)
        return "" if made.returncode == 0 else f"{compiler} {standard} {name}:\n{made.stderr}"

    with ThreadPoolExecutor(os.cpu_count()) as pool:
        problems = [problem for problem in pool.map(compile_one, runs) if problem]
    if problems:
        sys.exit("\n".join(problems))
    print(f"{len(headers)} headers stand alone, {len(runs)} times compiled")


main()
