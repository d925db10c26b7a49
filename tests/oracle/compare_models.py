#!/usr/bin/env python3
"""Compares the models of MS Access queries that `qzsql batch` gives with those of the second walker.

The texts are random ones, those of the golden cases, and those of the corpus. The second walker takes the trees from
qzsql. The exit code is 1 on any difference.
"""

import argparse
import json
import sys
from pathlib import Path

from access_models import model, text_read
from compare import SHOWN, run_batch
from engine import with_deep_stack
from random_texts import texts as random_texts

TESTS = Path(__file__).resolve().parent.parent


def written_texts():
    """The texts of the corpus and of the golden cases."""
    for path in sorted((TESTS / 'corpus' / 'access').glob('*.sql')):
        yield path.read_bytes().decode()
    for path in sorted((TESTS / 'golden' / 'access').glob('*.txt')):
        lines = path.read_bytes().decode().split('\n')
        while lines:
            if lines[0] == '' or lines[0].startswith('#'):
                lines.pop(0)
                continue
            yield '\n'.join(line for line in lines[1:lines.index('--')] if line != ':error')
            del lines[:lines.index('==') + 1]


def compare(qzsql, texts):
    different = 0
    trees = run_batch(qzsql, 'access', 'tree', [text_read(sql) for sql in texts])
    models = run_batch(qzsql, 'access', 'model', texts)
    for sql, tree, record in zip(texts, trees, models):
        expected = model(sql, tree['tree'])
        if record.get('model') == expected:
            continue
        different += 1
        if different <= SHOWN:
            print(f'text:   {json.dumps(sql, ensure_ascii=False)}\nwalker: {json.dumps(expected, ensure_ascii=False)}\n'
                  f'qzsql:  {json.dumps(record, ensure_ascii=False)}\n')
    print(f'{len(texts)} compared, {different} different')
    return different


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument('--qzsql', required=True, help='the program')
    options.add_argument('--count', type=int, default=1000, help='number of random texts')
    options.add_argument('--seed', type=int, default=1)
    chosen = options.parse_args()
    texts = list(written_texts()) + list(random_texts('access', chosen.count, chosen.seed))
    return 1 if with_deep_stack(lambda: compare(chosen.qzsql, texts)) else 0


if __name__ == '__main__':
    sys.exit(main())
