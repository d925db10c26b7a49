#!/usr/bin/env python3
"""Writes what fuzzing begins with: make_seeds.py QZSQL FOLDER. Each target has a folder there."""
import sqlite3
import struct
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent

# In the order in which the first byte of an input chooses them.
GRAMMARS = ["access", "mssql", "mssql-from", "mysql", "oracle"]
WITH_MODELS = ["access", "mssql", "mysql", "oracle"]

# Lines are queries; those behind the first are q1, q2, ...
BUILDS = """SELECT a, u.c FROM t INNER JOIN u ON t.a = u.a
SELECT * FROM q1~SELECT t.*, x AS y FROM t
SELECT q1.n, Sum(k) FROM q1 GROUP BY q1.n HAVING Sum(k) > 1~SELECT a AS n, c AS k FROM q2~SELECT t.a, u.c FROM t, u
SELECT y FROM (SELECT a AS y FROM t UNION SELECT c FROM u) AS s ORDER BY y
SELECT a FROM t WHERE EXISTS (SELECT c FROM q1 WHERE q1.a = t.a)~SELECT * FROM u
SELECT IIf(t.a = 1, b, x) AS d, d + 1 AS e FROM t ORDER BY e DESC
SELECT * FROM q1~SELECT * FROM q2~SELECT * FROM q1"""

STORE_LINES = """DBType=2
[Options
MaxThreads=2
]
[Common
SchemaName:dbo
]
[Queries
[Query1
[Common
SrcName:q
SQL:SELECT ID FROM Orders
]
]
]
[Tables
[Table1
[Options
CopyStructure=0
]
[Common
SrcName:Orders
]
[Fields
[Field1
[Common
SrcName:ID
Type:INTEGER
Length=4
]
]
]
[Indexes
[Index1
[Common
SrcName:PK
Primary=1
]
[Columns
[Column1
Field:ID
]
]
]
]
[ForeignKeys
[ForeignKey1
[Common
SrcName:FK
ReferencedTable:Orders
]
[Columns
[Column1
Field:ID
Referenced:ID
]
]
]
]
[Filter
DBType=2
[Condition1
FieldID:ID
Condition=3
ConditionAdd=1
[Value
Type=2
Value:100
]
]
]
]
]
"""


def text_seeds(dialect):
    return [path.read_bytes() for path in sorted((ROOT / "tests" / "corpus" / dialect).glob("*.sql"))]


def value_seeds():
    head = lambda kind, how: bytes([kind + 1, how])  # noqa: E731
    end = b"\\.\x00"
    values = [head(1, 0) + b"caf\xe9" + end]
    values += [head(2, 1) + bytes([encoding + 1]) + "Gr\u00f6\u00dfe \u20ac".encode() + end for encoding in range(-1, 41)]
    values += [head(3, 1) + b"\x02" + number + end for number in [b"1,5e3", b"-0.25", b"99999999999999999999", b"nan"]]
    values += [head(5, 1) + b"\x08" + date + end for date in [b"2024-02-29 23:59:59", b"2/29/2024 1:05 PM", b"1-Mar-1899"]]
    values += [head(2, 2) + b"\xff" + "\u0416\ud7ff".encode("utf-16-le") + end]
    values += [head(3, 3) + struct.pack("<d", number) + b"\x00" for number in [1.5, -1e308, float("nan"), float("inf")]]
    values += [head(1, 4) + struct.pack("<q", number) + b"\x01bin" + end for number in [-1, 2**31, -2**63]]
    values += [head(4, 5) + struct.pack("<d", days) + b"\x00\x00" for days in [0, -1.25, 45000.5, 2958465.99999, 1e300]]
    pairs = zip(values, values[1:] + values[:1])
    return [bytes([number % 43]) + one + other for number, (one, other) in enumerate(pairs)]


def store_file(qzsql, folder):
    """A store made by the program itself, on pages that are small enough for a fuzzer."""
    source, store = folder / "shop.db", folder / "shop.qzc"
    for path in (source, store):
        path.unlink(missing_ok=True)
    database = sqlite3.connect(source)
    database.executescript((ROOT / "examples" / "shop.sql").read_text())
    database.close()
    for arguments in [["init", store, "-d", "access"], ["import", "--sqlite", source, store],
                      ["filter", store, "Orders", "Amount", ">=", "100"]]:
        subprocess.run([qzsql, "catalog", *map(str, arguments)], check=True, stdout=subprocess.DEVNULL)
    database = sqlite3.connect(store)
    database.execute("PRAGMA page_size = 512")
    database.execute("VACUUM")
    database.close()
    return store.read_bytes()


def write(folder, seeds):
    folder.mkdir(parents=True, exist_ok=True)
    for number, seed in enumerate(seeds):
        (folder / str(number)).write_bytes(seed)


def main():
    qzsql, out = sys.argv[1], Path(sys.argv[2])
    out.mkdir(parents=True, exist_ok=True)
    of_dialect = {dialect: text_seeds(dialect) for dialect in GRAMMARS}
    for dialect, seeds in of_dialect.items():
        write(out / dialect.replace("-", "_"), seeds)
    for target, dialects in [("differential", GRAMMARS), ("model", WITH_MODELS)]:
        write(out / target, [bytes([i]) + seed for i, dialect in enumerate(dialects) for seed in of_dialect[dialect]])
    write(out / "build", [line.replace("~", "\n").encode() for line in BUILDS.splitlines()]
          + [seed.replace(b"\n", b" ") for seed in of_dialect["access"]])
    write(out / "value", value_seeds())
    write(out / "store", [STORE_LINES.encode(), store_file(qzsql, out)])


main()
