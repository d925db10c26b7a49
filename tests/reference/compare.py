#!/usr/bin/env python3
"""Compares what two builds of the recognizers make of the same texts (record.cpp, texts.py), byte by byte, and what the
second makes of them in different orders.

    compare.py PLAIN_RECORD RECORD COUNT SEED [DIALECT]...
"""

import random
import subprocess
import sys
from pathlib import Path

TEXTS = Path(__file__).resolve().parent / "texts.py"
GRAMMARS = {"access": "MSAccessSQL_v3", "mssql": "MSSQL", "mssql-from": "MSSQLfrom", "mysql": "MySQLSelect",
            "oracle": "Oracle"}
FRESH = 100


def record(program: str, dialect: str, texts: list[bytes]) -> list[str]:
    """The digests, one for each text as far as the program came."""
    run = subprocess.run([program, GRAMMARS[dialect]], input=b"".join(text + b"\0" for text in texts),
                         capture_output=True, check=False)
    if run.returncode != 0:
        print(f"{program} ended with code {run.returncode}: {run.stderr.decode(errors='replace')[-300:]}")
    return [line.split()[1] for line in run.stdout.decode().splitlines()]


def texts_of(dialect: str, count: str, seed: str) -> list[bytes]:
    made = subprocess.run([sys.executable, TEXTS, dialect, count, seed], capture_output=True, check=True).stdout
    return made.split(b"\0")[:-1]


def tell(dialect: str, what: str, expected: list[str], found: list[str], texts: list[bytes]) -> int:
    differ = [text for text, one, other in zip(texts, expected, found) if one != other]
    print(f"{dialect}, {what}: {len(found)} texts, {len(differ)} differ")
    for text in differ[:3]:
        print("    " + repr(text.decode()))
    return len(differ) + (len(expected) != len(texts)) + (len(found) != len(texts)) + (not texts)


def differing(plain: str, other: str, dialect: str, count: str, seed: str) -> int:
    texts = texts_of(dialect, count, seed)
    expected, found = record(plain, dialect, texts), record(other, dialect, texts)
    # What a text gives depends on no text before it: in another order, and each alone in a process.
    order = list(range(len(texts)))
    random.Random(seed).shuffle(order)
    shuffled = record(other, dialect, [texts[i] for i in order])
    some = order[:FRESH]
    fresh = [digest for i in some for digest in record(other, dialect, [texts[i]])]
    return (tell(dialect, "against the plain ones", expected, found, texts)
            + tell(dialect, "in another order", [found[i] for i in order], shuffled, [texts[i] for i in order])
            + tell(dialect, "each in a process of its own", [found[i] for i in some], fresh, [texts[i] for i in some]))


def main() -> None:
    plain, other, count, seed, *dialects = sys.argv[1:]
    sys.exit(sum(differing(plain, other, dialect, count, seed) for dialect in dialects or GRAMMARS) > 0)


main()
