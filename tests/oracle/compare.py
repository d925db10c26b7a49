#!/usr/bin/env python3
"""Compares the trees, checks and tokens of `qzsql batch` with those of the oracle, on random texts or on a file of them.

A text whose tree the oracle does not know (a reported parser error) is skipped as a tree; its check and tokens are
compared. The exit code is 1 on any difference.
"""

import argparse
import json
import subprocess
import sys

from engine import dialects, oracle_of, token_lines, with_deep_stack
from random_texts import texts as random_texts

SHOWN = 10


def read_texts(path):
    with open(path, encoding='utf-8') as lines:
        return [json.loads(line)['sql'] for line in lines if line.strip()]


def run_batch(qzsql, dialect, emit, texts):
    """The records of `qzsql batch`, one for each text."""
    lines = ''.join(json.dumps({'id': number, 'sql': sql}) + '\n' for number, sql in enumerate(texts))
    run = subprocess.run([qzsql, 'batch', '-d', dialect, '--emit', emit], input=lines, stdout=subprocess.PIPE,
                         encoding='utf-8', check=False)
    records = [json.loads(line) for line in run.stdout.split('\n') if line]
    if run.returncode not in (0, 1) or [record.get('id') for record in records] != list(range(len(texts))):
        sys.exit(f'{qzsql} batch --emit {emit}: exit code {run.returncode}, {len(records)} records for '
                 f'{len(texts)} texts, or not in order')
    return records


def differences(reading, lines, tree_record, check_record, token_record):
    """Pairs of what the oracle and what the program gave, where they differ."""
    if reading.tree is not None and tree_record.get('tree') != reading.tree:
        yield reading.tree, tree_record.get('tree', json.dumps(tree_record))
    if check_record.get('status') != reading.status:
        yield reading.status, json.dumps(check_record)
    if token_record.get('tokens') != lines:
        yield ' '.join(lines), ' '.join(token_record.get('tokens') or [json.dumps(token_record)])


def compare(qzsql, dialect, texts):
    """Prints the first differences and the count line; gives the number of differing texts."""
    oracle = oracle_of(dialect)
    skipped = different = 0
    for sql, *records in zip(texts, *(run_batch(qzsql, dialect, emit, texts) for emit in ('tree', 'check', 'tokens'))):
        reading = oracle.read(sql)
        skipped += reading.tree is None
        found = list(differences(reading, token_lines(oracle.lex(sql)), *records))
        different += bool(found)
        if different <= SHOWN:
            for expected, given in found:
                print(f'text:   {json.dumps(sql, ensure_ascii=False)}\noracle: {expected}\nqzsql:  {given}\n')
    print(f'{len(texts) - skipped} compared, {skipped} skipped, {different} different')
    return different


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument('--qzsql', required=True, help='the program')
    options.add_argument('--dialect', choices=dialects(), default='access')
    options.add_argument('--count', type=int, default=1000, help='number of random texts')
    options.add_argument('--seed', type=int, default=1)
    options.add_argument('--file', help='texts to compare instead: JSON lines with a member "sql"')
    chosen = options.parse_args()
    dialect = chosen.dialect
    texts = read_texts(chosen.file) if chosen.file else list(random_texts(dialect, chosen.count, chosen.seed))
    return 1 if with_deep_stack(lambda: compare(chosen.qzsql, dialect, texts)) else 0


if __name__ == '__main__':
    sys.exit(main())
