#!/usr/bin/env python3
"""Trees and tokens of MS SQL texts, written down by hand."""

import time
import unittest

from engine import token_lines, with_deep_stack
from mssql_oracle import (CONFIGURATION_FUNCTION, DATA_TYPE, DATE_PART, DATETIME_FUNCTION, DIALECT, GROUP_FUNCTION,
                          KEYWORDS, LITERAL_WORDS, LITERALS, NUMBER_FUNCTION, STRING_FUNCTION, SYSTEM_VARIABLES,
                          keyword_text)
from trees import (CLOSE, COMMA, DOT, MINUS, OPEN, PLUS, STAR, bare_num, cond, digit, eq, from_, lit, nil, node, num,
                   op, params)


def tok(name, text=None):
    """A keyword token with its usual text, or any token with the text given."""
    return '%s:"%s"' % (name, keyword_text(name) if text is None else text)


def ident(text):
    return tok('IDENTIFICATOR', text)


def word_of(name):
    """A text and token of a word: in lower case where capitals are a literal."""
    text = keyword_text(name).strip("'")
    if name[0] == "'":
        return text, lit(text)
    text = text.lower() if text in LITERALS else text
    return text, tok(name, text)


def names(parts, labels):
    return [node(label, *([part] if ':"' in part else map(ident, part.split())))
            for part, label in zip(parts, labels[-len(parts):])]


def col(*parts):
    return node('COLUMN_SPECIFICATION', *names(parts, ['DB_NAME', 'TABLE_NAME', 'COLUMN_NAME']))


def string(*parts):
    return node('SQL_LITERAL', node('SQL_STRING', *parts))


def item(*parts):
    return node('ALIAS', *parts)


def new_name(*parts):
    return node('NEW_NAME', *(part if ':"' in part else ident(part) for part in parts))


def source(*parts, alias=None):
    return node('ALIAS', node('TABLE_SPECIFICATION', *names(parts, ['DB_NAME', 'TABLE_NAME'])),
                *([tok('LITERAL_AS'), new_name(alias)] if alias else []))


def select(items, *clauses, predicate=()):
    return node('SELECT_QUERY_', node('PREDICATE', *predicate), node('SELECT_LIST', *items), *clauses)


def query(items, *clauses, predicate=()):
    return nil(select(items, *clauses, predicate=predicate))


def word(name, *children):
    return node(tok(name), *children)


def func(*parts):
    return node('FUNCTION', *parts)


def user_func(*parts):
    return node('USER_FUNCTION', *parts)


def join(prefix, postfix, *nested):
    return node('JOIN_DEF', node(tok('JOIN_KEYWORD'), node('JOIN_PREFIX', *prefix), node('JOIN_POSTFIX', *postfix)),
                *nested)


def on(*parts):
    return node(tok('ON_KEYWORD'), cond(*parts))


SLASH = tok('DIVIDE', '/')
BAR = tok('VERTBAR', '|')
BRACKET = tok('RIGHT_COL_PAREN', ']')
QUOTE = tok("'''", "'")
NOT = tok('NOT_KEYWORD')
NULL = tok('NULL_KEYWORD')
FROM = tok('FROM_KEYWORD')
SELECT = tok('SELECT_KEYWORD')
WHERE = tok('WHERE_KEYWORD')
INNER = tok('INNER_KEYWORD')

A, B, C, E, T, X, Y, Z = (col(name) for name in 'abcetxyz')
ONE, TWO, THREE = num('1'), num('2'), num('3')
FROM_T = from_(source('t'))
SELECT_A_FROM_T = select([item(A)], FROM_T)
SELECT_B_FROM_U = select([item(B)], from_(source('u')))
SELECT_ONE = select([item(ONE)])
ON_XY = on(eq(X, Y))
ON_YZ = on(eq(Y, Z))
JOIN_BC = join([source('b')], [source('c'), ON_XY])

STATEMENTS = {
    'SELECT a, b AS c FROM t1 INNER JOIN t2 ON t1.x = t2.y WHERE a > 1 ORDER BY b DESC': query(
        [item(A), item(B, new_name('c'))],
        from_(join([source('t1'), INNER], [source('t2'), on(eq(col('t1', 'x'), col('t2', 'y')))])),
        node('WHERE_CONDITION', cond(op('GT', '>', A, ONE))), node('ORDER_BY', B, tok('DESC_KEYWORD'))),
    'SELECT * FROM t': query([item(col(STAR))], FROM_T),
    'SELECT t.* FROM t': query([item(col('t', STAR))], FROM_T),
    'SELECT TOP 10 PERCENT a FROM t': query([item(A)], FROM_T, predicate=[
        word('TOP_KEYWORD', bare_num('10'), tok('PERCENT_KEYWORD'))]),
    'SELECT DISTINCT TOP (5) WITHTIES a': query([item(A)], predicate=[
        tok('DISTINCT_KEYWORD'), word('TOP_KEYWORD', bare_num('5'), tok('WITHTIES_KEYWORD'))]),
    'SELECT a UNION ALL SELECT b': query([item(A)], node('UNION', tok('ALL_KEYWORD'), select([item(B)]))),
    'SELECT a ORDER BY a UNION SELECT b UNION SELECT c': query(
        [item(A)], node('ORDER_BY', A),
        node('UNION', select([item(B)], node('UNION', select([item(C)]))))),
    '(SELECT a)': query([item(A)]),
    'SELECT a FROM t)': nil(SELECT_A_FROM_T),
    'SELECT a FROM t WHERE': nil(SELECT_A_FROM_T, WHERE),
    'SELECT a FROM t; SELECT b': nil(SELECT_A_FROM_T, SELECT, ident('b')),
    'SELECT a FROM t GROUP BY a, b with cube HAVING COUNT(*) > 1': query(
        [item(A)], FROM_T, node('GROUP_BY', A, B, tok('WITH_KEYWORD', 'with'), tok('CUBE_KEYWORD', 'cube')),
        node('HAVING', cond(op('GT', '>', func(tok('COUNT'), params(STAR)), ONE)))),
    'SELECT a FROM t GROUP BY ALL a WITH CUBE': nil(
        select([item(A)], FROM_T, node('GROUP_BY', tok('ALL_KEYWORD'), A)), lit('WITH'), tok('CUBE_KEYWORD')),
    'SELECT a FROM t COMPUTE SUM(a), AVG(b) BY a, b': query(
        [item(A)], FROM_T, node('COMPUTE', tok('COMPUTE_KEYWORD'), func(tok('SUM'), params(A)), COMMA,
                                func(tok('AVG'), params(B)), node('BY', tok('BY_KEYWORD'), A, COMMA, B))),
    'SELECT a FROM t FOR BROWSE': query([item(A)], FROM_T, node('FOR', lit('BROWSE'))),
    'SELECT a FROM t FOR XML AUTO.ELEMENTS': query(
        [item(A)], FROM_T, node('FOR', lit('XML'), lit('AUTO'), DOT, lit('ELEMENTS'))),
    'SELECT a FROM t FOR XML RAW.XMLDATA.BYNATY base64': query(
        [item(A)], FROM_T, node('FOR', lit('XML'), lit('RAW'), DOT, lit('XMLDATA'), DOT, lit('BYNATY base64'))),
    'SELECT a FROM t FOR XML AUTO, ELEMENTS': nil(
        select([item(A)], FROM_T, node('FOR', lit('XML'), lit('AUTO'))), COMMA, lit('ELEMENTS')),
    'SELECT a FROM t OPTION HASH GROUP, CONCAT UNION, MAXDOP 2, KEEP PLAN, EXPAND VIEWS': query(
        [item(A)], FROM_T, node('OPTION', tok('OPTION_KEYWORD'), lit('HASH'), tok('GROUP_KEYWORD'), COMMA,
                                tok('CONCAT'), tok('UNION_KEYWORD_'), COMMA, lit('MAXDOP'), bare_num('2'), COMMA,
                                lit('KEEP'), lit('PLAN'), COMMA, lit('EXPAND VIEWS'))),
    'SELECT a FROM t OPTION (MAXDOP 2)': nil(SELECT_A_FROM_T, tok('OPTION_KEYWORD'), OPEN, lit('MAXDOP'), digit('2'),
                                             CLOSE),
    'SELECT a b FROM t': nil(select([item(A)]), ident('b'), FROM, ident('t')),
    'SELECT [dbo].[t].[a] FROM t': query([item(col('dbo', 't', 'a'))], FROM_T),
    'SELECT [a]]b] FROM t': query([item(node('COLUMN_SPECIFICATION', node(
        'COLUMN_NAME', ident('a'), BRACKET, ident('b'), BRACKET)))], FROM_T),
    'SELECT [my col], "q", `w` FROM t': query([item(col('my col')), item(col('q')), item(col('w'))], FROM_T),
    'SELECT a.b* FROM t': query([item(node('COLUMN_SPECIFICATION', node('DB_NAME', ident('a')),
                                           node('TABLE_NAME', ident('b')), node('ASTERISK_', STAR)))], FROM_T),
    "SELECT a AS 'x', b AS #x, c AS [x]": query([item(A, new_name('x')), item(B, new_name(lit('#'), 'x')),
                                                 item(C, new_name('x'))]),
    'SELECT a AS Sum': query([item(A, new_name(tok('SUM', 'Sum')))]),
    'SELECT IDENTIFYCOL, ROWGUIDCOL': query([item(lit('IDENTIFYCOL')), item(lit('ROWGUIDCOL'))]),
    'SELECT ((SELECT a FROM t)) AS x': query([item(SELECT_A_FROM_T, new_name('x'))]),
    # No SELECT at the beginning
    'INSERT INTO t': nil(node('SELECT_QUERY_', 'ERROR'), ident('INSERT'), lit('INTO'), ident('t')),
    'x SELECT a': nil(node('SELECT_QUERY_', 'ERROR'), ident('x'), SELECT, ident('a')),
    '(a)': nil(node('SELECT_QUERY_', 'ERROR'), OPEN, ident('a'), CLOSE),
    '': nil(node('SELECT_QUERY_', 'ERROR')),
    '((SELECT a) UNION SELECT b)': nil(select([item(A)]), tok('UNION_KEYWORD_'), SELECT, ident('b'), CLOSE),
    '(((SELECT a': nil(node('SELECT_QUERY_', 'ERROR'), OPEN, OPEN, OPEN, SELECT, ident('a')),
    # Errors that are reported, and whose trees are not modelled
    'SELECT': None,
    'SELECT FROM t': None,
    'SELECT NOW()': None,
    'SELECT COUNT FROM t': None,
    'SELECT {fn NOW} FROM t': None,
    'SELECT {fn NOW(} FROM t': None,
}

# What stands behind `SELECT a FROM`: the clause, or None where it fails, and the tokens that trail.
SOURCES = {
    'a, b': [from_(node(COMMA, source('a'), source('b')))],
    'a, b, c': [from_(node(COMMA, node(COMMA, source('a'), source('b')), source('c')))],
    'a,': [from_(node(COMMA, source('a')))],
    '': [from_()],
    'SELECT b': [from_(), SELECT, ident('b')],
    'WHERE a = b': [from_() + ' ' + node('WHERE_CONDITION', cond(eq(A, B)))],
    '(t)': [None, FROM, OPEN, ident('t'), CLOSE],
    '(SELECT a FROM t) AS x': [from_(node('ALIAS', SELECT_A_FROM_T, tok('LITERAL_AS'), new_name('x')))],
    't x': [from_(source('t')), ident('x')],
    't AS x': [from_(source('t', alias='x'))],
    'dbo.t': [from_(source('dbo', 't'))],
    't WITH (NOLOCK)': [from_(source('t')), lit('WITH'), OPEN, lit('NOLOCK'), CLOSE],
    'a JOIN b ON a = b AND x = y': [from_(join([source('a')], [source('b'), word('AND_KEYWORD', on(eq(A, B)),
                                                                                 cond(eq(X, Y)))]))],
    'a JOIN b ON a AND b': [from_(join([source('a')], [source('b'), word('AND_KEYWORD', on(A), cond(B))]))],
    'a JOIN b ON x = y JOIN c ON y = z': [from_(join([source('a')], [source('b'), ON_XY],
                                                     join([], [source('c'), ON_YZ])))],
    '(a JOIN b ON x = y) JOIN c ON y = z': [from_(join([source('a')], [source('b'), ON_XY],
                                                       join([], [source('c'), ON_YZ])))],
    'a JOIN b JOIN c ON x = y ON y = z': [from_(join([source('a')], [JOIN_BC, ON_YZ]))],
    'a JOIN (b JOIN c ON x = y) ON y = z': [from_(join([source('a')], [JOIN_BC, ON_YZ]))],
    'a LEFT OUTER hash JOIN b WITH (NOLOCK, INDEX 1 2) ON x = y': [from_(join(
        [source('a'), tok('LEFT_KEYWORD'), tok('OUTER_KEYWORD'), tok('HASH', 'hash')],
        [source('b'), node('TABLE_HINT', lit('NOLOCK'), lit('INDEX'), bare_num('1'), bare_num('2')), ON_XY]))],
    'a CROSS JOIN b': [from_(join([source('a'), tok('CROSS_KEYWORD')], [source('b')]))],
    '(SELECT a FROM t) AS x JOIN b ON x = y': [from_(join(
        [node('ALIAS', SELECT_A_FROM_T, tok('LITERAL_AS'), new_name('x'))], [source('b'), ON_XY]))],
    'a JOIN (SELECT a FROM t) AS x ON x = y': [from_(join([source('a')], [
        node('ALIAS', SELECT_A_FROM_T, tok('LITERAL_AS'), new_name('x')), ON_XY]))],
    'JOIN b': [from_(join([], [source('b')]))],
    'a JOIN': [from_(join([source('a')], []))],
    'a JOIN b ON (x = y)': [from_(join([source('a')], [source('b'), ON_XY]))],
    'a JOIN b ON @v = y': [from_(join([source('a')], [source('b'), on(eq(lit('@') + ' ' + ident('v'), Y))]))],
}

# What stands behind `SELECT a FROM t WHERE`, and the condition.
CONDITIONS = {
    'a = 1 AND b = 2 OR c = 3': word('OR_KEYWORD', word('AND_KEYWORD', cond(eq(A, ONE)), cond(eq(B, TWO))),
                                     cond(eq(C, THREE))),
    'a = 1 && b = 2 || c = 3': op('OR_KEYWORD2', '||', op('AND_KEYWORD2', '&&', cond(eq(A, ONE)), cond(eq(B, TWO))),
                                  cond(eq(C, THREE))),
    'a BETWEEN 1 AND 2': word('BETWEEN_KEYWORD', A, ONE, tok('AND_KEYWORD'), TWO),
    'a NOT BETWEEN 1 OR 2': word('BETWEEN_KEYWORD', A, NOT, ONE, tok('OR_KEYWORD'), TWO),
    '(a BETWEEN 1 AND 2)': OPEN + ' ' + word('BETWEEN_KEYWORD', A, ONE, tok('AND_KEYWORD'), TWO),
    'a IS NULL': cond(word('IS_KEYWORD', A, num(NULL))),
    'a IS NOT NULL': cond(word('IS_KEYWORD', A, num(NOT, NULL))),
    'a IN (1, 2)': cond(word('IN_KEYWORD', A, ONE, TWO)),
    'a IN (SELECT b FROM u)': cond(word('IN_KEYWORD', A, SELECT_B_FROM_U)),
    'a *= b': cond(op('LOJ', '*=', A, B)),
    'a =* b': cond(op('GOJ', '=*', A, B)),
    'NOT a = 1': cond(node(NOT, eq(A, ONE))),
    '(NOT a = 1)': cond(node(NOT, eq(A, ONE))),
    '(a = 1)': cond(eq(A, ONE)),
    '(a = 1 AND b = 2)': word('AND_KEYWORD', cond(eq(A, ONE)), cond(eq(B, TWO))),
    'a = @v': cond(eq(A, lit('@') + ' ' + ident('v'))),
    '@v, 1 = a': cond(eq(lit('@') + ' ' + ident('v') + ' ' + ONE, A)),
    'a LIKE b': cond(word('LIKE_KEYWORD', A, B)),
}

# Conditions that fail, with the tokens that trail behind WHERE.
NO_CONDITIONS = {
    'a NOT LIKE b': [ident('a'), NOT, tok('LIKE_KEYWORD'), ident('b')],
    'a': [ident('a')],
    'a =': [ident('a'), tok('EQ', '=')],
}

ITEMS = {
    '-1': node(MINUS, ONE),
    'a * -1': node(STAR, A, num('-', '1')),
    'a * -b': node(STAR, A, node(MINUS, B)),
    '-a': node(MINUS, A),
    '+a': node(PLUS, A),
    'a - 1': node(MINUS, A, ONE),
    'a-1': col('a-1'),
    'a + b * c': node(PLUS, A, node(STAR, B, C)),
    'a & b | c': node(BAR, op('AMPERSAND', '&', A, B), C),
    'a | | b': A + ' ' + BAR + ' ' + BAR + ' ' + B,
    'a = b': eq(A, B),
    '(a)': A,
    '(SELECT a FROM t)': SELECT_A_FROM_T,
    'SELECT 1': SELECT_ONE,
    'NULL': num(NULL),
    '1.5': num('1', '.', '5'),
    '.5': num('.', '5'),
    '1E+5': num('1', ident('E'), '+', '5'),
    "'x'": string(ident('x')),
    "N'x'": string(ident('x')),
    "'a b'": string(ident('a'), ident('b')),
    "''": string(),
    "'1/2/2000'": node('SQL_LITERAL', node('DATE', QUOTE, digit('1'), SLASH, digit('2'), SLASH, digit('2000'), QUOTE)),
    "'Jan 1 2000'": node('SQL_LITERAL', node('DATE', QUOTE, ident('Jan'), digit('1'), digit('2000'), QUOTE)),
    "'Jan 1, 2000'": node('SQL_LITERAL', node('DATE', QUOTE, ident('Jan'), digit('1'), COMMA, digit('2000'), QUOTE)),
    'a(+)': ' '.join([A, OPEN, PLUS, CLOSE]),
    'MONTH(+)': ' '.join([col(tok('MONTH')), OPEN, PLUS, CLOSE]),
    'dd': col(lit('dd')),
    'CASE WHEN a = 1 THEN 2 ELSE 3 END': func(tok('CASE'), params(
        func(tok('WHEN'), params(cond(eq(A, ONE)))), func(tok('THEN'), params(TWO)),
        func(tok('ELSE'), params(THREE)), tok('END'))),
    'CASE (a) WHEN 1 THEN b END': func(tok('CASE'), params(
        A, func(tok('WHEN'), params(ONE)), func(tok('THEN'), params(B)), tok('END'))),
    'CASE END': func(tok('CASE'), params(tok('END'))),
    'COUNT(*)': func(tok('COUNT'), params(STAR)),
    'COUNT(DISTINCT a)': func(tok('COUNT'), params(tok('DISTINCT_KEYWORD'), A)),
    'MAX a': func(tok('MAX_KEYWORD'), params(A)),
    'max(a)': func(tok('MAX_KEYWORD', 'max'), params(A)),
    'VAR(a)': func(tok('VAR'), params(A)),
    'VAR()': func(tok('VAR'), params()),
    'CONVERT(varchar(10), a, 103)': func(tok('CONVERT'), params(
        node('DATATYPE', tok('VARCHAR', 'varchar'), bare_num('10')), A, node('STYLE', digit('103')))),
    'CAST(a AS int)': func(tok('CAST'), params(word('LITERAL_AS', A, node('DATATYPE', tok('INT', 'int'))))),
    'CAST(a AS varchar(max))': func(tok('CAST'), params(word('LITERAL_AS', A, node(
        'DATATYPE', tok('VARCHAR', 'varchar'), bare_num(tok('MAX_KEYWORD', 'max')))))),
    'CAST(a AS varchar(ALL))': func(tok('CAST'), params(word('LITERAL_AS', A, node(
        'DATATYPE', tok('VARCHAR', 'varchar'), bare_num(tok('ALL_KEYWORD')))))),
    'CONVERT(a AS decimal(8, 2))': func(tok('CONVERT'), params(word('LITERAL_AS', A, node(
        'DATATYPE', tok('DECIMAL', 'decimal'), bare_num('8'), bare_num('2'))))),
    'DATEADD(dd, 1, a)': func(tok('DATEADD'), params(node('DATE_PART', lit('dd')), ONE, A)),
    'GETDATE()': func(tok('GETDATE'), params()),
    'now()': func(tok('NOW', 'now'), params()),
    'LEFT(a, 1)': func(tok('LEFT_KEYWORD'), params(A, ONE)),
    'RIGHT(a, 1)': func(tok('RIGHT_KEYWORD'), params(A, ONE)),
    'SET TEXTSIZE(a)': func(lit('SET TEXTSIZE'), params(A)),
    '@@VERSION': func(lit('@@VERSION')),
    'PI': func(tok('PI')),
    'PI()': func(tok('PI'), params()),
    'EXP': func(tok('EXP')),
    't.EXP': col('t', tok('EXP')),
    'REMOTE': col(tok('REMOTE')),
    'PATINDEX(a, b)': user_func(params(A, B)),
    'f(a b)': user_func(params(A, B)),
    'f(a': user_func(params(A)),
    'f(month)': user_func(params(node('DATE_PART', tok('MONTH', 'month')))),
    '[dbo].f(x)': user_func(node('DB_NAME', ident('dbo')), ident('f'), params(X)),
    '{fn NOW()}': func(node(lit('fn'), func(lit('NOW'), params()))),
    '{fn UCASE(a)}': func(node(lit('fn'), func(lit('UCASE'), params(A)))),
    'fn UCASE(a)': func(node(lit('fn'), func(lit('UCASE'), params(A)))),
    'EXISTS (SELECT 1)': func(tok('EXISTS'), params(SELECT_ONE)),
}

# An item and the tokens that trail behind it: `SELECT text` is the whole text.
TRAILING_ITEMS = {
    '(a, b)': ([A, B], []),
    'a, (b': ([A, B], []),
    "'it''s'": ([string(ident('it'))], [QUOTE, ident('s'), QUOTE]),
    '1E5': ([ONE], [ident('E5')]),
    '1E-5': ([ONE], [ident('E-5')]),
    '12abc': ([num('12')], [ident('abc')]),
    'dbo.f(x)': ([col('dbo', 'f')], [OPEN, ident('x'), CLOSE]),
    'WEEK(a)': ([col(tok('WEEK'))], [OPEN, ident('a'), CLOSE]),
    'YEAR(month(a))': ([col(tok('YEAR'))], [OPEN, tok('MONTH', 'month'), OPEN, ident('a'), CLOSE, CLOSE]),
    'a, ': ([A], [COMMA]),
    "n'x'": ([col(lit('n'))], [QUOTE, ident('x'), QUOTE]),
}

TOKENS = {
    'SELECT a FROM b': [SELECT, ident('a'), FROM, ident('b')],
    '\tSELECT\r\n\n a': [SELECT, ident('a')],
    'select Select': [tok('SELECT_KEYWORD', 'select'), tok('SELECT_KEYWORD', 'Select')],
    'SELECTED': [ident('SELECTED')],
    'SELECT-1': [ident('SELECT-1')],
    'SELECT*': [SELECT, STAR],
    'a-b': [ident('a-b')],
    'a -b': [ident('a'), MINUS, ident('b')],
    '1E5': [digit('1'), ident('E5')],
    '1E-5': [digit('1'), ident('E-5')],
    '12abc': [digit('12'), ident('abc')],
    "N'x'": [tok('NSTR'), QUOTE, ident('x'), QUOTE],
    "n'x'": [lit('n'), QUOTE, ident('x'), QUOTE],
    '@@VERSION': [lit('@@VERSION')],
    '@@version': [lit('@'), ident('version')],
    '@@VERSIONX': [lit('@@VERSION'), ident('X')],
    '@@CPU_BUSY': [lit('@'), ident('CPU_BUSY')],
    '@@': [lit('@')],
    '@@@VERSION': [lit('@@VERSION')],
    '@v': [lit('@'), ident('v')],
    'SET TEXTSIZE': [lit('SET TEXTSIZE')],
    'SET  TEXTSIZE': [ident('TEXTSIZE')],
    'SET x': [],
    'SET xy': [ident('y')],
    'SET': [ident('SET')],
    'SET\tx': [ident('SET'), ident('x')],
    'set x': [ident('set'), ident('x')],
    'Set TEXTSIZE': [ident('Set'), ident('TEXTSIZE')],
    'EXPAND VIEWS': [lit('EXPAND VIEWS')],
    'EXPAND VIEX a': [ident('a')],
    'BYNATY base64': [lit('BYNATY base64')],
    'BYNATY base6': [],
    'WITH TIES': [lit('WITH'), ident('TIES')],
    'WITHTIES': [tok('WITHTIES_KEYWORD')],
    'a;': [ident('a')],
    '<>!=': [tok('NOT_EQ', '<>'), tok('NOT_EQ', '!=')],
    'a!=b': [ident('a!'), tok('EQ', '='), ident('b')],
    '!a ! ?': [ident('!a'), ident('!'), ident('?')],
    'a*=b': [ident('a'), tok('LOJ', '*='), ident('b')],
    'a=*b': [ident('a'), tok('GOJ', '=*'), ident('b')],
    'a# ##b #c': [ident('a#'), lit('##'), ident('b'), lit('#'), ident('c')],
    'a--b /*': [ident('a--b'), SLASH, STAR],
    '--': [MINUS, MINUS],
    '<=>=<> < >': [tok('LE', '<='), tok('GE', '>='), tok('NOT_EQ', '<>'), tok('L_T', '<'), tok('GT', '>')],
    '&&& |||': [tok('AND_KEYWORD2', '&&'), tok('AMPERSAND', '&'), tok('OR_KEYWORD2', '||'), BAR],
    '[]"`{}%': [tok('LEFT_COL_PAREN', '['), BRACKET, tok('MY_QUOTE', '\\"'), tok('MY_ONE_QUOTE', '`'),
                tok('LEFT_BRACE', '{'), tok('RIGHT_BRACE', '}'), tok('MOD', '%')],
    'naäme': [ident('na'), ident('me')],
    'a\U0001f600b': [ident('a'), ident('b')],
    'Day day DAY': [tok('DAY', 'Day'), lit('day'), tok('DAY')],
    'HASH hash': [lit('HASH'), tok('HASH', 'hash')],
    'NOW now': [lit('NOW'), tok('NOW', 'now')],
    'WITH With': [lit('WITH'), tok('WITH_KEYWORD', 'With')],
    'atn2 LOG10': [tok('ATN2', 'atn2'), tok('LOG10')],
    '': [],
}


class Trees(unittest.TestCase):
    maxDiff = None

    def check(self, sql, expected):
        with self.subTest(sql):
            self.assertEqual(DIALECT.parse(sql), expected)

    def test_statements(self):
        for sql, tree in STATEMENTS.items():
            self.check(sql, tree)

    def test_sources(self):
        for text, (clause, *trailing) in SOURCES.items():
            self.check('SELECT a FROM ' + text, nil(select([item(A)], *([clause] if clause else [])), *trailing))

    def test_conditions(self):
        for text, condition in CONDITIONS.items():
            self.check('SELECT a FROM t WHERE ' + text,
                       query([item(A)], FROM_T, node('WHERE_CONDITION', condition)))

    def test_where_without_a_condition_trails(self):
        for text, trailing in NO_CONDITIONS.items():
            self.check('SELECT a FROM t WHERE ' + text, nil(SELECT_A_FROM_T, WHERE, *trailing))

    def test_what_stands_behind_a_list_in_parentheses_trails(self):
        self.check('SELECT a FROM t WHERE a IN (1, 2) ORDER BY a', nil(
            select([item(A)], FROM_T, node('WHERE_CONDITION', cond(word('IN_KEYWORD', A, ONE, TWO)))),
            tok('ORDER_KEYWORD'), tok('BY_KEYWORD'), ident('a')))

    def test_items(self):
        for text, tree in ITEMS.items():
            self.check('SELECT ' + text, query([item(tree)]))

    def test_items_with_trailing_text(self):
        for text, (items, trailing) in TRAILING_ITEMS.items():
            self.check('SELECT ' + text, nil(select(map(item, items)), *trailing))

    def test_every_word_of_the_function_families_can_be_called(self):
        families = {13: GROUP_FUNCTION, 23: NUMBER_FUNCTION, 30: STRING_FUNCTION, 15: DATETIME_FUNCTION,
                    17: CONFIGURATION_FUNCTION, 1: ['ISNULL']}
        for count, family in families.items():
            self.assertEqual(len(family), count)
            for name in family:
                text, token = word_of(name)
                self.check('SELECT %s(a)' % text, query([item(func(token, params(A)))]))

    def test_date_words_are_names(self):
        self.assertEqual(len(DATE_PART), 17)
        for name in DATE_PART + DATETIME_FUNCTION:
            text, token = word_of(name)
            self.check('SELECT %s FROM %s' % (text, text), query([item(col(token))], from_(source(token))))

    def test_data_types(self):
        self.assertEqual(len(DATA_TYPE), 19)
        for name in DATA_TYPE:
            self.check('SELECT CAST(a AS %s)' % name, query([item(func(tok('CAST'), params(
                word('LITERAL_AS', A, node('DATATYPE', tok(name))))))]))


class Checks(unittest.TestCase):
    def test_status(self):
        for status, texts in {'clean': ['SELECT a', 'SELECT a;', '(SELECT a)'],
                              'trailing': ['SELECT a b', 'SELECT a FROM t WHERE', 'SELECT a))'],
                              'error': ['', 'x SELECT a', '((SELECT a))', 'SELECT', 'SELECT TOP']}.items():
            for sql in texts:
                with self.subTest(sql):
                    self.assertEqual(DIALECT.read(sql).status, status)


class Tokens(unittest.TestCase):
    def check(self, text, expected):
        with self.subTest(text):
            self.assertEqual(token_lines(DIALECT.lex(text)), expected)

    def test_texts(self):
        for text, expected in TOKENS.items():
            self.check(text, expected)

    def test_keywords_in_any_case(self):
        for text, name in KEYWORDS.items():
            for shown in (text.lower(), text.title(), text.upper()):
                self.check(shown, [lit(shown) if shown in LITERALS else tok(name, shown)])
                self.check(shown + '1', [ident(shown + '1')])

    def test_literals_in_their_case_only(self):
        for text in LITERAL_WORDS:
            self.check(text, [lit(text)])
            other = text.swapcase()
            self.check(other, [tok(KEYWORDS.get(other.upper(), 'IDENTIFICATOR'), other)])

    def test_system_variables_cut_short(self):
        self.assertEqual(len(SYSTEM_VARIABLES), 16)
        for name in SYSTEM_VARIABLES:
            self.check(name, [lit(name)])
            for end in range(3, len(name)):
                shown = name[2:end]
                self.check(name[:end], [lit('@'), tok(KEYWORDS.get(shown, 'IDENTIFICATOR'), shown)])

    def test_characters_without_a_token_disappear(self):
        for code in [*range(0, 33), *map(ord, '$:;\\^~'), 0x7f, 0x80, 0xe4, 0xfffe, 0xffff]:
            self.check('a' + chr(code) + 'b', [ident('a'), ident('b')])


class Growth(unittest.TestCase):
    def test_unclosed_nesting_is_not_exponential(self):
        for text in ('SELECT ' + '(' * 300 + 'a FROM t', 'SELECT a FROM t WHERE ' + '(' * 300 + 'a = 1',
                     'SELECT a FROM ' + 'a JOIN ' * 100 + 'b'):
            start = time.monotonic()
            self.assertIsNotNone(with_deep_stack(lambda text=text: DIALECT.parse(text)))
            self.assertLess(time.monotonic() - start, 10)


if __name__ == '__main__':
    unittest.main()
