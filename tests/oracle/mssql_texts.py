"""Random MS SQL query texts, made along the dialect's clauses."""

import random_texts
from mssql_oracle import (CONFIGURATION_FUNCTION, DATA_TYPE, DATE_PART, DATETIME_FUNCTION, GROUP_FUNCTION, KEYWORDS,
                          LITERAL_WORDS, LITERALS_WITH_BLANK, NUMBER_FUNCTION, OPERATORS, STRING_FUNCTION,
                          SYSTEM_VARIABLES, TABLE_HINT, keyword_text)


def texts_of(tokens):
    return [keyword_text(token.strip("'")) for token in tokens]


DATE_PARTS = texts_of(DATE_PART)
FUNCTIONS = texts_of(NUMBER_FUNCTION + STRING_FUNCTION + CONFIGURATION_FUNCTION) + ['ISNULL', 'IsNull']
NAMES = ['a', 'b', 'c', 'x', 'y', 't', 'u', 'Orders', 'T1', '[my col]', '[a.b]', '[]', '[a]]b]', '"q n"', '"a""b"',
         '`b t`', '`a``b`', 'Größe', 'month', 'Day', 'now', 'GetDate', 'a-1', 'a#', '?p', '!x', '_x', 'k', 'z', 'EXP',
         'Power', 'remote'] + DATE_PARTS
UNFINISHED = ['[', '"', '`', '[a', "'x", '"a']
STRINGS = ["'x'", "N'x'", "n'x'", "'it''s'", "''", "'a b'", "'*'", "' , '", "N'a - 1'", "'ä'", "'1/2/2000'",
           "'1 / 2 / 3'", "'Jan 1, 2000'", "'Jan 1 2000'", "'Jan -1 2'", "'1/2/2000 10'", "'2000-01-02'", "'NULL/1/.5'"]
NUMBERS = ['0', '1', '42', '1.5', '.5', '1E+5', '1E5', '1E-5', '1.5 E + 3', '2 E - - 3', '1 E 3', 'NULL', 'NOT NULL',
           '- 1', '+ 2', '- .5', '12abc']
COMPARISONS = ['=', '=', '=', '<', '>', '<=', '>=', '<>', '!=', '*=', '=*', 'LIKE', 'IN', 'IS', 'NOT', 'NOT LIKE']
LOGICAL = ['AND', 'OR', '&&', '||', 'and']
ARITHMETIC = ['+', '-', '*', '/', '%', '&', '|', '| |']
JOIN_TYPES = ['INNER', 'LEFT', 'RIGHT', 'FULL', 'LEFT OUTER', 'RIGHT OUTER', 'FULL OUTER', 'CROSS', 'INNER LOOP',
              'LEFT hash', 'LEFT HASH', 'FULL OUTER merge', 'INNER Remote', 'CROSS OUTER', '', '', '']
TABLE_HINTS = texts_of(TABLE_HINT) + ['INDEX 1', 'INDEX 1 2', 'nolock', 'INDEX']
HINTS = ['HASH GROUP', 'ORDER GROUP', 'CONCAT UNION', 'HASH UNION', 'MERGE UNION', 'FAST 5', 'FORCE ORDER', 'MAXDOP 2',
         'KEEP PLAN', 'KEEPFIXED PLAN', 'ROBUST PLAN', 'EXPAND VIEWS', 'LOOP GROUP', 'hash GROUP', 'MERGE GROUP']
FOR_MODES = ['BROWSE', 'XML RAW', 'XML AUTO . XMLDATA', 'XML EXPLICIT . ELEMENTS . BYNATY base64',
             'XML RAW . XMLDATA . ELEMENTS', 'XML AUTO . BYNATY base64', 'XML AUTO , RAW', 'XML']
PIECES = ([literal[:cut] for literal in LITERALS_WITH_BLANK.values() for cut in range(3, len(literal) + 1)] +
          [name[:cut] for name in SYSTEM_VARIABLES for cut in (2, 4, len(name) - 1, len(name))] +
          [chr(code) for code in range(1, 127)] +
          ['\u00e4', '\u20ac', '\ufffe', '\U0001f600', 'SET', 'EXPAND', 'BYNATY', '@@'])
# One word or sign in every place.
FRAMES = ['SELECT {}', 'SELECT {} a', 'SELECT a {}', 'SELECT a {} b', 'SELECT {} ( a )', 'SELECT {} ( + )',
          'SELECT {} . a', 'SELECT a . {}', 'SELECT a . b . {}', 'SELECT {} . f ( a )', 'SELECT a . {} ( b )',
          'SELECT a AS {}', 'SELECT - {}', 'SELECT a * - {}', 'SELECT + {}', 'SELECT 1 {} 2', 'SELECT ( {} )',
          'SELECT ( {} ( a ) )', 'SELECT f ( {} )', 'SELECT f ( {} , a )', 'SELECT f ( a {} b )',
          'SELECT YEAR ( {} )', 'SELECT YEAR ( {} , a )', 'SELECT COUNT ( {} )', 'SELECT COUNT {}',
          'SELECT COUNT ( {} a )', 'SELECT CAST ( a AS {} )', 'SELECT CONVERT ( {} , a )',
          'SELECT CONVERT ( int , a , {} )', 'SELECT CAST ( a AS char ( {} ) )', 'SELECT CASE {} WHEN a THEN b END',
          'SELECT CASE WHEN {} THEN b END', 'SELECT CASE WHEN a = 1 {} 2 END', 'SELECT {{ fn {} ( a ) }}',
          'SELECT {{ fn UCASE ( {} ) }}', 'SELECT EXISTS {}', 'SELECT [ {} ]', 'SELECT " {} "', "SELECT ' {} '",
          "SELECT ' {} 1 2 '", "SELECT ' 1 / {} / 3 '", 'SELECT TOP {} a', 'SELECT TOP 5 {} a', '{}', '( {} a',
          'SELECT a FROM {}', 'SELECT a FROM {} . b', 'SELECT a FROM b . {}', 'SELECT a FROM t {} u',
          'SELECT a FROM t {}', 'SELECT a FROM t AS {}', 'SELECT a FROM ( SELECT b ) {}', 'SELECT a FROM t , {}',
          'SELECT a FROM t {} JOIN u', 'SELECT a FROM t INNER {} JOIN u', 'SELECT a FROM t JOIN {}',
          'SELECT a FROM t JOIN u {} v', 'SELECT a FROM t JOIN u ON {}', 'SELECT a FROM t JOIN u ON a = {}',
          'SELECT a FROM t JOIN u ON a = b {} c', 'SELECT a FROM t JOIN u WITH ( {} )', 'SELECT a FROM t WHERE {}',
          'SELECT a FROM t WHERE {} = 1', 'SELECT a FROM t WHERE a {} b', 'SELECT a FROM t WHERE a = {}',
          'SELECT a FROM t WHERE a = 1 {} b = 2', 'SELECT a FROM t WHERE ( {} a = 1 )',
          'SELECT a FROM t WHERE a BETWEEN 1 {} 2', 'SELECT a FROM t WHERE a IN ( 1 , {} )',
          'SELECT a FROM t WHERE a = 1 {}', 'SELECT a GROUP BY {}', 'SELECT a GROUP BY a with {}',
          'SELECT a ORDER BY a {}', 'SELECT a COMPUTE {} ( a )', 'SELECT a COMPUTE f ( a ) BY {}', 'SELECT a FOR {}',
          'SELECT a FOR XML {}', 'SELECT a FOR XML RAW . {}', 'SELECT a OPTION {}', 'SELECT a OPTION HASH {}',
          'SELECT a OPTION {} GROUP', 'SELECT a OPTION {} UNION', 'SELECT a OPTION {} PLAN',
          'SELECT a UNION {} SELECT b',
          'SELECT a | | b | | {}', 'SELECT ABS ( a ) }} , {}', 'SELECT {{ fn UCASE ( {} ) }} }} , b',
          'SELECT a FROM t WHERE ( NOT a = {} ) ) ) ORDER BY b', 'SELECT a FROM t JOIN u ON ( ( a = {} ) ) ) ) JOIN v',
          'SELECT a FROM t JOIN u WITH ( INDEX 1 2 3 , {} )', 'SELECT a FROM t JOIN u WITH ( INDEX {} ) JOIN v']


class Writer(random_texts.Writer):
    """`depth` bounds the nesting of expressions, conditions, sources and subqueries."""

    VOCABULARY = (list(KEYWORDS) + LITERAL_WORDS + [text for text, _ in OPERATORS] * 3 + SYSTEM_VARIABLES[:3] + NAMES +
                  STRINGS + NUMBERS + UNFINISHED + list(LITERALS_WITH_BLANK) + list(LITERALS_WITH_BLANK.values()) +
                  ['(', ')', ',', '.', ';', '$', ':', '^', '\\', '~', 'SELECT', 'FROM', 'WHERE', 'NOT', 'AS', 'AND',
                   'OR', 'JOIN', 'ON', 'BETWEEN', 'IN', 'UNION', 'CASE', 'WHEN', 'END', 'ä', '@@', 'with'])
    WORD_MARKS = '_-#?!'
    BLANKS = [' '] * 12 + ['  ', '\t', '\n', '\r\n']

    def name(self):
        return self.rng.choice(self.rng.choices([NAMES[:8], NAMES, UNFINISHED], [72, 27, 1])[0])

    def column(self):
        parts = self.rng.choices([1, 2, 3, 4], [60, 30, 8, 2])[0]
        last = '*' if self.rng.random() < .08 else self.name()
        marked = self.chance(.05, lambda: ' ( + )')
        return ' . '.join([self.name() for _ in range(parts - 1)] + [last]) + marked

    def literal(self):
        return self.rng.choice(self.rng.choice([NUMBERS, NUMBERS, STRINGS]))

    def leaf(self):
        return self.column() if self.rng.random() < .65 else self.literal()

    def expression(self, depth):
        if depth <= 0 or self.rng.random() < .35:
            return self.leaf()
        return self.pick(
            lambda: f'{self.expression(depth - 1)} {self.rng.choice(ARITHMETIC)} {self.expression(depth - 1)}',
            lambda: f'{self.expression(depth - 1)} {self.rng.choice(ARITHMETIC)} {self.expression(depth - 1)}',
            lambda: f'( {self.expression(depth - 1)} )',
            lambda: f'{self.rng.choice("+-")} {self.expression(depth - 1)}',
            lambda: f'{self.leaf()} {self.rng.choice("*/+")} {self.rng.choice("+-")} {self.expression(depth - 1)}',
            lambda: self.call(depth - 1),
            lambda: self.call(depth - 1),
            lambda: self.case(depth - 1),
            lambda: f'( {self.condition(depth - 1)} )',
            lambda: f'( {self.select(depth - 2)} )',
            lambda: f'( {self.some(lambda: self.expression(depth - 1), " , ")} )')

    def case(self, depth):
        branches = self.some(lambda: self.pick(
            lambda: f'WHEN {self.condition(depth)} THEN {self.expression(depth)}',
            lambda: f'WHEN {self.condition(depth)} THEN {self.expression(depth)}',
            lambda: f'WHEN ( {self.expression(depth)} ) THEN {self.expression(depth)}',
            lambda: f'WHEN {self.expression(depth)}',
            lambda: f'ELSE {self.expression(depth)}',
            lambda: f'THEN {self.expression(depth)}',
            lambda: ''), ' ')
        subject = self.chance(.4, lambda: self.pick(lambda: self.expression(depth),
                                                    lambda: f'( {self.expression(depth)} )'))
        return f'CASE {subject} {branches} END'

    def arguments(self, depth):
        separator = self.rng.choice([' , ', ' , ', ' , ', ' '])
        if self.rng.random() < .15:
            return ''
        first = self.rng.choice(DATE_PARTS) + separator if self.rng.random() < .25 else ''
        return first + self.some(lambda: self.expression(depth), separator)

    def parameters(self, depth):
        return self.rng.choice(['( {} )', '( {} )', '( {} )', '( {} )', '( {}', '']).format(self.arguments(depth))

    def call(self, depth):
        return self.pick(
            lambda: f'{self.rng.choice(FUNCTIONS)} {self.parameters(depth)}',
            lambda: f'{self.rng.choice(FUNCTIONS)} {self.parameters(depth)}',
            lambda: f'{self.rng.choice(["f", "PATINDEX", "[dbo] . f", "dd . f", "dbo . f", self.name()])} '
                    f'{self.parameters(depth)}',
            lambda: self.group_call(depth),
            lambda: self.date_call(depth),
            lambda: self.date_call(depth),
            lambda: f'{self.rng.choice(["CAST", "convert"])} ( {self.expression(depth)} AS {self.type()} )',
            lambda: self.rng.choice(['{} ( {} , {} {} )', '{} {} , {} {}', '{} ( {} , {} {}']).format(
                self.rng.choice(['CONVERT', 'CAST']), self.type(), self.expression(depth),
                self.rng.choice(['', '', ', 3', ', 103', ', 1E+2', ', a', ','])),
            lambda: f'EXISTS {self.select(depth - 1)}',
            lambda: f'EXISTS ( {self.select(depth - 1)} )',
            lambda: self.rng.choice(['{{ fn {} {} }}', '{{ fn {} {} }}', 'fn {} {}', '{{ fn {} {}']).format(
                self.rng.choice(['NOW', 'UCASE', 'LCASE', 'now']),
                self.rng.choice(['( )', '( )', '(', '', f'( {self.expression(depth)} )', '( * )', 'a'])))

    def group_call(self, depth):
        word = self.rng.choice(texts_of(GROUP_FUNCTION) + ['var', 'VAR', 'Max'])
        quantifier = self.rng.choice(['', '', '', 'ALL ', 'DISTINCT '])
        body = self.rng.choice(['*', self.column(), self.arguments(depth)])
        return f'{word} ' + self.rng.choice(['( {}{} )', '( {}{} )', '{}{}', '( {}{}']).format(quantifier, body)

    def date_call(self, depth):
        return f'{self.rng.choice(texts_of(DATETIME_FUNCTION)).title()} ( {self.arguments(depth)} )'

    def type(self):
        size = self.rng.choice(['', '', '( 10 )', '( 8 , 2 )', '( MAX )', '( ALL )', '10', '( 10', '( 8 , a )', '( )'])
        return self.rng.choice(DATA_TYPE) + ' ' + size

    def operand(self, depth):
        return '@ v' if self.rng.random() < .06 else self.expression(depth)

    def condition(self, depth):
        if depth <= 0:
            return f'{self.leaf()} {self.rng.choice(COMPARISONS)} {self.leaf()}'
        return self.pick(
            lambda: f'{self.operand(depth - 1)} {self.rng.choice(COMPARISONS)} {self.operand(depth - 1)}',
            lambda: f'{self.operand(depth - 1)} {self.rng.choice(COMPARISONS)} {self.operand(depth - 1)}',
            lambda: f'{self.condition(depth - 1)} {self.rng.choice(LOGICAL)} {self.condition(depth - 1)}',
            lambda: f'( {self.condition(depth - 1)} )',
            lambda: f'( {self.condition(depth - 1)} {self.rng.choice(LOGICAL)} {self.condition(depth - 1)} )',
            lambda: f'( {self.condition(depth - 1)} ) {self.rng.choice(COMPARISONS)} {self.expression(depth - 1)}',
            lambda: f'NOT {self.condition(depth - 1)}',
            lambda: f'( NOT {self.condition(depth - 1)} )',
            lambda: self.between(depth),
            lambda: f'( {self.between(depth)} )',
            lambda: f'{self.leaf()} IN ( {self.some(self.leaf, " , ")} )',
            lambda: f'{self.leaf()} IN ( {self.select(depth - 1)} )',
            lambda: f'{self.leaf()} = {self.select(depth - 1)}',
            lambda: f'{self.leaf()} IS {self.chance(.5, lambda: "NOT")} NULL',
            lambda: f'{self.leaf()} , {self.leaf()} = {self.leaf()}',
            lambda: self.expression(depth - 1))

    def between(self, depth):
        left = self.expression(depth - 1)
        return f'{left} {self.chance(.3, lambda: "NOT")} BETWEEN {self.leaf()} {self.rng.choice(LOGICAL)} {self.leaf()}'

    def item(self, depth):
        body = self.pick(
            lambda: self.expression(depth), lambda: self.expression(depth), self.column, self.column,
            lambda: f'{self.expression(depth)} {self.rng.choice(COMPARISONS)} {self.expression(depth)}',
            lambda: '*', lambda: f'{self.name()} . {self.name()} *',
            lambda: self.rng.choice(['IDENTIFYCOL', 'ROWGUIDCOL', '@@VERSION']),
            lambda: f'( ( {self.select(depth - 2)} ) )')
        return body + ' ' + self.alias(.2)

    def alias(self, share):
        return self.chance(share, lambda: self.rng.choice(['AS', 'AS', 'as', '']) + ' ' + self.new_name())

    def new_name(self):
        return self.rng.choice(['{}', '{}', '{}', "' {} '", '# {}', '## {} #', "' {}", '{} ]']).format(
            self.rng.choice([self.name(), self.name(), 'Sum', 'max']))

    def table(self):
        return self.chance(.15, lambda: self.name() + ' . ') + self.name()

    def simple_source(self, depth):
        if depth > 0 and self.rng.random() < .25:
            return self.pick(lambda: f'( {self.select(depth - 1)} ) {self.alias(.7)}',
                             lambda: f'( ( {self.select(depth - 1)} ) ) {self.alias(.7)} {self.chance(.5, self.name)}',
                             lambda: self.select(depth - 1))
        return f'{self.table()} {self.alias(.3)}'

    def hint(self):
        word = self.rng.choice(['WITH', 'WITH', 'WITH', 'with'])
        return f'{word} ( {self.some(lambda: self.rng.choice(TABLE_HINTS), " , ")} )'

    def on(self, depth):
        return self.chance(.85, lambda: 'ON ' + self.some(
            lambda: self.on_condition(0 if self.rng.random() < .7 else depth), f' {self.rng.choice(LOGICAL)} ', 2))

    def on_condition(self, depth):
        return self.rng.choice(['{}', '{}', '( {} )', '( {}', '( {} ) )', '( ( {} )', 'a AND {}', '( @ v ) = ( {} )',
                                'a']).format(self.condition(depth))

    def join(self, depth):
        left, right = self.join_side(depth - 1), self.join_side(depth - 1)
        return (f'{left} {self.chance(.06, self.hint)} {self.rng.choice(JOIN_TYPES)} JOIN '
                f'{right} {self.chance(.1, self.hint)} {self.on(depth - 1)}')

    def join_side(self, depth):
        if depth <= 0 or self.rng.random() < .5:
            return self.chance(.97, lambda: self.simple_source(depth))
        return self.pick(lambda: f'( {self.join(depth)} )', lambda: f'( {self.join(depth)} )',
                         lambda: self.join(depth), lambda: f'( {self.join(depth)}')

    def source(self, depth):
        if depth <= 0 or self.rng.random() < .4:
            return self.simple_source(depth) + ' ' + self.chance(.05, self.hint)
        return self.join(depth)

    def clauses(self, depth):
        """The clauses behind WHERE in their order: how often a text has one, and what makes it."""
        return [
            (.12, lambda: 'GROUP BY ' + self.chance(.1, lambda: 'ALL ') +
             self.some(lambda: self.expression(depth - 1), ' , ') +
             self.chance(.2, lambda: self.rng.choice([' with ROLLUP', ' With CUBE', ' WITH CUBE']))),
            (.08, lambda: 'HAVING ' + self.condition(depth - 1)),
            (.15, lambda: 'ORDER BY ' + self.some(lambda: self.expression(depth - 1) + ' ' +
                                                  self.rng.choice(['', '', 'ASC', 'DESC', 'DESC ,']), ' , ')),
            (.03, lambda: 'COMPUTE ' + self.some(lambda: self.call(0), ' , ') +
             self.chance(.5, lambda: ' BY ' + self.some(self.column, ' , '))),
            (.03, lambda: 'FOR ' + self.rng.choice(FOR_MODES)),
            (.05, lambda: 'OPTION ' + self.some(lambda: self.rng.choice(HINTS), ' , ')),
            (.07 if depth > 0 else 0,
             lambda: 'UNION ' + self.chance(.4, lambda: 'ALL ') +
             self.rng.choice(['{}', '{}', '( {} )']).format(self.select(depth - 1))),
        ]

    def predicate(self):
        return (self.chance(.12, lambda: self.rng.choice(['ALL ', 'DISTINCT '])) +
                self.chance(.1, lambda: self.rng.choice(['TOP 5', 'TOP ( 10 )', 'TOP 5 PERCENT', 'TOP 3 WITHTIES',
                                                         'TOP 3 WITH TIES', 'TOP NULL', 'TOP ( 5 PERCENT WITHTIES'])))

    def select(self, depth):
        parts = [
            'SELECT',
            self.predicate(),
            self.some(lambda: self.item(depth), ' , '),
            self.chance(.85, lambda: 'FROM ' + self.some(lambda: self.source(depth), ' , ', 2)),
            self.chance(.4, lambda: 'WHERE ' + self.condition(depth)),
            *(self.chance(share, maker) for share, maker in self.clauses(depth)),
            self.chance(.05, lambda: ';'),
        ]
        return ' '.join(part for part in parts if part)

    def whole(self):
        """A text of all clauses, a deep one of a single clause, one with any word in some place, or pieces of words."""
        depth = self.rng.choice([1, 2, 2, 3])
        return self.pick(
            lambda: self.rng.choice(['{}', '{}', '( {} )', '( ( {} )', '( ( ( {}', 'x {}']).format(self.select(depth)),
            lambda: self.select(depth),
            lambda: f'SELECT {self.some(lambda: self.item(depth), " , ")} FROM t',
            lambda: f'SELECT {self.some(lambda: self.call(depth), " , ")} FROM t',
            lambda: f'SELECT {self.case(depth)} FROM t',
            lambda: f'SELECT a FROM {self.some(lambda: self.source(depth + 1), " , ", 2)}',
            lambda: f'SELECT a FROM {self.some(lambda: self.source(depth + 1), " , ", 2)}',
            lambda: f'SELECT a FROM t WHERE {self.condition(depth)}',
            lambda: f'SELECT a FROM t {self.pick(*(maker for _, maker in self.clauses(depth)))}',
            lambda: self.rng.choice(FRAMES).format(self.rng.choice([self.leaf(), self.rng.choice(self.VOCABULARY)])),
            lambda: 'SELECT a ' + self.some(lambda: self.rng.choice(PIECES), ' ', 8))
