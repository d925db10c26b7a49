"""Random MySQL query texts, made along the dialect's clauses."""

import random_texts
from mysql_oracle import (CONFIGURATION_FUNCTION, DATA_TYPE, DATE_PART, DATETIME_FUNCTION, KEYWORDS, LITERAL_WORDS,
                          LITERALS_WITH_BLANK, NEGATED_KEYWORDS, NUMBER_FUNCTION, OPERATORS, OTHER_FUNCTION,
                          STRING_FUNCTION, SYSTEM_VARIABLES, keyword_text)


def texts_of(tokens):
    return [keyword_text(token.strip("'")) for token in tokens]


DATE_PARTS = texts_of(DATE_PART)
FUNCTIONS = texts_of(NUMBER_FUNCTION + STRING_FUNCTION + DATETIME_FUNCTION + CONFIGURATION_FUNCTION) + ['now', 'Left']
NEGATED = [text for text, _ in NEGATED_KEYWORDS.values()]
NAMES = ['a', 'b', 'c', 'x', 'y', 't', 'u', 'Orders', 'T1', '_x', 'e', 'E', 'e3', 'OFFSET', 'STRAIGHT_JOIN', 'MI',
         'PERIOD_DIFF', '`order date`', '`a b`', '`c`', '``', '`f`', '`(`', '`a)`', "`it's`", 'Größe']
UNFINISHED = ['`', "'", '`a', "'x", '"', '"a"', '[a]']
STRINGS = ["'x'", "'it''s'", "''", "'a b'", "'*'", "'x%'", "' , '", "'ä'", "')'", "'('", "'`'", "'1/2/2000'",
           "'1 / 2 / 3'", "'Jan 1, 2000'", "'Jan 1 2000'", "'Jan -1 2'", "'1/2/2000 10'", "'2000-01-02'",
           "'NULL/1/.5'", "'(1/2/(3'", "'e 1 2'"]
NUMBERS = ['0', '1', '42', '1.5', '.5', '1E+5', '1E5', '1 e 3', '1.5e+3', '2 E - - 3', '1 x 3', 'NULL', 'NOT NULL',
           '- 1', '+ 2', '- .5', '- ( 5', '- NULL', '12abc', '1 .', '. 5 . 6']
COMPARISONS = ['=', '=', '=', '<', '>', '<=', '>=', '<>', '!=', '*=', '=*', 'LIKE', 'IN', 'IS', 'NOT\t', 'NOT IN',
               'NOT LIKE', 'REGEXP', 'RLIKE', 'NOT_LIKE', '!']
LOGICAL = ['AND', 'OR', '&&', '||', 'and']
ARITHMETIC = ['+', '-', '*', '/', '%', '&', '| |', '|', 'MOD']
JOIN_TYPES = ['INNER', 'LEFT', 'RIGHT', 'FULL', 'LEFT OUTER', 'RIGHT OUTER', 'NATURAL', 'NATURAL LEFT',
              'NATURAL RIGHT OUTER', 'CROSS', 'STRAIGHT', 'INNER LOOP', 'CROSS OUTER', '( LEFT )', '', '', '']
TABLE_HINTS = LITERAL_WORDS[LITERAL_WORDS.index('FASTFIRSTROW'):] + ['INDEX 1', 'INDEX 1 2', 'nolock', 'INDEX']
HINTS = ['HASH GROUP', 'ORDER GROUP', 'CONCAT UNION', 'HASH UNION', 'MERGE UNION', 'FAST 5', 'FORCE ORDER', 'MAXDOP 2',
         'KEEP PLAN', 'KEEPFIXED PLAN', 'ROBUST PLAN', 'EXPAND VIEWS', 'LOOP GROUP', 'hash GROUP', 'MERGE GROUP']
FOR_MODES = ['BROWSE', 'XML RAW', 'XML AUTO . XMLDATA', 'XML EXPLICIT . ELEMENTS . BYNATY base64',
             'XML RAW . XMLDATA . ELEMENTS', 'XML AUTO . BYNATY base64', 'XML AUTO , RAW', 'XML', 'xml RAW']
PIECES = ([text[:cut] for text in [*LITERALS_WITH_BLANK.values(), *NEGATED] for cut in range(3, len(text) + 1)] +
          [name[:cut] for name in SYSTEM_VARIABLES for cut in (2, 4, len(name) - 1, len(name))] +
          ['NOT' + blank + chr(code) for blank in ['', ' ', '  ', '\t'] for code in range(33, 127)] +
          [chr(code) for code in range(1, 127)] +
          ['\u00e4', '\u20ac', '\ufffe', '\U0001f600', 'EXPAND', 'BYNATY', '@@', 'NOT ISNULL', 'not inner',
           'NOT NULLX'])
# One word or sign in every place.
FRAMES = ['SELECT {}', 'SELECT {} a', 'SELECT a {}', 'SELECT a {} b', 'SELECT {} ( a )', 'SELECT {} ( + )',
          'SELECT {} . a', 'SELECT a . {}', 'SELECT a . b . {}', 'SELECT a . b * {}', 'SELECT a AS {}', 'SELECT - {}',
          'SELECT a * - {}', 'SELECT + {}', 'SELECT 1 {} 2', 'SELECT 1 {} + 2', 'SELECT ( {} )', 'SELECT ( {} ( a ) )',
          'SELECT {} )', 'SELECT ( {} , a )', 'SELECT a = ( {} , a )', 'SELECT ABS ( {} )', 'SELECT ABS ( {} , a )',
          'SELECT ABS ( a {} b )', 'SELECT ABS {}', 'SELECT ABS ( a ) {} b', 'SELECT `f` ( {} )', 'SELECT `f` {} a',
          'SELECT COUNT ( {} )', 'SELECT COUNT {}', 'SELECT COUNT ( {} a )', 'SELECT COUNT ( {} , a )',
          'SELECT COUNT ( a AS {} )', 'SELECT CAST ( a AS {} )', 'SELECT CONVERT ( {} , a )',
          'SELECT CONVERT ( a , {} )', 'SELECT CONVERT ( int , a , {} )', 'SELECT CAST ( a AS char ( {} ) )',
          'SELECT CAST ( a AS char {} )',
          'SELECT CASE {} WHEN a THEN b END', 'SELECT CASE WHEN {} THEN b END', 'SELECT CASE WHEN a = 1 {} 2 END',
          'SELECT CASE WHEN a THEN ( b ) {} END', 'SELECT CASE WHEN a THEN b {} c END', 'SELECT { fn {} ( a ) }',
          'SELECT { {} ( ) } }', 'SELECT fn {}', 'SELECT EXISTS {}', 'SELECT NOT EXISTS {}', 'SELECT ` {} `',
          'SELECT " {} "', "SELECT ' {} '", "SELECT ' {} 1 2 '", "SELECT ' 1 / {} / 3 '", 'SELECT TOP {} a',
          'SELECT TOP 5 {} a', 'SELECT {} TOP 5 a', '{}', '( {} a', '( SELECT a {} UNION SELECT b',
          '( SELECT a FROM t ) {} UNION SELECT b', 'SELECT a FROM {}', 'SELECT a FROM {} . b', 'SELECT a FROM b . {}',
          'SELECT a FROM t {} u', 'SELECT a FROM t {}', 'SELECT a FROM t AS {}', 'SELECT a FROM ( SELECT b ) {}',
          'SELECT a FROM ( SELECT b ) ) {} x', 'SELECT a FROM ( SELECT b ) ) ) {} x y , z',
          'SELECT a FROM ( SELECT b ORDER BY c ) ) x {} , z', 'SELECT a FROM ( {}', 'SELECT a FROM t , {}',
          'SELECT a FROM t {} JOIN u', 'SELECT a FROM t INNER {} JOIN u', 'SELECT a FROM t JOIN {}',
          'SELECT a FROM ( t ) {} JOIN u', 'SELECT a FROM t JOIN ( u {} v', 'SELECT a FROM t JOIN u {} v',
          'SELECT a FROM t JOIN u ON {}', 'SELECT a FROM t JOIN u ON a = {}', 'SELECT a FROM t JOIN u ON a = b {} c',
          'SELECT a FROM t JOIN u ON a = b AND {} = c', 'SELECT a FROM t {} ( NOLOCK )',
          'SELECT a FROM t WITH with ( {} ) )', 'SELECT a FROM t WHERE {}', 'SELECT a FROM t WHERE {} = 1',
          'SELECT a FROM t WHERE a {} b', 'SELECT a FROM t WHERE a = {}', 'SELECT a FROM t WHERE a = 1 {} b = 2',
          'SELECT a FROM t WHERE ( {} a = 1 )', 'SELECT a FROM t WHERE ( a BETWEEN 1 {} 2 )',
          'SELECT a FROM t WHERE ( a {} BETWEEN 1 AND 2 )', 'SELECT a FROM t WHERE {} ( a BETWEEN 1 AND 2 )',
          'SELECT a FROM t WHERE ( a BETWEEN {} )', 'SELECT a FROM t WHERE ( a BETWEEN 1 AND 2 {}',
          'SELECT a FROM t WHERE a IN ( 1 , {} )', 'SELECT a FROM t WHERE a = 1 {}',
          'SELECT a FROM t WHERE a = 1 AND ( b = 2 {} c = 3 )', 'SELECT a FROM t WHERE a = 1 AND ( b = 2 OR c = {} )',
          'SELECT a FROM t WHERE a = 1 AND ( b = 2 OR c = 3 {}', 'SELECT a FROM t WHERE a = 1 AND ( b = 2 OR c ) {} d',
          'SELECT a FROM t WHERE a = 1 AND ( {} OR c = 3 ) ) ) ) {}',
          'SELECT a FROM t WHERE a = 1 AND ( b = 2 OR c = 3 ) {} ORDER BY d',
          'SELECT a GROUP BY {}', 'SELECT a GROUP BY a , {}', 'SELECT a GROUP BY a with {}', 'SELECT a ORDER BY a {}',
          'SELECT a LIMIT {}', 'SELECT a LIMIT 5 , {}', 'SELECT a LIMIT 5 {} 10', 'SELECT a COMPUTE {} ( a )',
          'SELECT a COMPUTE ABS ( a ) BY {}', 'SELECT a FOR {}', 'SELECT a FOR XML {}', 'SELECT a FOR XML RAW . {}',
          'SELECT a OPTION {}', 'SELECT a OPTION HASH {}', 'SELECT a OPTION {} GROUP', 'SELECT a OPTION {} UNION',
          'SELECT a OPTION {} PLAN', 'SELECT a UNION {} SELECT b', 'SELECT a UNION ( SELECT b ) {} UNION SELECT c',
          'SELECT a | | b | | {}']

# A clause, and the words and signs that are thrown behind it in any order.
SOUPS = [('SELECT', 'a b . , ( ( ) ) * - = AS ABS COUNT SELECT `f` 1 FROM'),
         ('SELECT', 'a ( ( ) ) ABS NOW { } fn EXISTS SELECT , + DATE'),
         ('SELECT CASE', '( ) a = 1 AND WHEN THEN ELSE END END ,'),
         ('SELECT CAST (', 'a ( ) , AS CHAR INT 1 MAX ALL 2'),
         ('( SELECT', 'a ( ) ) UNION ALL SELECT FROM t ORDER BY ,'),
         ('( SELECT a FROM', "t ( ) ) UNION SELECT b 'x)' `(`"),
         ('SELECT a FROM', 't u . ( ( ) ) JOIN JOIN LEFT OUTER ON = ,'),
         ('SELECT a FROM', 't ( ( ) ) JOIN INNER NATURAL RIGHT STRAIGHT ON x = y AND AS'),
         ('SELECT a FROM ( ( (', 't u ( ) ) JOIN JOIN LEFT ON x = y'),
         ('SELECT a FROM t JOIN', 'a b u ( ) . JOIN ON = AS'),
         ('SELECT a FROM t WHERE a IN (', "1 , b ( ) ) SELECT AND 'x'"),
         ('SELECT a FROM (', 'SELECT a b t ( ) ) ) AS x , ORDER BY JOIN FROM'),
         ('SELECT a FROM t JOIN u ON', 'x = y ( ( ) ) AND JOIN , LEFT'),
         ('SELECT a FROM t WHERE', 'a b ( ( ) ) = , AND OR NOT\t'),
         ('SELECT a FROM t WHERE a = 1 AND (', 'b = 2 ( ( ) ) ) AND || , + IN'),
         ('SELECT a FROM t WHERE (', 'a 1 ( ( ) ) BETWEEN AND AND NOT\t = ,'),
         ('SELECT a FROM t WHERE', '- + 1 . E ( ( ) ) = AND NULL @ x'),
         ('SELECT', "' ' / 1 . E - ( ) NULL , Jan a"),
         ('SELECT', "` ` ' ' ( ) a . , AND"),
         ('SELECT a', 'GROUP ORDER BY BY a , 1 with ROLLUP ASC LIMIT ALL'),
         ('SELECT a', 'FOR XML RAW AUTO . XMLDATA ELEMENTS OPTION HASH GROUP UNION CONCAT , FAST 1 PLAN KEEP'),
         ('SELECT', 'ALL DISTINCT TOP ( ) 5 PERCENT WITHTIES a - . ,')]


class Writer(random_texts.Writer):
    """`depth` bounds the nesting of expressions, conditions, sources and subqueries."""

    VOCABULARY = (list(KEYWORDS) + LITERAL_WORDS + [text for text, _ in OPERATORS] * 3 + SYSTEM_VARIABLES[:3] + NAMES +
                  STRINGS + NUMBERS + UNFINISHED + list(LITERALS_WITH_BLANK) + list(LITERALS_WITH_BLANK.values()) +
                  NEGATED * 2 + ['(', ')'] * 8 +
                  [',', '.', ';', '$', ':', '^', '\\', '~', '!', '#', 'SELECT', 'FROM', 'WHERE', 'NOT', 'NOT\t', 'AS',
                   'AND', 'OR', 'JOIN', 'ON', 'BETWEEN', 'IN', 'UNION', 'CASE', 'WHEN', 'END', 'ä', '@@', 'with'])
    BLANKS = [' '] * 12 + ['  ', '\t', '\n', '\r\n']

    def name(self):
        return self.rng.choice(self.rng.choices([NAMES[:7], NAMES, UNFINISHED], [70, 29, 1])[0])

    def column(self):
        parts = self.rng.choices([1, 2, 3, 4], [60, 30, 8, 2])[0]
        return ' . '.join(self.name() for _ in range(parts)) + self.chance(.05, lambda: ' ( + )')

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
            lambda: self.call(depth - 1),
            lambda: self.call(depth - 1),
            lambda: f'( {self.call(depth - 1)} )',
            lambda: self.case(depth - 1),
            lambda: f'( {self.condition(depth - 1)} )',
            lambda: self.subquery(depth - 2),
            lambda: f'( {self.some(lambda: self.expression(depth - 1), " , ")} )')

    def case(self, depth):
        branches = self.some(lambda: self.pick(
            lambda: f'WHEN {self.condition(depth)} THEN {self.expression(depth)}',
            lambda: f'WHEN {self.expression(depth)} THEN ( {self.expression(depth)} )',
            lambda: f'ELSE {self.expression(depth)}',
            lambda: f'THEN {self.condition(depth)}',
            lambda: ''), ' ')
        subject = self.chance(.4, lambda: self.pick(lambda: self.expression(depth),
                                                    lambda: f'( {self.expression(depth)} )'))
        return self.rng.choice(['CASE {} {} END', 'CASE {} {} END', 'CASE {} {} END )']).format(subject, branches)

    def arguments(self, depth):
        separator = self.rng.choice([' , ', ' , ', ' , ', ' '])
        if self.rng.random() < .15:
            return ''
        first = self.rng.choice(DATE_PARTS) + separator if self.rng.random() < .15 else ''
        return first + self.some(lambda: self.expression(depth), separator)

    def parameters(self, depth):
        return self.rng.choice(['( {} )', '( {} )', '( {} )', '( {} ) )', '( {}', '']).format(self.arguments(depth))

    def call(self, depth):
        return self.pick(
            lambda: f'{self.rng.choice(FUNCTIONS)} {self.parameters(depth)}',
            lambda: f'{self.rng.choice(FUNCTIONS)} {self.parameters(depth)}',
            lambda: f'{self.rng.choice(["`f`", "`a b`", "f", self.name()])} {self.parameters(depth)}',
            lambda: self.group_call(depth),
            lambda: self.rng.choice(['CAST ( {} AS {} )', 'CAST ( {} AS {}', 'CONVERT ( {} AS {} )']).format(
                self.expression(depth), self.type()),
            lambda: self.rng.choice(['{} ( {} , {} {} )', '{} {} , {} {}', '{} ( {} , {} {}']).format(
                self.rng.choice(['CONVERT', 'CAST', 'convert', 'MAX']), self.type(), self.expression(depth),
                self.rng.choice(['', '', ', 3', ', 103', ', 1E+2', ', a', ','])),
            lambda: self.rng.choice(['EXISTS', 'NOT EXISTS', 'not exists']) + ' ' + self.subquery(depth - 1),
            lambda: self.escape(depth))

    def escape(self, depth):
        parameters = self.rng.choice(['( )', '( )', '(', '', f'( {self.expression(depth)} )', '( * )', 'a'])
        call = self.rng.choice(['NOW', 'now', 'DATE', 'UCASE']) + ' ' + parameters
        return self.rng.choice(['{{ fn {} }}', '{{ fn {} }}', '{{ {} }}', 'fn {}', '{{ fn {}']).format(call)

    def group_call(self, depth):
        quantifier = self.rng.choice(['', '', '', 'ALL ', 'DISTINCT '])
        body = self.rng.choice(['*', self.column(), self.arguments(depth)])
        return self.rng.choice(texts_of(OTHER_FUNCTION)) + ' ' + self.rng.choice(
            ['( {}{} )', '( {}{} )', '( {}{} )', '{}{}', '( {}{}', '( {}{} AS int )', '( int , {}{} )']).format(
                quantifier, body)

    def type(self):
        size = self.rng.choice(['', '', '( 10 )', '( 8 , 2 )', '( MAX )', '( ALL )', '10', '10 )', '( 10', '( 8 , a )',
                                '( )', '( ALL , 2 )'])
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
            lambda: f'( {self.chain(depth)} )',
            lambda: f'{self.condition(depth - 1)} {self.operand_chain(depth)}',
            lambda: f'( {self.condition(depth - 1)} ) {self.rng.choice(COMPARISONS)} {self.expression(depth - 1)}',
            lambda: f'NOT\t{self.condition(depth - 1)}',
            lambda: f'( NOT {self.condition(depth - 1)} )',
            lambda: self.between(depth),
            lambda: f'( {self.between(depth)} )',
            lambda: f'( {self.between(depth)} )',
            lambda: f'{self.leaf()} {self.rng.choice(["IN", "NOT IN"])} ( {self.some(self.leaf, " , ")} )',
            lambda: f'{self.leaf()} IN {self.subquery(depth - 1)}',
            lambda: f'{self.leaf()} = {self.subquery(depth - 1)}',
            lambda: f'{self.leaf()} IS {self.chance(.5, lambda: "NOT ")}NULL',
            lambda: f'{self.leaf()} , {self.leaf()} = {self.leaf()}',
            lambda: self.expression(depth - 1))

    def chain(self, depth):
        return self.some(lambda: self.condition(depth - 1), f' {self.rng.choice(LOGICAL)} ')

    def operand_chain(self, depth):
        tail = self.rng.choice(['', '', ')', ') )', ') ) )', '= 1', 'LIKE b', 'AND c = 2', 'OR ( d = 1 OR e = 2 )',
                                '+ 1', ', 2'])
        return f'{self.rng.choice(LOGICAL)} ( {self.chain(depth)} ) {tail}'

    def between(self, depth):
        left = self.expression(depth - 1)
        high = self.chance(.9, lambda: f'{self.rng.choice(LOGICAL)} {self.leaf()}')
        return f'{left} {self.chance(.3, lambda: self.rng.choice(["NOT", "NOT	"]))} BETWEEN {self.leaf()} {high}'

    def item(self, depth):
        body = self.pick(
            lambda: self.expression(depth), lambda: self.expression(depth), self.column, self.column,
            lambda: f'{self.expression(depth)} {self.rng.choice(COMPARISONS)} {self.expression(depth)}',
            lambda: '*', lambda: f'{self.name()} . {self.name()} *', lambda: f'( {self.expression(depth)} )',
            lambda: self.rng.choice(['IDENTIFYCOL', 'ROWGUIDCOL', '@@VERSION']),
            lambda: self.subquery(depth - 1), lambda: f'( {self.subquery(depth - 2)} )')
        return body + ' ' + self.alias(.3)

    def alias(self, share):
        return self.chance(share, lambda: self.rng.choice(['AS', 'AS', 'as', '']) + ' ' + self.name())

    def table(self):
        return self.chance(.15, lambda: self.name() + ' . ') + self.name()

    def simple_source(self, depth):
        if depth > 0 and self.rng.random() < .25:
            return self.pick(lambda: f'{self.subquery(depth - 1)} {self.alias(.7)}',
                             lambda: f'( {self.subquery(depth - 1)} ) {self.alias(.7)} {self.chance(.5, self.name)}',
                             self.derived_table)
        return f'{self.table()} {self.alias(.3)}'

    def derived_table(self):
        """Its query has eaten parentheses, a name stands behind the others, and a list may follow."""
        query = self.rng.choice(['SELECT b', 'SELECT b FROM u', 'SELECT b WHERE c = 1', 'SELECT b ORDER BY c'])
        items = self.chance(.5, lambda: self.some(self.leaf, ' , '))
        return f'( {query} {") " * self.rng.randint(1, 5)} {self.alias(.9)} {items}'

    def subquery(self, depth):
        """Closing parentheses are eaten by many rules, so that a query in parentheses may want more of them."""
        return self.rng.choice(['{}', '( {} )', '( {} )', '( {} )', '( {} ) )', '( {} ) ) )', '( {}']).format(
            self.select(depth))

    def hint(self):
        word = self.rng.choice(['WITH', 'WITH', 'WITH with', 'WITH ( with', 'with'])
        return f'{word} ( {self.some(lambda: self.rng.choice(TABLE_HINTS), " , ")} {self.rng.choice([")", ") )"])}'

    def on(self, depth):
        return self.chance(.9, lambda: 'ON x = y' if self.rng.random() < .5 else 'ON ' + self.some(
            lambda: self.on_condition(0 if self.rng.random() < .7 else depth), f' {self.rng.choice(LOGICAL)} ', 2))

    def on_condition(self, depth):
        return self.rng.choice(['{}', '{}', '( {} )', '( {}', '( {} ) )', '( ( {} )', '( ( {} ) )', 'a AND {}',
                                '( @ v ) = ( {} )', 'a']).format(self.condition(depth))

    def join(self, depth):
        left, right = self.join_side(depth - 1), self.join_side(depth - 1)
        return (f'{left} {self.chance(.06, self.hint)} {self.rng.choice(JOIN_TYPES)} JOIN '
                f'{right} {self.chance(.06, self.hint)} {self.on(depth - 1)}')

    def join_side(self, depth):
        if depth <= 0 or self.rng.random() < .5:
            return self.chance(.97, lambda: self.simple_source(depth))
        return self.pick(lambda: f'( {self.join(depth)} )', lambda: f'( {self.join(depth)} )',
                         lambda: self.join(depth), lambda: f'( {self.join(depth)}',
                         lambda: f'( {self.join(depth)} ) )')

    def source(self, depth):
        if depth <= 0 or self.rng.random() < .4:
            return self.simple_source(depth) + ' ' + self.chance(.05, self.hint)
        return self.join(depth)

    def clauses(self, depth):
        """The clauses behind WHERE in their order: how often a text has one, and what makes it."""
        return [
            (.12, lambda: 'GROUP BY ' + self.chance(.1, lambda: 'ALL ') + self.column() + self.chance(
                .5, lambda: ' , ' + self.some(lambda: self.expression(depth - 1), ' , ')) +
             self.chance(.2, lambda: self.rng.choice([' with ROLLUP', ' With CUBE', ' WITH CUBE']))),
            (.08, lambda: 'HAVING ' + self.condition(depth - 1)),
            (.15, lambda: 'ORDER BY ' + self.some(lambda: self.expression(depth - 1) + ' ' +
                                                  self.rng.choice(['', '', 'ASC', 'DESC', 'DESC ,']), ' , ')),
            (.1, lambda: 'LIMIT ' + self.some(lambda: self.expression(depth - 2), ' , ')),
            (.03, lambda: 'COMPUTE ' + self.some(lambda: self.call(0), ' , ') +
             self.chance(.5, lambda: ' BY ' + self.some(self.column, ' , '))),
            (.03, lambda: 'FOR ' + self.rng.choice(FOR_MODES)),
            (.05, lambda: 'OPTION ' + self.some(lambda: self.rng.choice(HINTS), ' , ')),
            (.07 if depth > 0 else 0,
             lambda: 'UNION ' + self.chance(.4, lambda: 'ALL ') + self.subquery(depth - 1)),
        ]

    def predicate(self):
        return (self.chance(.12, lambda: self.rng.choice(['ALL ', 'DISTINCT ', 'DISTINCTROW '])) +
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
            lambda: self.rng.choice(['{}', '{}', '( {} )', '( {} ) UNION SELECT b', '( {} )', '( ( {} )', '( ( ( {}',
                                     'x {}']).format(self.select(depth)),
            lambda: self.select(depth),
            lambda: f'SELECT {self.some(lambda: self.item(depth), " , ")} FROM t',
            lambda: f'SELECT {self.some(lambda: self.call(depth), " , ")} FROM t',
            lambda: f'SELECT {self.case(depth)} FROM t',
            lambda: f'SELECT a FROM {self.some(lambda: self.source(depth + 1), " , ", 2)}',
            lambda: f'SELECT a FROM {self.some(lambda: self.source(depth + 1), " , ", 2)}',
            lambda: f'SELECT a FROM t WHERE {self.condition(depth)}',
            lambda: f'SELECT a FROM t WHERE a = 1 {self.operand_chain(depth)}',
            lambda: f'SELECT a FROM t {self.pick(*(maker for _, maker in self.clauses(depth)))}',
            lambda: ' '.join(['SELECT a FROM t', *(self.chance(.4, maker) for _, maker in self.clauses(1))]),
            self.frame,
            self.soup,
            lambda: 'SELECT a ' + self.some(lambda: self.rng.choice(PIECES), ' ', 8))

    def frame(self):
        word = self.rng.choice([self.leaf(), self.rng.choice(self.VOCABULARY)])
        return self.rng.choice(FRAMES).replace('{}', word)

    def soup(self):
        clause, words = self.rng.choice(SOUPS)
        return ' '.join([clause, *self.rng.choices(words.split(' '), k=self.rng.randint(2, 14))])
