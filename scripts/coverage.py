#!/usr/bin/env python3
"""What tests have run of our own code, by folders. Fails where it is less than it must be, and where docs/coverage.md does
not name just the functions that have lines which no test runs.

    coverage.py BUILD_FOLDER

Generated code is not counted, neither are the edges on which exceptions leave. All that was not run is listed in
BUILD_FOLDER/coverage.txt.
"""

import json
import re
import subprocess
import sys
from collections import defaultdict
from pathlib import Path
from typing import NamedTuple

ROOT = Path(__file__).resolve().parent.parent
FOLDERS = ["QZParserSQL", "host"]
LEAST_LINES, LEAST_BRANCHES = 95.0, 90.0
PAGE = ROOT / "docs" / "coverage.md"


class Count(NamedTuple):
    run: int
    all: int

    def __add__(self, other):
        return Count(self.run + other.run, self.all + other.all)

    def percent(self) -> float:
        return 100 * self.run / self.all if self.all else 100.0

    def __str__(self) -> str:
        return f"{self.run:6} of {self.all:5} {self.percent():6.1f} %"


NOTHING = Count(0, 0)


class File(NamedTuple):
    path: str
    lines: list[dict]
    functions: list[tuple[int, str]]  # by their first lines

    def line_count(self) -> Count:
        return Count(sum(line["count"] > 0 for line in self.lines), len(self.lines))

    def branch_count(self) -> Count:
        counts = [branch["count"] for line in self.lines for branch in line["branches"]]
        return Count(sum(count > 0 for count in counts), len(counts))

    def function_at(self, line: int) -> str:
        return max((first, name) for first, name in [(0, ""), *self.functions] if first <= line)[1]


def plain_name(demangled: str) -> str:
    """`qz::(anonymous namespace)::Bounds()` is Bounds, `CList<int>::GetHead() const` is CList::GetHead."""
    name = demangled.replace("(anonymous namespace)::", "").replace("[abi:cxx11]", "")
    while (shorter := re.sub(r"<[^<>]*>", "", name)) != name:
        name = shorter
    name = re.sub(r"\(.*", "", name.replace("operator()", "operator")).split(" ")[-1]
    return re.sub(r"^(qz|qzsql|std)::", "", name)


def measured(build: Path) -> list[File]:
    # The copy of qzsql in tests/exports hardly runs, and gcov does not tell edges of exceptions where a line never runs.
    filters = [option for folder in FOLDERS for option in ("--filter", f"{re.escape(str(ROOT))}/{folder}/")]
    found = subprocess.run(
        ["gcovr", "--root", ROOT, "--object-directory", build, *filters, "--exclude-directories", f"{re.escape(str(build))}/tests/exports",
         "--exclude-throw-branches", "--exclude-unreachable-branches", "--json"],
        cwd=build, stdout=subprocess.PIPE, check=True).stdout
    return [File(file["file"], [line for line in file["lines"] if not line["gcovr/noncode"]],
                 [(function["lineno"], plain_name(function["name"])) for function in file["functions"]])
            for file in json.loads(found)["files"]]


def table(files: list[File]) -> tuple[str, Count, Count]:
    folders = defaultdict(lambda: [NOTHING, NOTHING])
    for file in files:
        for name in [str(Path(file.path).parent), "in all"]:
            lines, branches = folders[name]
            folders[name] = [lines + file.line_count(), branches + file.branch_count()]
    total = folders.pop("in all")
    rows = [f"{name:28}{lines}  {branches}" for name, (lines, branches) in [*sorted(folders.items()), ("in all", total)]]
    return "\n".join([f"{'':28}{'lines':>22}  {'branches':>22}", *rows]), *total


def not_run(files: list[File]) -> str:
    out = []
    for file in files:
        for line in file.lines:
            missing = sum(branch["count"] == 0 for branch in line["branches"])
            if line["count"] == 0 or missing:
                what = "line" if line["count"] == 0 else f"{missing} of {len(line['branches'])} branches"
                out.append(f"{file.path}:{line['line_number']}: {file.function_at(line['line_number'])}: {what}")
    return "\n".join(out) + "\n"


def functions_not_run(files: list[File]) -> set[str]:
    """`path: function` for each with a line that no test runs."""
    return {f"{file.path}: {file.function_at(line['line_number'])}"
            for file in files for line in file.lines if line["count"] == 0}


def functions_of_page() -> set[str]:
    """Its lists have the form: - `path`: `function`, `function`."""
    return {f"{path}: {name}" for path, names in re.findall(r"^- `([^`]+)`: (.*)$", PAGE.read_text(), re.M)
            for name in re.findall(r"`([^`]+)`", names)}


def problems(files: list[File], lines: Count, branches: Count) -> list[str]:
    found, told = functions_not_run(files), functions_of_page()
    return [
        *(f"only {count.percent():.2f} % of {what}, not {least} %"
          for what, count, least in [("lines", lines, LEAST_LINES), ("branches", branches, LEAST_BRANCHES)]
          if count.percent() < least),
        *(f"{PAGE.name} gives no reason for {name}" for name in sorted(found - told)),
        *(f"{PAGE.name} names {name}, all of whose lines run" for name in sorted(told - found)),
    ]


def main() -> int:
    build = Path(sys.argv[1]).resolve()
    files = measured(build)
    (build / "coverage.txt").write_text(not_run(files))
    shown, lines, branches = table(files)
    print(f"{shown}\nEdges of exceptions are left out. What was not run: {build.relative_to(ROOT)}/coverage.txt")
    wrong = problems(files, lines, branches)
    print("\n".join(wrong), end="\n" if wrong else "")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
