#!/usr/bin/env python3
"""Times sqlglot: JSON {"dialect", "queries": {name: text}} in, {name: microseconds} of what it accepts out."""

import json
import sys
import time

import sqlglot

NAMES = {"mssql": "tsql", "mysql": "mysql", "oracle": "oracle"}


def best_of(parse, runs: int = 5) -> float:
    times = []
    for _ in range(runs):
        begin = time.perf_counter_ns()
        parse()
        times.append(time.perf_counter_ns() - begin)
    return min(times) / 1000


def main() -> None:
    task = json.load(sys.stdin)
    name = NAMES.get(task["dialect"])
    times = {}
    for query, text in task["queries"].items() if name else ():
        try:
            sqlglot.parse_one(text, read=name)
        except Exception:  # whatever it raises, it does not accept the text
            continue
        times[query] = best_of(lambda text=text: sqlglot.parse_one(text, read=name))
    json.dump(times, sys.stdout)


main()
