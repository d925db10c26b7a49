#!/usr/bin/env python3
"""Holds qzsql, and a facade with its model on a stack of 8 MiB, against deep texts: each text must give what it gives at
a small depth, or be refused with a message that names a place in it, or its model be cut since it would be too large;
nothing crashes, and nothing takes longer than it may.

    depth_test.py QZSQL ON_COMMON_STACK DIALECT DEPTH SECONDS [STEP]

With STEP only every so many texts are tried, by less commands. SECONDS are of processor time.
"""

import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path
from typing import Callable, NamedTuple

from nestings import FORMS, NESTINGS

QZSQL, ON_COMMON_STACK, DIALECT = sys.argv[1:4]
DEPTH, SECONDS, STEP = int(sys.argv[4]), float(sys.argv[5]), int((sys.argv[6:] or [1])[0])
SMALL = 10
DONE, NOT_CLEAN = 0, 1
TOO_DEEP = re.compile(r"(\d+):(\d+): (?:error: )?nested too deep")
PLACE = re.compile(r"^(\d+):(\d+): ", re.M)
CUT = "the model is cut"


class Run(NamedTuple):
    code: int
    out: str
    told: str
    seconds: float


def run(*command: str) -> Run:
    with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as told:
        process = subprocess.Popen(command, stdout=out, stderr=told)
        _, status, used = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        out.seek(0), told.seek(0)
        return Run(process.returncode, out.read().decode(), told.read().decode(), used.ru_utime + used.ru_stime)


Command = Callable[[str], Run]


def check(path: str) -> Run:
    return run(QZSQL, "check", "-d", DIALECT, path)


def tree(path: str) -> Run:
    return run(QZSQL, "tree", "-d", DIALECT, "-f", "sexpr", path)


def model(path: str) -> Run:
    return run(QZSQL, "model", "-d", DIALECT, path)


def facade(path: str) -> Run:
    return run(ON_COMMON_STACK, DIALECT, path)


def place_in(text: str, found: re.Match) -> bool:
    lines = text.split("\n")
    line, column = int(found[1]), int(found[2])
    return 1 <= line <= len(lines) and 1 <= column <= len(lines[line - 1]) + 1


def problem_of(command: Command, form: str, deep: Run, small: Run, text: str) -> str:
    if deep.code not in (DONE, NOT_CLEAN):
        return f"ends with {deep.code}: {deep.told[-500:]}"
    if deep.seconds > SECONDS:
        return f"takes {deep.seconds:.1f} s"
    too_deep = TOO_DEEP.search(deep.out) or TOO_DEEP.search(deep.told)
    if too_deep:
        return "" if place_in(text, too_deep) else f"names the place {too_deep[0]}"
    if command is model and CUT in deep.told:
        return ""
    if deep.code != small.code:
        return f"ends with {deep.code}, at a small depth with {small.code}"
    if command is check and deep.code == NOT_CLEAN and not any(place_in(text, p) for p in PLACE.finditer(deep.out)):
        return "names no place"
    # How errors are recovered from depends on how deep they stand.
    verdict, small_verdict = (found.out.partition("\n")[0] for found in (deep, small))
    if command in (check, facade) and form == "closed" and verdict != small_verdict:
        return f"says {verdict}, at a small depth {small_verdict}"
    return ""


def commands(form: str) -> list[Command]:
    if STEP > 1:
        return [check, facade]
    models = [] if DIALECT == "mssql-from" else [model]
    return [check, facade, *models, *([tree] if form == "closed" else [])]


def texts() -> list[tuple]:
    chosen = [(nesting, form) for nesting in NESTINGS[DIALECT] for form in FORMS]
    return chosen[sorted(NESTINGS).index(DIALECT)::STEP]


def main() -> int:
    problems, slowest = [], (0.0, "")
    with tempfile.TemporaryDirectory() as folder:
        path, small_path = (os.path.join(folder, name) for name in ["deep.sql", "small.sql"])
        for nesting, form in texts():
            text = FORMS[form](nesting, DEPTH)
            Path(path).write_bytes(text.encode())
            Path(small_path).write_bytes(FORMS[form](nesting, SMALL).encode())
            for command in commands(form):
                deep = command(path)
                slowest = max(slowest, (deep.seconds, f"{command.__name__} of {nesting.name}, {form}"))
                problem = problem_of(command, form, deep, command(small_path), text)
                if problem:
                    problems.append(f"{DIALECT}, {nesting.name}, {form}: {command.__name__} {problem}")
    print("\n".join(problems) or f"{len(texts())} texts, at most {slowest[0]:.1f} s each ({slowest[1]})")
    return 1 if problems or not texts() else 0


if __name__ == "__main__":
    sys.exit(main())
