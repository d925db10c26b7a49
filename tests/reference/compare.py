#!/usr/bin/env python3
"""Compares what two builds of the recognizers make of the same texts (record.cpp, texts.py), byte by byte.

    compare.py PLAIN_RECORD RECORD COUNT SEED [DIALECT]...
"""

import subprocess
import sys
from pathlib import Path

TEXTS = Path(__file__).resolve().parent / "texts.py"
GRAMMARS = {"access": "MSAccessSQL_v3", "mssql": "MSSQL", "mssql-from": "MSSQLfrom", "mysql": "MySQLSelect",
            "oracle": "Oracle"}


def record(program: str, dialect: str, texts: bytes, *more: str) -> list[str]:
    run = subprocess.run([program, GRAMMARS[dialect], *more], input=texts, capture_output=True, check=False)
    if run.returncode != 0:
        print(f"{program} ended with code {run.returncode}: {run.stderr.decode(errors='replace')[-300:]}")
    return run.stdout.decode(errors="replace").splitlines()


def differing(plain: str, other: str, dialect: str, count: str, seed: str) -> int:
    texts = subprocess.run([sys.executable, TEXTS, dialect, count, seed], capture_output=True, check=True).stdout
    expected, found = record(plain, dialect, texts), record(other, dialect, texts)
    numbers = [i for i, lines in enumerate(zip(expected, found)) if lines[0] != lines[1]]
    print(f"{dialect}: {len(expected)} texts, {len(numbers)} differ")
    for number in numbers[:3]:
        print("    " + repr(texts.split(b"\0")[number].decode()))
    return len(numbers) + abs(len(expected) - len(found)) + (0 if expected else 1)


def main() -> None:
    plain, other, count, seed, *dialects = sys.argv[1:]
    sys.exit(sum(differing(plain, other, dialect, count, seed) for dialect in dialects or GRAMMARS) > 0)


main()
