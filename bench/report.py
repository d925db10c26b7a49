#!/usr/bin/env python3
"""Runs the benchmarks of the recognizers and the peers that are there, prints one table, and writes it as JSON and as a
picture.

    report.py QZ_BENCH OUTPUT_FOLDER [ARGUMENT OF GOOGLE BENCHMARK]...
"""

import json
import math
import os
import subprocess
import sys
import tempfile
from collections import defaultdict
from pathlib import Path

BENCH = Path(__file__).resolve().parent
CORPUS = BENCH.parent / "tests" / "corpus"
DIALECTS = ["access", "mssql", "mysql", "oracle"]
STAGES = ["lex_us", "parse_us", "free_us", "walk_us", "free_views_us"]
PEERS = {
    "sqlglot": [["python3", BENCH / "peer_sqlglot.py"], ["/usr/bin/python3", BENCH / "peer_sqlglot.py"]],
    "node-sql-parser": [["node", BENCH / "peer_node_sql_parser.js"]],
}


def run_bench(program: str, arguments: list[str]) -> list[dict]:
    with tempfile.NamedTemporaryFile(suffix=".json") as out:
        subprocess.run([program, f"--benchmark_out={out.name}", "--benchmark_out_format=json",
                        "--benchmark_filter=^(Corpus|Large|Memory|Query|PgQuery|Growth|Model)/", *arguments],
                       check=True, stdout=subprocess.DEVNULL)
        return [row for row in json.loads(Path(out.name).read_text())["benchmarks"] if row["run_type"] == "iteration"]


def microseconds(row: dict) -> float:
    return row["cpu_time"] * {"ns": 1e-3, "us": 1, "ms": 1e3, "s": 1e6}[row["time_unit"]]


def best(rows: list[dict], kind: str) -> dict[str, dict[str, float]]:
    """Microseconds by dialect and query."""
    times: dict[str, dict[str, float]] = defaultdict(dict)
    for row in rows:
        parts = row["name"].split("/")
        if parts[0] != kind:
            continue
        dialect, query = parts[1], parts[2]
        times[dialect][query] = min(times[dialect].get(query, math.inf), microseconds(row))
    return times


def counters(rows: list[dict], name: str) -> dict:
    return next((row for row in rows if row["name"].split("/iterations")[0] == name), {})


def exponent(points: list[tuple[float, float]]) -> float:
    """The slope of the straight line through the logarithms."""
    logarithms = [(math.log(x), math.log(y)) for x, y in points]
    mean_x, mean_y = (sum(values) / len(logarithms) for values in zip(*logarithms))
    return (sum((x - mean_x) * (y - mean_y) for x, y in logarithms)
            / sum((x - mean_x) ** 2 for x, _ in logarithms))


def growth(rows: list[dict], dialect: str) -> dict[str, dict]:
    points: dict[str, list[tuple[float, float]]] = defaultdict(list)
    for row in rows:
        parts = row["name"].split("/")
        if parts[:2] == ["Growth", dialect]:
            points[parts[2]].append((float(parts[3]), microseconds(row)))
    return {shape: {"points": sorted(at), "exponent": exponent(at),
                    "worst_doubling": max(b[1] / a[1] for a, b in zip(sorted(at), sorted(at)[1:]))}
            for shape, at in points.items()}


def peer_times(peer: str, dialect: str, names: list[str], texts: dict[str, str]) -> dict[str, float] | None:
    environment = {**os.environ, "NODE_PATH": os.environ.get("NODE_PATH", str(BENCH.parent / "build/peers/node_modules"))}
    task = json.dumps({"dialect": dialect, "queries": {name: texts[name] for name in names}})
    for command in PEERS[peer]:
        try:
            run = subprocess.run([str(part) for part in command], input=task, capture_output=True, text=True, check=True,
                                 env=environment)
            return json.loads(run.stdout)
        except (OSError, subprocess.CalledProcessError):
            continue
    return None


def ratio(peer: dict[str, float], ours: dict[str, float]) -> dict | None:
    """The peer's time to ours on the queries that both accept."""
    shared = [name for name in peer if name in ours]
    if not shared:
        return None
    theirs, own = sum(peer[name] for name in shared), sum(ours[name] for name in shared)
    return {"queries": len(shared), "peer_us": theirs / len(shared), "own_us": own / len(shared), "ratio": theirs / own}


def ratios(dialect: str, own: dict[str, float], pg_query: dict[str, float], common: str) -> dict:
    texts = {path.stem: path.read_text() for path in (CORPUS / dialect).glob("*.sql")} | {"common": common}
    found: dict = {"libpg_query": ratio(pg_query, own) if pg_query else "missing"}
    if "common" in pg_query:
        found["libpg_query, common query"] = ratio({"common": pg_query["common"]}, own)
    for peer in PEERS:
        times = peer_times(peer, dialect, list(own), texts)
        found[peer] = "missing" if times is None else ratio(times, own) or "none in common"
    return found


def measured(rows: list[dict], common: str) -> dict:
    own, pg_query = best(rows, "Query"), best(rows, "PgQuery")
    table = {}
    for dialect in DIALECTS:
        corpus, large = counters(rows, f"Corpus/{dialect}"), counters(rows, f"Large/{dialect}")
        table[dialect] = {
            "corpus": {key: corpus.get(key) for key in [*STAGES, "whole_us", "characters_a_query", "characters_a_second"]},
            "large": {key: large.get(key) for key in [*STAGES, "whole_us", "characters_a_second"]},
            "memory": {what: {key: counters(rows, f"Memory/{what}/{dialect}").get(key) for key in ["bytes", "bytes_a_token"]}
                       for what in ["query", "large"]},
            "common_us": own[dialect].get("common"),
            "peers": ratios(dialect, own[dialect], pg_query[dialect], common),
            "growth": growth(rows, dialect),
        }
    model = counters(rows, "Model/access")
    table["access"]["model"] = {key: model.get(key) for key in ["parse_us", "build_us", "resolution_us"]}
    return table


# -------------------------------------------------------------------------------------------------------------- output

def shown(value: float | None, digits: int = 1) -> str:
    return "-" if value is None else f"{value:.{digits}f}"


def text_table(table: dict) -> str:
    lines = [f"{'':34}" + "".join(f"{dialect:>12}" for dialect in DIALECTS)]

    def row(title: str, value) -> None:
        lines.append(f"{title:34}" + "".join(f"{value(table[dialect]):>12}" for dialect in DIALECTS))

    titles = {"lex_us": "lexing", "parse_us": "parsing", "free_us": "freeing", "whole_us": "whole",
              "walk_us": "view walk", "free_views_us": "freeing the views"}
    for part, name in [("corpus", "a query of the corpus"), ("large", "a text of 200 KB")]:
        lines.append(f"{name}, microseconds")
        for key, title in titles.items():
            row("  " + title, lambda d, part=part, key=key: shown(d[part][key]))
        row("  million characters a second",
            lambda d, part=part: shown(d[part]["characters_a_second"] and d[part]["characters_a_second"] / 1e6))
    row("characters a query of the corpus", lambda d: shown(d["corpus"]["characters_a_query"], 0))
    row("common query, microseconds", lambda d: shown(d["common_us"]))
    row("memory of the common query, KB", lambda d: shown((d["memory"]["query"]["bytes"] or 0) / 1000))
    row("memory a token, 200 KB, bytes", lambda d: shown(d["memory"]["large"]["bytes_a_token"], 0))
    lines.append("peers: their time / ours")
    for peer in table["access"]["peers"]:
        row("  " + peer, lambda d, peer=peer: f"{d['peers'][peer]['ratio']:.1f} ({d['peers'][peer]['queries']})"
            if isinstance(d["peers"].get(peer), dict) else "-")
    lines += [f"  {peer}: missing" for peer in table["access"]["peers"]
              if all(table[dialect]["peers"].get(peer) == "missing" for dialect in DIALECTS)]
    lines.append("growth: exponent (worst doubling)")
    for shape in table["access"]["growth"]:
        row("  " + shape, lambda d, shape=shape: f"{d['growth'][shape]['exponent']:.2f} ({d['growth'][shape]['worst_doubling']:.2f})")
    model = table["access"]["model"]
    lines.append("model of MS Access, microseconds: " + ", ".join(f"{key[:-3]} {shown(value)}" for key, value in model.items()))
    return "\n".join(lines)


COLOURS = {"lex_us": "#4c78a8", "parse_us": "#f58518", "free_us": "#bab0ac", "walk_us": "#54a24b", "free_views_us": "#b3d9ae"}


def svg(table: dict) -> str:
    longest = max(sum(table[d]["corpus"][s] or 0 for s in STAGES) for d in DIALECTS)
    parts = ['<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 720 250" font-family="sans-serif" font-size="13">',
             '<text x="10" y="22">Microseconds a query of the corpus</text>']
    for i, dialect in enumerate(DIALECTS):
        x, y = 90.0, 40 + 42 * i
        parts.append(f'<text x="10" y="{y + 20}">{dialect}</text>')
        for stage in STAGES:
            width = 540 * (table[dialect]["corpus"][stage] or 0) / longest
            parts.append(f'<rect x="{x:.1f}" y="{y}" width="{width:.1f}" height="28" fill="{COLOURS[stage]}"/>')
            x += width
        parts.append(f'<text x="{x + 6:.1f}" y="{y + 20}">{sum(table[dialect]["corpus"][s] for s in STAGES):.1f}</text>')
    for i, (stage, name) in enumerate(zip(STAGES, ["lexing", "parsing", "freeing", "view walk", "freeing the views"])):
        parts.append(f'<rect x="{90 + 118 * i}" y="220" width="12" height="12" fill="{COLOURS[stage]}"/>')
        parts.append(f'<text x="{106 + 118 * i}" y="231">{name}</text>')
    return "\n".join([*parts, "</svg>\n"])


def main() -> None:
    program, folder, *arguments = sys.argv[1:]
    common = subprocess.run([program, "--common-query"], capture_output=True, text=True, check=True).stdout
    table = measured(run_bench(program, arguments), common)
    print(text_table(table))
    Path(folder, "measure.json").write_text(json.dumps(table, indent=1) + "\n")
    Path(folder, "measure.svg").write_text(svg(table))


main()
