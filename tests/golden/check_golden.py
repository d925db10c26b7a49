#!/usr/bin/env python3
"""Holds the golden trees, and those of the corpus, against the trees of the oracle.

A text whose tree the oracle does not know (a reported parser error) is counted as skipped. The exit code is 1 on any
difference.
"""

import sys
from pathlib import Path

TESTS = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TESTS / 'oracle'))
from engine import dialects, oracle_of, with_deep_stack  # pylint: disable=wrong-import-position


def read(path):
    """The text with its line ends as they are."""
    return path.read_bytes().decode('utf-8')


def golden_cases(path):
    """Name, SQL and outline lines of each case of a golden file."""
    lines = read(path).split('\n')
    while lines:
        if lines[0] == '' or lines[0].startswith('#'):
            lines.pop(0)
            continue
        split, end = lines.index('--'), lines.index('==')
        sql = [line for line in lines[1:split] if line != ':error']
        outline = lines[split + 1:end]
        yield f'{path.stem}/{lines[0]}', '\n'.join(sql), outline[:outline.index('--')] if '--' in outline else outline
        del lines[:end + 1]


def corpus_cases(path):
    outline = read(path.with_suffix('.tree')).splitlines()
    yield path.stem, read(path), [line for line in outline if line[0] not in '#:']


def sexpr(outline):
    """The tree in one line; the lines of reports are none of it."""
    lines = [line for line in outline if not line.startswith('! ')]
    depths = [(len(line) - len(line.lstrip(' '))) // 2 for line in lines] + [0]
    parts = []
    for line, depth, following in zip(lines, depths, depths[1:]):
        parts.append('(' * (following > depth) + line.lstrip(' ') + ')' * (depth - following))
    return ' '.join(parts)


def cases(dialect):
    for path in sorted((TESTS / 'golden' / dialect).glob('*.txt')):
        yield from golden_cases(path)
    for path in sorted((TESTS / 'corpus' / dialect).glob('*.sql')):
        yield from corpus_cases(path)


def check(dialect):
    """Prints the differences and the count line; gives the number of differing cases."""
    oracle = oracle_of(dialect)
    compared = skipped = different = 0
    for name, sql, outline in cases(dialect):
        expected = oracle.parse(sql)
        if expected is None:
            skipped += 1
            continue
        compared += 1
        if sexpr(outline) != expected:
            different += 1
            print(f'{dialect}/{name}\n{sql}\noracle: {expected}\ngolden: {sexpr(outline)}\n')
    print(f'{dialect}: {compared} compared, {skipped} skipped, {different} different')
    return different


def main():
    return 1 if sum(map(check, dialects())) else 0


if __name__ == '__main__':
    sys.exit(with_deep_stack(main))
