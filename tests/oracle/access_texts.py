"""Random Access query texts, made along the dialect's clauses."""

import random_texts
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


class Writer(random_texts.Writer):
    """`depth` bounds the nesting of expressions, conditions, sources and subqueries."""

    VOCABULARY = VOCABULARY

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

    def whole(self):
        """A text of all clauses, or a deep one of a single clause."""
        depth = self.rng.choice([1, 2, 2, 3])
        return self.pick(
            lambda: self.select(depth - 1),
            lambda: self.select(depth),
            lambda: f'SELECT {self.some(lambda: self.item(depth), " , ")} FROM t',
            lambda: f'SELECT {self.some(lambda: self.call(depth), " , ")} FROM t',
            lambda: f'SELECT a FROM {self.some(lambda: self.source(depth + 1), " , ", 2)}',
            lambda: f'SELECT a FROM t WHERE {self.condition(depth)}',
            lambda: f'SELECT a FROM t {self.pick(*(maker for _, maker in self.clauses(depth)))}')
