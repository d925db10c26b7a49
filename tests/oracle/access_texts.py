#!/usr/bin/env python3
"""Random Access query texts, good and broken: `texts(count, seed)` or, as a program, JSON lines of {"id", "sql"}.

A text is made along the dialect's clauses and then, in about half the cases, damaged in one to three places.
"""

import argparse
import json
import random

from access_oracle import (CONFIGURATION_FUNCTION, DATA_TYPE, DATETIME_FUNCTION, KEYWORDS, LITERAL_WORDS,
                           NUMBER_FUNCTION, OPERATORS, OTHER_FUNCTION, STRING_FUNCTION, keyword_text)

FUNCTIONS = [keyword_text(name) for name in
             DATETIME_FUNCTION + NUMBER_FUNCTION + STRING_FUNCTION + OTHER_FUNCTION + CONFIGURATION_FUNCTION]
NAMES = ['a', 'b', 'c', 'x', 'y', 't', 'u', 'Orders', 'T1', '[my col]', '[a.b]', '[]', 'Größe', 'Month', 'day', 'count',
         'Desc', 'Left', '1a', 'd', 'yyyy', 'Date', '_x']
STRINGS = ["'x'", '"x"', "'it''s'", "''", "'a b'", '"*"']
NUMBERS = ['0', '1', '42', '1.5', '.5', '1.5E+3', '1 E 3', '2E-3', 'TRUE', 'False', 'NULL', '1E5', '-1', '+2', '-.5']
DATES = ['#1/2/2000#', '#1/2/2000 10:30#', '#Jan 1, 2000#', '#Jan 1 2000#', '#1/2/2000 10:30:00#', '#2000-01-02#']
COMPARISONS = ['=', '<', '>', '<=', '>=', '<>', '!=', '*=', '=*', 'LIKE', 'IN', 'IS', 'NOT LIKE', 'NOT IN', 'NOT',
               'NOT =']
LOGICAL = ['AND', 'OR', '&&', '||', 'and']
ARITHMETIC = ['+', '-', '*', '/', '%', '^', '&', 'MOD', '| |']
JOINS = ['INNER', 'LEFT', 'RIGHT', 'LEFT OUTER', 'RIGHT OUTER', 'CROSS', 'NATURAL LEFT', 'NATURAL', 'FULL', '', '']
TABLE_HINTS = ['NOLOCK', 'INDEX 1', 'INDEX 1 2', 'HOLDLOCK', 'nolock']
HINTS = ['HASH GROUP', 'ORDER GROUP', 'CONCAT UNION', 'HASH UNION', 'MERGE UNION', 'FAST 5', 'FORCE ORDER', 'MAXDOP 2',
         'KEEP PLAN', 'KEEPFIXED PLAN', 'ROBUST PLAN', 'EXPAND VIEWS', 'LOOP GROUP']
FOR_MODES = ['BROWSE', 'XML RAW', 'XML AUTO . XMLDATA', 'XML EXPLICIT . ELEMENTS . BYNATY base64', 'XML AUTO , RAW']
VOCABULARY = (list(KEYWORDS) + LITERAL_WORDS + [text for text, _ in OPERATORS] * 3 + NAMES + STRINGS + NUMBERS +
              ['(', ')', ',', '.', ';', "'", '"', '[', 'EXPAND VIEWS', 'EXPAND', 'SELECT', 'FROM', 'WHERE', 'NOT', 'AS',
               'AND', 'OR', '@', 'IDENTIFYCOL', 'JOIN', 'ON', 'BETWEEN', 'IN', 'UNION', '\t', '\r\n'])


class Writer:
    """One text. `depth` bounds the nesting of expressions, conditions, sources and subqueries."""

    def __init__(self, rng):
        self.rng = rng

    def pick(self, *makers):
        return self.rng.choice(makers)()

    def chance(self, share, maker):
        return maker() if self.rng.random() < share else ''

    def some(self, maker, separator, most=3):
        count = min(self.rng.randint(1, most), self.rng.randint(1, most))
        return separator.join(maker() for _ in range(count))

    def name(self):
        return self.rng.choice(NAMES if self.rng.random() < .4 else NAMES[:8])

    def column(self):
        parts = self.rng.choices([1, 2, 3, 4, 5], [60, 30, 6, 3, 1])[0]
        separator = self.rng.choice([' . ', ' . ', ' ! '])
        last = '*' if self.rng.random() < .08 else self.name()
        return separator.join([self.name() for _ in range(parts - 1)] + [last])

    def literal(self):
        return self.rng.choice(self.rng.choice([NUMBERS, NUMBERS, STRINGS, DATES]))

    def leaf(self):
        return self.column() if self.rng.random() < .65 else self.literal()

    def expression(self, depth):
        if depth <= 0 or self.rng.random() < .35:
            return self.leaf()
        return self.pick(
            lambda: f'{self.expression(depth - 1)} {self.rng.choice(ARITHMETIC)} {self.expression(depth - 1)}',
            lambda: f'( {self.expression(depth - 1)} )',
            lambda: f'{self.rng.choice("+-")} {self.expression(depth - 1)}',
            lambda: f'NOT {self.expression(depth - 1)}',
            lambda: self.call(depth - 1),
            lambda: self.call(depth - 1),
            lambda: f'( {self.condition(depth - 1)} )',
            lambda: f'( {self.select(depth - 2)} )',
            lambda: f'( {self.some(lambda: self.expression(depth - 1), " , ")} )',
            lambda: f'{self.column()} ( + )')

    def argument(self, depth):
        return self.pick(lambda: self.expression(depth), lambda: self.expression(depth), lambda: self.condition(depth),
                         lambda: '*', lambda: self.rng.choice(['IDENTIFYCOL', 'ROWGUIDCOL', '@ x', '']))

    def arguments(self, depth):
        separator = self.rng.choice([' , ', ' , ', ' , ', ' '])
        return '' if self.rng.random() < .15 else self.some(lambda: self.argument(depth), separator)

    def call(self, depth):
        return self.pick(
            lambda: f'{self.rng.choice(FUNCTIONS)} ( {self.arguments(depth)} )',
            lambda: f'{self.rng.choice(["f", "MyFunc", "1a", "count", "Replace"])} ( {self.arguments(depth)} )',
            lambda: f'{self.rng.choice(["Count", "Sum", "COUNT", "Max"])} ( {self.rng.choice(["*", self.column()])} )',
            lambda: f'IIF ( {self.some(lambda: self.item(depth), " , ")} )',
            lambda: f'{self.rng.choice(["CAST", "CONVERT", "Convert"])} ( {self.expression(depth)} AS {self.type()} )',
            lambda: f'CONVERT ( {self.type()} , {self.expression(depth)} {self.chance(.3, lambda: ", 3")} )',
            lambda: f'EXISTS {self.select(depth - 1)}',
            lambda: f'EXISTS ( {self.select(depth - 1)} )',
            lambda: '{ fn Now ( ) }')

    def type(self):
        size = self.rng.choice(['', '', '( 10 )', '( 8 , 2 )', '( MAX )'])
        return self.rng.choice(DATA_TYPE) + ' ' + size

    def condition(self, depth):
        if depth <= 0:
            return f'{self.leaf()} {self.rng.choice(COMPARISONS)} {self.leaf()}'
        return self.pick(
            lambda: f'{self.expression(depth - 1)} {self.rng.choice(COMPARISONS)} {self.expression(depth - 1)}',
            lambda: f'{self.expression(depth - 1)} {self.rng.choice(COMPARISONS)} {self.expression(depth - 1)}',
            lambda: f'{self.condition(depth - 1)} {self.rng.choice(LOGICAL)} {self.condition(depth - 1)}',
            lambda: f'( {self.condition(depth - 1)} )',
            lambda: f'( {self.condition(depth - 1)} {self.rng.choice(LOGICAL)} {self.condition(depth - 1)} )',
            lambda: f'( {self.condition(depth - 1)} ) {self.rng.choice(COMPARISONS)} {self.expression(depth - 1)}',
            lambda: f'NOT {self.condition(depth - 1)}',
            lambda: self.between(depth),
            lambda: f'( {self.between(depth)} )',
            lambda: f'{self.leaf()} IN ( {self.some(self.leaf, " , ")} )',
            lambda: f'{self.leaf()} IN ( {self.select(depth - 1)} )',
            lambda: f'{self.leaf()} IS {self.chance(.5, lambda: "NOT")} NULL',
            lambda: self.expression(depth - 1))

    def between(self, depth):
        left = self.expression(depth - 1)
        return f'{left} {self.chance(.3, lambda: "NOT")} BETWEEN {self.leaf()} {self.rng.choice(LOGICAL)} {self.leaf()}'

    def item(self, depth):
        body = self.pick(lambda: self.expression(depth), lambda: self.expression(depth), self.column,
                         lambda: self.condition(depth), lambda: '*', lambda: f'{self.name()} . {self.name()} *')
        return body + ' ' + self.alias(.2)

    def alias(self, share):
        return self.chance(share, lambda: self.rng.choice(['AS', 'AS', 'as', '']) + ' ' + self.name())

    def table(self):
        return self.chance(.15, lambda: self.name() + ' . ') + self.name()

    def simple_source(self, depth):
        if depth > 0 and self.rng.random() < .2:
            return f'( {self.select(depth - 1)} ) {self.alias(.7)}'
        return f'{self.table()} {self.alias(.3)}'

    def on(self, depth):
        return self.chance(.85, lambda: 'ON ' + self.some(
            lambda: self.condition(0 if self.rng.random() < .7 else depth), ' ' + self.rng.choice(LOGICAL) + ' ', 2))

    def join(self, depth):
        hint = self.chance(.06, lambda: f'with ( {self.some(lambda: self.rng.choice(TABLE_HINTS), " , ")} )')
        return (f'{self.join_side(depth - 1)} {self.rng.choice(JOINS)} JOIN {self.join_side(depth - 1)} {hint} '
                f'{self.on(depth - 1)}')

    def join_side(self, depth):
        if depth <= 0 or self.rng.random() < .5:
            return self.simple_source(depth)
        return self.pick(lambda: f'( {self.join(depth)} )', lambda: f'( {self.join(depth)} )',
                         lambda: self.join(depth))

    def source(self, depth):
        if depth <= 0 or self.rng.random() < .5:
            return self.simple_source(depth)
        return self.join(depth)

    def clauses(self, depth):
        """The clauses behind WHERE in their order: how often a text has one, and what makes it."""
        return [
            (.12, lambda: 'GROUP BY ' + self.chance(.1, lambda: 'ALL ') +
             self.some(lambda: self.expression(depth - 1), ' , ') +
             self.chance(.15, lambda: self.rng.choice([' with ROLLUP', ' With CUBE', ' WITH CUBE']))),
            (.08, lambda: 'HAVING ' + self.condition(depth - 1)),
            (.15, lambda: 'ORDER BY ' + self.some(lambda: self.ordered(depth - 1), ' , ')),
            (.03, lambda: 'COMPUTE ' + self.some(lambda: self.call(0), ' , ') +
             self.chance(.5, lambda: ' BY ' + self.some(self.column, ' , '))),
            (.03, lambda: 'FOR ' + self.rng.choice(FOR_MODES)),
            (.05, lambda: 'OPTION ' + self.some(lambda: self.rng.choice(HINTS), ' , ')),
            (.07 if depth > 0 else 0,
             lambda: 'UNION ' + self.chance(.4, lambda: 'ALL ') + self.select(depth - 1)),
        ]

    def ordered(self, depth):
        return self.item(depth) + ' ' + self.rng.choice(['', '', 'ASC', 'DESC'])

    def select(self, depth):
        parts = [
            'SELECT',
            self.chance(.12, lambda: self.rng.choice(['ALL', 'DISTINCT', 'DISTINCTROW', ''])),
            self.chance(.1, lambda: self.rng.choice(['TOP 5', 'TOP ( 10 )', 'TOP 5 PERCENT', 'TOP 3 WITHTIES'])),
            self.some(lambda: self.item(depth), ' , '),
            self.chance(.85, lambda: 'FROM ' + self.some(lambda: self.source(depth), ' , ', 2)),
            self.chance(.4, lambda: 'WHERE ' + self.condition(depth)),
            *(self.chance(share, maker) for share, maker in self.clauses(depth)),
            self.chance(.05, lambda: ';'),
        ]
        return ' '.join(part for part in parts if part)


def damage(rng, tokens):
    """The tokens with one of them dropped, doubled, swapped, replaced or a new one put before it."""
    at = rng.randrange(len(tokens))
    kind = rng.randrange(6)
    if kind == 0:
        return tokens[:at] + tokens[at + 1:] or tokens
    if kind == 1:
        return tokens[:at] + [tokens[at]] + tokens[at:]
    if kind == 2:
        return tokens[:at] + tokens[at:at + 2][::-1] + tokens[at + 2:]
    if kind == 3:
        return tokens[:at] + [rng.choice(VOCABULARY)] + tokens[at + 1:]
    if kind == 4:
        return tokens[:at + 1] if at > 1 else tokens
    return tokens[:at] + [rng.choice(VOCABULARY)] + tokens[at:]


def change_case(rng, token):
    return rng.choice([token.lower, token.upper, token.title])() if token.isascii() else token


def spaced(rng, tokens):
    """The tokens as one text; a blank is left out at times where it parts no words."""
    text = ''
    for token in tokens:
        words_meet = text and (text[-1].isalnum() or text[-1] in '_$') and (token[0].isalnum() or token[0] in '_$')
        text += (' ' if words_meet or rng.random() < .7 else '') + token
    return text.strip()


def whole(writer):
    """A text of all clauses, or a deep one of a single clause."""
    depth = writer.rng.choice([1, 2, 2, 3])
    return writer.pick(
        lambda: writer.select(depth - 1),
        lambda: writer.select(depth),
        lambda: f'SELECT {writer.some(lambda: writer.item(depth), " , ")} FROM t',
        lambda: f'SELECT {writer.some(lambda: writer.call(depth), " , ")} FROM t',
        lambda: f'SELECT a FROM {writer.some(lambda: writer.source(depth + 1), " , ", 2)}',
        lambda: f'SELECT a FROM t WHERE {writer.condition(depth)}',
        lambda: f'SELECT a FROM t {writer.pick(*(maker for _, maker in writer.clauses(depth)))}')


def text(rng):
    """One text of usually 3 to 40 tokens."""
    while True:
        tokens = whole(Writer(rng)).split()
        if len(tokens) <= 40 or rng.random() < .03:
            break
    if rng.random() < .55:
        for _ in range(rng.choice([1, 1, 1, 2, 3])):
            tokens = damage(rng, tokens)
    if rng.random() < .15:
        tokens = [change_case(rng, token) if rng.random() < .3 else token for token in tokens]
    return spaced(rng, tokens)


def texts(count, seed):
    rng = random.Random(seed)
    for _ in range(count):
        yield text(rng)


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument('--count', type=int, default=100)
    options.add_argument('--seed', type=int, default=1)
    chosen = options.parse_args()
    for number, sql in enumerate(texts(chosen.count, chosen.seed)):
        print(json.dumps({'id': number, 'sql': sql}))


if __name__ == '__main__':
    main()
