"""Random Oracle query texts, made along the dialect's clauses."""

import random_texts
from oracle_oracle import (COMMITTING_WORDS, CONFIGURATION_FUNCTION, DATA_TYPE, DATE_PART, DATETIME_FUNCTION,
                           GROUP_FUNCTION, KEYWORDS, LITERAL_WORDS, OPERATORS, PLAIN_FUNCTION, SYSTEM_VARIABLES,
                           keyword_text)


def texts_of(tokens):
    return [keyword_text(token.strip("'")) for token in tokens]


DATE_PARTS = texts_of(DATE_PART)
NAMES = ['a', 'b', 'c', 'x', 'y', 't', 'u', 'Orders', 'SYSDATE', 'a$b#1', 'f', '[a b]', '[]', '[a"b]', '"a b"', '""',
         '"a.b"', '`b`', 'Größe', 'LOG', 'Pi', 'DATE', 'Number', 'raw', 'Char', 'NCHAR', 'dbms_random', 'YYYY', 'N',
         'E'] + DATE_PARTS
UNFINISHED = ['[', '"', '[a', "'x", '"a', "'"]
STRINGS = ["'x'", "''", "'a b'", "'it''s'", "N'x'", "'1/2/2000'", "'('", "'ä'", "' , '"]
NUMBERS = ['0', '1', '42', '1.5', '.5', '1.', '1E+5', '1E5', '1E-5', '1.5 E + 3', '2 E - - 3', '1 E 3', '1 b + 5',
           'NULL', 'NOT NULL', '- 1', '+ 2', '- .5', '12abc', '- NOT NULL']
COMPARISONS = ['=', '=', '=', '<', '>', '<=', '>=', '<>', '!=', '*=', '=*', 'LIKE', 'IN', 'IS', 'NOT', 'NOT LIKE',
               'NOT IN', 'NOT =', 'NOT NOT', 'IS NOT']
LOGICAL = ['AND', 'AND', 'OR', '&&', '||', 'or']
ARITHMETIC = ['+', '-', '*', '/', '%', '&', '||', '|', '+ -']
JOIN_TYPES = ['INNER', 'LEFT', 'RIGHT', 'FULL', 'LEFT OUTER', 'RIGHT OUTER', 'FULL OUTER', 'CROSS', 'INNER LOOP',
              'LEFT hash', 'LEFT HASH', 'FULL OUTER merge', 'INNER Remote', 'CROSS OUTER', 'INNER LEFT', '', '', '']
HINTS = ['HASH GROUP', 'ORDER GROUP', 'CONCAT UNION', 'HASH UNION', 'MERGE UNION', 'FAST 5', 'FORCE ORDER', 'MAXDOP 2',
         'KEEP PLAN', 'KEEPFIXED PLAN', 'ROBUST PLAN', 'EXPAND VIEWS', 'LOOP GROUP', 'hash GROUP', 'MERGE GROUP']
FOR_MODES = ['BROWSE', 'XML RAW', 'XML raw', 'XML AUTO . XMLDATA', 'XML EXPLICIT . ELEMENTS . BYNATY base64',
             'XML RAW . XMLDATA . ELEMENTS', 'XML AUTO . BYNATY base64', 'XML AUTO , RAW', 'XML', 'UPDATE']
PIECES = ([literal[:cut] for literal in COMMITTING_WORDS.values() for cut in range(3, len(literal) + 1)] +
          [name[:cut] for name in SYSTEM_VARIABLES for cut in (2, 4, len(name) - 1, len(name))] +
          [chr(code) for code in range(1, 127)] +
          ['\u00e4', '\u20ac', '\ufffe', '\U0001f600', '@@', '!', '!=', '! ', "'a", '"a', '[a'])
TYPE_SIZES = ['', '', '( 10 )', '( 8 , 2 )', '( MAX )', '( ALL )', '10', '( 10', '( 8 , a )', '( )', '( 10 BYTE )',
              '( 10 CHAR )', '( 10 Char ( 5 ) )', '( 10 raw , 2 )', '8 , 2', 'MAX , 3', '( NULL )']
# One word or sign in every place.
FRAMES = ['{}', '( {}', '( ( {}', '( {} a', 'SELECT {}', 'SELECT {} a', 'SELECT a {}', 'SELECT a {} b',
          'SELECT {} ( a )', 'SELECT {} ( + )', 'SELECT {} ( + ) = a', 'SELECT {} . a', 'SELECT a . {}',
          'SELECT a . b . {}', 'SELECT a . b {} FROM t', 'SELECT {} . f ( a )', 'SELECT a . {} ( b )', 'SELECT a AS {}',
          'SELECT a AS # {} ]', 'SELECT a {} #', 'SELECT - {}', 'SELECT - - {}', 'SELECT a * - {}', 'SELECT - {} 1',
          'SELECT 1 {} 2', 'SELECT 1 E {} 2', 'SELECT ( {} )', 'SELECT ( {} , a )', 'SELECT ( a , {}',
          'SELECT ( {} ( a ) )', 'SELECT {} , b = c', 'SELECT f ( {} )', 'SELECT f ( {} , a )', 'SELECT f ( a {} b )',
          'SELECT f ( a ) {}', 'SELECT YEAR ( {} )', 'SELECT YEAR {}', 'SELECT COUNT ( {} )', 'SELECT COUNT {}',
          'SELECT COUNT ( {} a )', 'SELECT COUNT ( * {}', 'SELECT VAR ( {} )', 'SELECT VAR {}',
          'SELECT CAST ( a AS {} )', 'SELECT CAST {}', 'SELECT CONVERT ( {} , a )', 'SELECT CONVERT {} , a',
          'SELECT CONVERT ( int , a , {} )', 'SELECT CAST ( a AS char ( {} ) )', 'SELECT CAST ( a AS raw ( 10 {} ) )',
          'SELECT EXTRACT ( {} FROM a )', 'SELECT EXTRACT ( YEAR {} a )', 'SELECT EXTRACT {} FROM a',
          'SELECT CASE {} WHEN a THEN b END', 'SELECT CASE {} END', 'SELECT CASE WHEN {} THEN b END',
          'SELECT CASE WHEN a = 1 {} 2 END', 'SELECT CASE ( a ) {} WHEN a THEN b END', 'SELECT {{ fn {} ( a ) }}',
          'SELECT {{ {} ( a )', 'SELECT fn {}', 'SELECT EXISTS {}', 'SELECT MULTISET ( {}', 'SELECT " {} "',
          'SELECT [ {} ]', "SELECT ' {} '", 'SELECT TOP {} a', 'SELECT TOP 5 {} a', 'SELECT ALL {} a',
          'SELECT DISTINCT TOP {} a', 'SELECT ROW_NUMBER {} OVER ( ORDER BY a )', 'SELECT ROW_NUMBER ( ) {}',
          'SELECT ROW_NUMBER ( ) OVER ( {} ) x', 'SELECT ROW_NUMBER ( ) OVER ( PARTITION BY {} ORDER BY a ) x',
          'SELECT ROW_NUMBER ( ) OVER ( ORDER BY {} ) x', 'SELECT ROW_NUMBER ( ) OVER ( ORDER BY a ) {}',
          'SELECT a FROM {}', 'SELECT a FROM {} . b', 'SELECT a FROM b . {}', 'SELECT a FROM t {} u',
          'SELECT a FROM t {}', 'SELECT a FROM t AS {}', 'SELECT a FROM ( {}', 'SELECT a FROM ( SELECT b ) {}',
          'SELECT a FROM ( ( SELECT b ) ) {}', 'SELECT a FROM ( ( SELECT b ) ) x {}',
          'SELECT a FROM ( ( SELECT b ) ) x {} , d', 'SELECT a FROM SELECT b {}', 'SELECT a FROM t , {}',
          'SELECT a FROM {} , t', 'SELECT a FROM t {} JOIN u', 'SELECT a FROM t INNER {} JOIN u',
          'SELECT a FROM {} INNER JOIN u', 'SELECT a FROM t JOIN {}', 'SELECT a FROM t JOIN ( {}',
          'SELECT a FROM t JOIN u {} v', 'SELECT a FROM t JOIN u ON {}', 'SELECT a FROM t JOIN u ON a = {}',
          'SELECT a FROM t JOIN u ON a = b {} c', 'SELECT a FROM t JOIN u ON a = b {} JOIN c',
          'SELECT a FROM t JOIN u ON ( {}', 'SELECT a FROM t WITH ( {} )', 'SELECT a FROM t WHERE {}',
          'SELECT a FROM t WHERE {} = 1', 'SELECT a FROM t WHERE a {} b', 'SELECT a FROM t WHERE a NOT {} b',
          'SELECT a FROM t WHERE a = {}', 'SELECT a FROM t WHERE a = ( {}', 'SELECT a FROM t WHERE a = 1 {} b = 2',
          'SELECT a FROM t WHERE ( {} a = 1 )', 'SELECT a FROM t WHERE ( a = 1 {} b = 2 )',
          'SELECT a FROM t WHERE NOT {}', 'SELECT a FROM t WHERE NOT ( {} )', 'SELECT a FROM t WHERE NOT ( a {} b )',
          'SELECT a FROM t WHERE NOT ( a = 1 {} b = 2 )', 'SELECT a FROM t WHERE NOT ( a {} b ) = 1',
          'SELECT a FROM t WHERE NOT ( a = 1 ) {} b = 2', 'SELECT a FROM t WHERE NOT ( {} = 1 AND b = 2 )',
          'SELECT a FROM t WHERE NOT ( ( a = ( 1 ) ) {} b = 2 )',
          'SELECT a FROM t WHERE NOT ( ( a IN ( 1 {} ) ) OR b )',
          'SELECT a FROM t WHERE NOT ( ( ( a ) = ( 1 ) {} b = 2 ) )',
          'SELECT a FROM t WHERE NOT ( SELECT b FROM u ) = 1 {} c = 2',
          'SELECT a FROM t WHERE NOT ( a = SELECT b FROM u ) {} c', 'SELECT a FROM t WHERE NOT a {} 1 AND 2',
          'SELECT a FROM t WHERE a BETWEEN 1 {} 2', 'SELECT a FROM t WHERE a BETWEEN {}',
          'SELECT a FROM t WHERE {} BETWEEN 1 AND 2', 'SELECT a FROM t WHERE ( a BETWEEN 1 AND 2 {} )',
          'SELECT a FROM t WHERE a IN ( 1 , {} )', 'SELECT a FROM t WHERE a IN ( SELECT b {} )',
          'SELECT a FROM t WHERE a = 1 {}', 'SELECT a GROUP BY {}', 'SELECT a GROUP BY a , {}',
          'SELECT a GROUP BY a {} cube', 'SELECT a GROUP BY a with {}', 'SELECT a ORDER BY {}',
          'SELECT a ORDER BY a {}', 'SELECT a COMPUTE {} ( a )', 'SELECT a COMPUTE f ( a ) BY {}',
          'SELECT a COMPUTE {}', 'SELECT a FOR {}', 'SELECT a FOR XML {}', 'SELECT a FOR XML RAW . {}',
          'SELECT a OPTION {}', 'SELECT a OPTION HASH {}', 'SELECT a OPTION {} GROUP', 'SELECT a OPTION {} UNION',
          'SELECT a OPTION {} PLAN', 'SELECT a UNION {} SELECT b', 'SELECT a UNION SELECT b {}', '( SELECT a {} )']


class Writer(random_texts.Writer):
    """`depth` bounds the nesting of expressions, conditions, sources and subqueries."""

    VOCABULARY = (list(KEYWORDS) + LITERAL_WORDS + [text for text, _ in OPERATORS] * 3 + SYSTEM_VARIABLES[:3] + NAMES +
                  STRINGS + NUMBERS + UNFINISHED + list(COMMITTING_WORDS) + list(COMMITTING_WORDS.values()) +
                  ['(', ')', ',', '.', ';', '$', ':', '^', '\\', '~', '!', 'SELECT', 'FROM', 'WHERE', 'NOT', 'AS',
                   'AND', 'OR', 'JOIN', 'ON', 'BETWEEN', 'IN', 'UNION', 'CASE', 'WHEN', 'END', 'ä', '@@', 'with'])
    WORD_MARKS = '_#$'
    BLANKS = [' '] * 12 + ['  ', '\t', '\n', '\r\n', '\r']

    def name(self):
        return self.rng.choice(self.rng.choices([NAMES[:7], NAMES, UNFINISHED], [72, 27, 1])[0])

    def column(self):
        parts = self.rng.choices([1, 2, 3, 4], [60, 30, 8, 2])[0]
        last = '*' if self.rng.random() < .06 else self.name()
        marked = self.chance(.1, lambda: ' ( + )')
        return ' . '.join([self.name() for _ in range(parts - 1)] + [last]) + marked

    def literal(self):
        return self.rng.choice(self.rng.choice([NUMBERS, NUMBERS, STRINGS]))

    def leaf(self):
        return self.pick(self.column, self.column, self.literal) if self.rng.random() < .95 else self.function_word()

    def function_word(self):
        return self.rng.choice(texts_of(PLAIN_FUNCTION + GROUP_FUNCTION) + ['sysdate', 'Substr', 'Var'])

    def list_of(self, maker):
        return self.some(maker, ' , ')

    def expression(self, depth):
        if depth <= 0 or self.rng.random() < .3:
            return self.leaf()
        inner = depth - 1
        return self.pick(
            lambda: f'{self.expression(inner)} {self.rng.choice(ARITHMETIC)} {self.expression(inner)}',
            lambda: f'{self.expression(inner)} {self.rng.choice(ARITHMETIC)} {self.expression(inner)}',
            lambda: f'( {self.expression(inner)} )',
            lambda: f'{self.rng.choice(["+", "-", "-", "- -", "+ -"])} {self.expression(inner)}',
            lambda: self.call(inner),
            lambda: self.call(inner),
            lambda: self.case(inner),
            lambda: f'( {self.condition(inner)} )',
            lambda: f'( {self.select(depth - 2)} )',
            lambda: f'( {self.list_of(lambda: self.expression(inner))} )')

    def case(self, depth):
        branches = self.some(lambda: self.pick(
            lambda: f'WHEN {self.condition(depth)} THEN {self.expression(depth)}',
            lambda: f'WHEN {self.expression(depth)} THEN {self.condition(depth)}',
            lambda: f'WHEN ( {self.expression(depth)} ) {self.rng.choice(["THEN", "ELSE"])} {self.expression(depth)}',
            lambda: f'{self.rng.choice(["WHEN", "THEN", "ELSE"])} {self.expression(depth)}',
            lambda: ''), ' ')
        subject = self.chance(.4, lambda: self.rng.choice(['{}', '( {} )']).format(self.expression(depth)))
        return f'CASE {subject} {branches} END'

    def arguments(self, depth):
        separator = self.rng.choice([' , ', ' , ', ' , ', ' '])
        if self.rng.random() < .12:
            return ''
        first = self.rng.choice(DATE_PARTS) + separator if self.rng.random() < .2 else ''
        return first + self.some(lambda: self.expression(depth), separator, 4)

    def parameters(self, depth):
        return self.rng.choice(['( {} )', '( {} )', '( {} )', '( {} )', '( {}', '{}', '']).format(self.arguments(depth))

    def call(self, depth):
        return self.pick(
            lambda: f'{self.function_word()} {self.parameters(depth)}',
            lambda: f'{self.function_word()} {self.parameters(depth)}',
            lambda: f'{self.rng.choice(["f", "dbo . f", "[dbo] . f", "mm . f", "a . b . f", self.name()])} '
                    f'{self.parameters(depth)}',
            lambda: self.group_call(depth),
            lambda: f'{self.rng.choice(["{ fn", "{", "fn", ""])} {self.rng.choice(texts_of(DATETIME_FUNCTION))} '
                    f'{self.parameters(depth)} {self.rng.choice(["", "}"])}',
            lambda: f'{self.rng.choice(texts_of(CONFIGURATION_FUNCTION))} {self.rng.choice(["", "( )", "( a"])}',
            lambda: self.rng.choice(['{} ( {} AS {} )', '{} ( {} AS {} )', '{} {} AS {}', '{} ( {} AS {}']).format(
                self.rng.choice(['CAST', 'cast', 'CONVERT']), self.expression(depth), self.type()),
            lambda: self.rng.choice(['{} ( {} , {} {} )', '{} {} , {} {}', '{} ( {} , {} {}']).format(
                self.rng.choice(['CONVERT', 'CAST']), self.type(), self.expression(depth),
                self.rng.choice(['', '', ', 3', ', 103', ', 1E+2', ', NOT NULL', ', a', ','])),
            lambda: self.rng.choice(['EXTRACT ( {} FROM {} )', 'EXTRACT ( {} FROM {} )', 'EXTRACT {} FROM {}']).format(
                self.rng.choice(texts_of(DATETIME_FUNCTION) + ['a']), self.expression(depth)),
            lambda: self.rng.choice(['{} ( {} )', '{} ( {} )', '{} {}', '{} ( {}', '{} ( ( {} ) )']).format(
                self.rng.choice(['EXISTS', 'MULTISET']), self.select(depth - 1)),
            lambda: self.rng.choice(['CURRENT_DATE', 'current_timestamp', 'CURRENT_DATE ( )', 'dbms_random.value',
                                     'dbms_random.value ( 1 , 2 )', 'DBMS_RANDOM.VALUE']))

    def group_call(self, depth):
        word = self.rng.choice(texts_of(GROUP_FUNCTION) + ['var', 'VAR', 'Max', 'COUNT', 'COUNT'])
        quantifier = self.rng.choice(['', '', '', 'ALL ', 'DISTINCT '])
        body = self.rng.choice(['*', self.column(), self.arguments(depth)])
        return f'{word} ' + self.rng.choice(['( {}{} )', '( {}{} )', '{}{}', '( {}{}']).format(quantifier, body)

    def type(self):
        return self.rng.choice(DATA_TYPE) + ' ' + self.rng.choice(TYPE_SIZES)

    def operand(self, depth):
        return self.rng.choice(['{}'] * 14 + ['( {} )', '( {}', '@ v', ': {}']).format(self.expression(depth))

    def comparison(self, depth):
        return f'{self.operand(depth)} {self.rng.choice(COMPARISONS)} {self.operand(depth)}'

    def chain(self, depth):
        return f' {self.rng.choice(LOGICAL)} '.join(self.condition(depth) for _ in range(self.rng.randint(2, 3)))

    def condition(self, depth):
        if depth <= 0:
            return self.comparison(0)
        inner = depth - 1
        return self.pick(
            lambda: self.comparison(inner),
            lambda: self.comparison(inner),
            lambda: self.chain(inner),
            lambda: f'( {self.condition(inner)} )',
            lambda: f'( ( {self.condition(inner)} ) )',
            lambda: f'( {self.condition(inner)} {self.rng.choice(LOGICAL)} ( {self.condition(inner)} ) )',
            lambda: f'( {self.chain(inner)} )',
            lambda: f'( {self.condition(inner)} ) {self.rng.choice(COMPARISONS)} {self.expression(inner)}',
            lambda: f'NOT {self.condition(inner)}',
            lambda: f'NOT ( {self.condition(inner)} )',
            lambda: f'NOT ( {self.chain(inner)} {self.rng.choice(["", ")", ") = 1"])}',
            lambda: f'NOT ( ( {self.condition(inner)} ) {self.rng.choice(LOGICAL)} {self.condition(inner)} )',
            lambda: f'NOT ( ( {self.chain(inner)} ) )',
            lambda: f'( NOT {self.condition(inner)} )',
            lambda: self.between(inner),
            lambda: f'( {self.between(inner)} )',
            lambda: f'{self.leaf()} {self.chance(.3, lambda: "NOT")} IN ( {self.list_of(self.leaf)} )',
            lambda: f'{self.leaf()} IN ( {self.select(inner)} )',
            lambda: f'{self.leaf()} = {self.select(inner)}',
            lambda: f'{self.leaf()} IS {self.chance(.5, lambda: "NOT")} NULL',
            lambda: f'{self.leaf()} , {self.leaf()} = {self.leaf()}',
            lambda: f'{self.column()} ( + ) {self.rng.choice(COMPARISONS)} {self.column()}',
            lambda: self.expression(inner))

    def between(self, depth):
        limits = self.rng.choice(['{} {} {}', '{} {} {}', '{} {} {}', '{} {} {} )', '{}', '( {} {} {} )']).format(
            self.operand(depth - 1), self.rng.choice(LOGICAL), self.operand(depth - 1))
        return f'{self.expression(depth)} {self.chance(.3, lambda: "NOT")} BETWEEN {limits}'

    def row_number(self, depth):
        partition = self.chance(.5, lambda: 'PARTITION BY ' + self.list_of(lambda: self.expression(depth)))
        order = self.chance(.9, lambda: self.order_by(depth))
        return self.rng.choice(['ROW_NUMBER ( ) OVER ( {} {} )'] * 4 + ['ROW_NUMBER ( ) OVER ( {} {}']).format(
            partition, order)

    def order_by(self, depth):
        return 'ORDER BY ' + self.list_of(lambda: self.expression(depth) + ' ' +
                                          self.rng.choice(['', '', 'ASC', 'DESC', 'DESC ,']))

    def item(self, depth):
        body = self.pick(
            lambda: self.expression(depth), lambda: self.expression(depth), self.column, self.column,
            lambda: self.condition(depth),
            lambda: self.rng.choice(['*', '*', 'IDENTIFYCOL', 'ROWGUIDCOL', '@@VERSION']),
            lambda: f'{self.name()} . {self.name()} *',
            lambda: self.row_number(depth - 1),
            lambda: self.rng.choice(['( {} )', '( ( {} ) )', '( ( {} )', '{}']).format(self.select(depth - 2)))
        return body + ' ' + self.alias(.3)

    def alias(self, share):
        return self.chance(share, lambda: self.rng.choice(['AS', 'AS', 'as', '', '']) + ' ' + self.new_name())

    def new_name(self):
        return self.rng.choice(['{}', '{}', '{}', '{}', "'{}'", '# {}', '## {} #', '{} ]']).format(
            self.rng.choice([self.name(), self.name(), 'Sum', 'COUNT']))

    def table(self):
        return self.chance(.15, lambda: self.name() + ' . ') + self.name()

    def simple_source(self, depth):
        if depth > 0 and self.rng.random() < .25:
            form = self.rng.choice(['( {} )', '( {} )', '( {} )', '( ( {} ) )', '{}', '( {}'])
            return f'{form.format(self.select(depth - 1))} {self.alias(.7)} {self.chance(.1, lambda: self.item(0))}'
        return f'{self.table()} {self.alias(.4)} {self.chance(.03, lambda: "WITH ( with ( NOLOCK ) )")}'

    def on(self, depth):
        form = self.rng.choice(['{}', '{}', '{}', '( {} )', '( {}', '( ( {} )'])
        return self.chance(.85, lambda: 'ON ' + form.format(self.condition(0 if self.rng.random() < .6 else depth)))

    def join(self, depth):
        left, right = self.join_side(depth - 1), self.join_side(depth - 1)
        return f'{left} {self.rng.choice(JOIN_TYPES)} JOIN {right} {self.on(depth - 1)}'

    def join_side(self, depth):
        if depth <= 0 or self.rng.random() < .5:
            return self.chance(.97, lambda: self.simple_source(depth))
        return self.rng.choice(['( {} )', '( {} )', '{}', '( {}']).format(self.join(depth))

    def source(self, depth):
        return self.simple_source(depth) if depth <= 0 or self.rng.random() < .5 else self.join(depth)

    def clauses(self, depth):
        """The clauses behind WHERE in their order: how often a text has one, and what makes it."""
        inner = depth - 1
        return [
            (.12, lambda: 'GROUP BY ' + self.chance(.1, lambda: 'ALL ') +
             self.list_of(lambda: self.pick(self.column, self.column, lambda: self.expression(inner))) +
             self.chance(.2, lambda: self.rng.choice([' with ROLLUP', ' With CUBE', ' WITH CUBE']))),
            (.08, lambda: 'HAVING ' + self.condition(inner)),
            (.15, lambda: self.order_by(inner)),
            (.03, lambda: 'COMPUTE ' + self.list_of(lambda: self.call(0)) +
             self.chance(.5, lambda: ' BY ' + self.list_of(self.column))),
            (.03, lambda: 'FOR ' + self.rng.choice(FOR_MODES)),
            (.05, lambda: 'OPTION ' + self.list_of(lambda: self.rng.choice(HINTS))),
            (.07 if depth > 0 else 0,
             lambda: 'UNION ' + self.chance(.4, lambda: 'ALL ') +
             self.rng.choice(['{}', '{}', '( {} )']).format(self.select(inner))),
        ]

    def predicate(self):
        return (self.chance(.12, lambda: self.rng.choice(['ALL ', 'DISTINCT '])) +
                self.chance(.1, lambda: self.rng.choice(['TOP 5', 'TOP ( 10 )', 'TOP 5 PERCENT', 'TOP 3 WITHTIES',
                                                         'TOP 3 WITH TIES', 'TOP NULL', 'TOP ( 5 PERCENT WITHTIES'])))

    def select(self, depth):
        parts = [
            'SELECT',
            self.predicate(),
            self.list_of(lambda: self.item(depth)),
            self.chance(.85, lambda: 'FROM ' + self.list_of(lambda: self.source(depth))),
            self.chance(.45, lambda: 'WHERE ' + self.condition(depth)),
            *(self.chance(share, maker) for share, maker in self.clauses(depth)),
            self.chance(.05, lambda: ';'),
        ]
        return ' '.join(part for part in parts if part)

    def whole(self):
        """A text of all clauses, a deep one of a single clause, one with any word in some place, or pieces of words."""
        depth = self.rng.choice([1, 2, 2, 3])
        return self.pick(
            lambda: self.rng.choice(['{}', '{}', '( {} )', '( ( {}', '( ( ( {}', 'x {}']).format(self.select(depth)),
            lambda: self.select(depth),
            lambda: f'SELECT {self.list_of(lambda: self.item(depth))} FROM t',
            lambda: f'SELECT {self.list_of(lambda: self.call(depth))} FROM t',
            lambda: f'SELECT {self.case(depth)} FROM t',
            lambda: f'SELECT a FROM {self.list_of(lambda: self.source(depth + 1))}',
            lambda: f'SELECT a FROM {self.join(depth)}',
            lambda: f'SELECT a FROM t WHERE {self.condition(depth + 1)}',
            lambda: f'SELECT a FROM t WHERE {self.condition(depth)}',
            lambda: f'SELECT a FROM t {self.pick(*(maker for _, maker in self.clauses(depth)))}',
            lambda: self.rng.choice(FRAMES).format(self.rng.choice([self.leaf(), self.rng.choice(self.VOCABULARY)])),
            lambda: self.rng.choice(FRAMES).format(self.rng.choice([self.leaf(), self.rng.choice(self.VOCABULARY)])),
            lambda: 'SELECT a ' + self.some(lambda: self.rng.choice(PIECES), ' ', 8))
